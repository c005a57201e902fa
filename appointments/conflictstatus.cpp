#include "appointments/conflictstatus.h"

#include <algorithm>
#include <QSet>

#include "data/codes.h"
#include "data/minutetime.h"
#include "data/statuses.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

QString wordsOf(const Recordset& row) {
    return StatusWords(static_cast<int>(row["ncolor"].integer()), static_cast<int>(row["appttype"].integer()));
}

/// By what a conflict and its row are known to each other: the statements of the conflicts give no key.
QString nameOf(QDate date, const MinuteSpan& time, const QString& text) {
    return QStringLiteral("%1|%2|%3|%4").arg(date.toJulianDay()).arg(time.start).arg(time.end).arg(text);
}

}  // namespace

QString StatusWords(int code, int apptType) {
    if (apptType == ApptTypeSlot)
        return QStringLiteral("Open slot");
    return QString::fromLatin1(StatusOf(code).word);
}

QStringList StatusesOf(db::Connection& connection, const std::vector<Conflict>& conflicts) {
    QHash<QString, QStringList> words;
    QSet<QDate> asked;
    for (const Conflict& conflict : conflicts) {
        if (asked.contains(conflict.date))
            continue;
        asked.insert(conflict.date);
        for (
            Recordset rows(
                Sql("Select nstarttime, nendtime, cappttext, ncolor, appttype from appointments Where dapptdate = '{}'",
                    conflict.date),
                connection);
            !rows.Eof(); rows.MoveNext()) {
            QStringList& known = words[nameOf(conflict.date, {rows["nstarttime"].real(), rows["nendtime"].real()},
                                              rows["cappttext"].text())];
            if (const QString word = wordsOf(rows); !word.isEmpty() && !known.contains(word))
                known << word;
        }
    }
    QStringList statuses;
    for (const Conflict& conflict : conflicts)
        statuses << words.value(nameOf(conflict.date, conflict.time, conflict.text)).join(QStringLiteral(" / "));
    return statuses;
}

QHash<QString, QStringList> BusyStatuses(db::Connection& connection, const QString& ids, QDate date, int start,
                                         int end) {
    QHash<QString, QStringList> busy;
    const db::Raw quoted{ids};
    for (
        Recordset rows(
            Sql("SELECT appointments.ClinicianId as [AptClId], appointmentsEvents.ClinicianId as [EvClId], nstarttime, nendtime, ncolor, appttype FROM appointments LEFT JOIN appointmentsEvents ON appointments.nkeyid = appointmentsevents.nkeyid WHERE ((appointments.ClinicianID IN({}))  or  (appointmentsEvents.ClinicianID IN({}))) AND dapptdate = '{}' AND nstarttime <= {} AND nendtime >= {} Order by nstarttime",
                quoted, quoted, date, end, start),
            connection);
        !rows.Eof(); rows.MoveNext()) {
        const QString owner = rows["AptClId"].text();
        const bool military = Session().MilitaryTime;
        const auto clock = [&](const char* field) {
            return MinutesToTimeText(static_cast<int>(rows[field].integer()), military);
        };
        const QString words = wordsOf(rows);
        const QString line = QStringLiteral("%1 - %2%3")
                                 .arg(clock("nstarttime"), clock("nendtime"),
                                      words.isEmpty() ? QString() : QStringLiteral(": ") + words);
        QStringList& lines = busy[owner == QLatin1String(EventClinicianId) ? rows["EvClId"].text() : owner];
        if (!lines.contains(line))
            lines << line;
    }
    return busy;
}
