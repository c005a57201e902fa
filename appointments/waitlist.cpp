#include "appointments/waitlist.h"

#include <array>
#include <QHash>
#include <QLocale>

#include "data/minutetime.h"
#include "data/schema.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int DaysOfWeek = 7;

QString shownName(const Recordset& row) {
    const QString name = row["last_name"].text().trimmed() + QStringLiteral(", ") + row["first_name"].text().trimmed();
    const QString initial = row["middle_init"].text();
    return OneLine(initial.isEmpty() ? name : name + QLatin1Char(' ') + initial + QLatin1Char('.'));
}

db::RowState stateOf(const Recordset& row) {
    static constexpr std::array columns{"PatientId", "PatientName", "Minutes", "Providers", "Days",  "FromTime",
                                        "ToTime",    "ValidUntil",  "Note",    "nkeyid",    "Closed"};
    return {row, columns};
}

int numberIn(const Recordset& row, const char* column) {
    return static_cast<int>(row[column].integer());
}

WaitRow rowOf(const Recordset& row) {
    WaitRow made;
    made.id = numberIn(row, "WaitId");
    made.patientGone = row["id"].text().isEmpty();
    made.patientName = made.patientGone ? OneLine(row["PatientName"].text()) : shownName(row);
    made.entry.patientId = row["PatientId"].text();
    made.entry.patientActive = !made.patientGone && row["archive"].integer() == 0;
    made.entry.minutes = numberIn(row, "Minutes");
    made.entry.providers = row["Providers"].text().split(u'|', Qt::SkipEmptyParts);
    made.entry.days = numberIn(row, "Days");
    made.entry.times = {numberIn(row, "FromTime"), numberIn(row, "ToTime")};
    made.entry.until = row["ValidUntil"].date();
    made.entry.closed = row["Closed"].boolean();
    made.note = row["Note"].text();
    made.since = row["createddate"].dateTime();
    made.sinceBy = row["createduid"].text();
    made.loaded = stateOf(row);
    return made;
}

bool mayShow(const WaitRow& row) {
    return Session().AllProviders || row.entry.providers.isEmpty() ||
           row.entry.providers.contains(Session().ProviderId, Qt::CaseInsensitive);
}

QString rowStatement(int id) {
    return Sql("Select * from WaitList Where WaitId = {}", id);
}

QHash<QString, bool>& databasesWithList() {
    static QHash<QString, bool> known;
    return known;
}

void write(Recordset& row, const WaitRow& wanted) {
    row.Set("PatientId", wanted.entry.patientId);
    row.Set("PatientName", wanted.patientName);
    row.Set("Minutes", wanted.entry.minutes);
    row.Set("Providers", wanted.entry.providers.join(u'|'));
    row.Set("Days", wanted.entry.days);
    row.Set("FromTime", wanted.entry.times.start);
    row.Set("ToTime", wanted.entry.times.end);
    row.Set("ValidUntil", wanted.entry.until.isValid() ? db::Value(wanted.entry.until) : db::Value());
    row.Set("Note", wanted.note);
}

void addRow(const WaitRow& wanted) {
    Recordset row(rowStatement(0), Session().Connection, db::Lock::Optimistic);
    row.AddNew();
    write(row, wanted);
    row.Set("Closed", 0);
    row.Set("createddate", Now());
    row.Set("createduid", Session().UID);
    row.Update();
}

}  // namespace

bool HasWaitList() {
    QHash<QString, bool>& known = databasesWithList();
    const QString& database = Session().ConnectionString;
    if (!database.isEmpty() && known.value(database))
        return true;
    return known[database] = HasTable(Session().Connection, QStringLiteral("WaitList"));
}

void ForgetWaitList() {
    databasesWithList().clear();
}

QString NoWaitListText() {
    return QStringLiteral(
        "This practice's database has no table for the wait list yet. The administrator adds it with \"svscheduler-admin upgrade\".");
}

QString OpenWaitRowsStatement() {
    return QStringLiteral(
        "Select WaitList.*, id, last_name, first_name, middle_init, archive From WaitList Left Join patient_info On WaitList.PatientId = patient_info.id Where Closed = 0 Order by WaitList.createddate, WaitId");
}

std::vector<WaitRow> OpenWaitRows() {
    std::vector<WaitRow> rows;
    for (Recordset row(OpenWaitRowsStatement(), Session().Connection); !row.Eof(); row.MoveNext())
        if (WaitRow made = rowOf(row); mayShow(made))
            rows.push_back(std::move(made));
    return rows;
}

std::optional<WaitRow> WaitRowOf(int id) {
    const Recordset row(
        Sql("Select WaitList.*, id, last_name, first_name, middle_init, archive From WaitList Left Join patient_info On WaitList.PatientId = patient_info.id Where WaitId = {}",
            id),
        Session().Connection);
    return row.Eof() ? std::nullopt : std::optional(rowOf(row));
}

WriteOutcome SaveWaitRow(const WaitRow& wanted) {
    return AttemptWrite([&](WriteOutcome& outcome) {
        outcome.step = WriteStep::WaitList;
        if (wanted.id == 0)
            return addRow(wanted);
        Recordset row(rowStatement(wanted.id), Session().Connection, db::Lock::Optimistic);
        if (row.Eof() || row["Closed"].boolean()) {
            outcome.end = WriteOutcome::End::Gone;
            return;
        }
        db::RequireUnchanged(wanted.loaded, stateOf(row));
        write(row, wanted);
        row.Update();
    });
}

WriteOutcome CloseWaitRow(int id) {
    return AttemptWrite([&](WriteOutcome& outcome) {
        outcome.step = WriteStep::WaitList;
        if (Session().Connection.Execute(Sql("Update WaitList Set Closed = 1 Where WaitId = {} And Closed = 0", id)) ==
            0)
            outcome.end = WriteOutcome::End::Gone;
    });
}

void CloseBookedWaitRow(int id, int key) {
    const QString statement =
        Sql("Update WaitList Set Closed = 1, nkeyid = {} Where WaitId = {} And Closed = 0", key, id);
    if (Session().Connection.Execute(statement) == 0)
        throw db::DatabaseError(
            db::RowChanged,
            QStringLiteral("Another user has booked or closed this entry of the wait list in the meantime."),
            statement);
}

QString WaitLengthText(int minutes) {
    return minutes == 1 ? QStringLiteral("1 minute") : QStringLiteral("%1 minutes").arg(minutes);
}

QString WaitDaysText(int days) {
    if ((days & EveryDay) == EveryDay)
        return QStringLiteral("any");
    QStringList names;
    for (int day = 0; day < DaysOfWeek; ++day)
        if ((days & (1 << day)) != 0)
            names << QLocale::c().dayName(day == 0 ? DaysOfWeek : day, QLocale::ShortFormat);
    return names.join(QStringLiteral(", "));
}

QString WaitTimesText(const MinuteRange& times) {
    if (times.start <= 0 && times.end >= MinutesPerDay)
        return QStringLiteral("any");
    const bool military = Session().MilitaryTime;
    if (times.start <= 0)
        return QStringLiteral("until %1").arg(MinutesToTimeText(times.end, military));
    if (times.end >= MinutesPerDay)
        return QStringLiteral("from %1").arg(MinutesToTimeText(times.start, military));
    return QStringLiteral("%1 - %2").arg(MinutesToTimeText(times.start, military),
                                         MinutesToTimeText(times.end, military));
}
