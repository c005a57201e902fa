#include "appointments/serieswork.h"

#include <algorithm>
#include <iterator>
#include <QCoreApplication>
#include <QSet>

#include "appointments/conflicts.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "platform/controls/noticebar.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;
using db::SqlDate;

namespace {

QString words(const char* text) {
    return QCoreApplication::translate("SeriesWork", text);
}

QString roomName(int room) {
    if (room < 1)
        return {};
    const Recordset name(Sql("Select room from rooms Where roomid = {}", room), Session().Connection);
    return name.Eof() ? QString() : name[0].text();
}

SeriesOutcome bookDates(Recordset& rows, const SeriesCopy& copy, const SeriesWork& work,
                        const std::vector<QDate>& dates) {
    SeriesOutcome outcome{0, static_cast<int>(work.dates.size()), {}};
    try {
        JoinSeries(rows, work);
        const QString room = roomName(work.room);
        for (const QDate date : dates) {
            if (outcome.failure = AddCopy(rows, copy, work, room, date).failure; outcome.failure)
                break;
            ++outcome.done;
        }
    } catch (const db::DatabaseError& error) {
        outcome.failure = error;
    }
    return outcome;
}

// As far as the rows themselves tell.
QSet<QDate> bookedDates(const SeriesWork& work) {
    QSet<QDate> dates;
    for (Recordset rows(
             Sql("Select dapptdate from appointments Where repeating = 1 AND repeating_ref = {} AND nkeyid > {}",
                 work.reference, work.lastKey),
             Session().Connection);
         !rows.Eof(); rows.MoveNext())
        dates << rows[0].date();
    return dates;
}

std::vector<QDate> datesLeft(const SeriesWork& work) {
    const QSet<QDate> booked = bookedDates(work);
    std::vector<QDate> left;
    std::copy_if(work.dates.begin(), work.dates.end(), std::back_inserter(left),
                 [&](QDate date) { return !booked.contains(date); });
    return left;
}

std::vector<SeriesRow> rowsLeft(const SeriesWork& work) {
    QStringList keys{QStringLiteral("0")};
    for (const int key : work.keys)
        keys << QString::number(key);
    std::vector<SeriesRow> left;
    for (Recordset rows(Sql("Select * from appointments Where nkeyid In ({})", db::Raw{keys.join(u',')}),
                        Session().Connection);
         !rows.Eof(); rows.MoveNext()) {
        const int start = static_cast<int>(rows["nStartTime"].integer());
        left.push_back({static_cast<int>(rows["nkeyid"].integer()),
                        {AuditDate(rows["dapptdate"].date()), MinutesToTimeText(start, Session().MilitaryTime),
                         rows["cappttext"].text()},
                        rows["Ncolor"].integer() == ncolor::Group});
    }
    return left;
}

SeriesOutcome progress(const SeriesWork& work) {
    if (work.kind == SeriesWork::Kind::Deletion) {
        const int planned = static_cast<int>(work.keys.size());
        return {planned - static_cast<int>(rowsLeft(work).size()), planned, {}};
    }
    const int planned = static_cast<int>(work.dates.size());
    return {planned - static_cast<int>(datesLeft(work).size()), planned, {}};
}

// The same question as when a series is written, and that of the room; both may have been booked in the meantime.
bool isWanted(const SeriesWork& work, QDate date) {
    const Recordset taken(
        Sql("Select * from appointments Where ClinicianId = '{}' AND dapptdate = '{}' AND (({} BETWEEN nstarttime AND nendtime) OR ({} BETWEEN nstarttime AND nendtime) OR (nstarttime BETWEEN {} AND {}))",
            work.schedule, SqlDate(date), work.start, work.end, work.start, work.end),
        Session().Connection);
    if (!taken.Eof() &&
        MsgBox(QStringLiteral("You have another appointment on %1 which conflicts with this one. Add anyway?")
                   .arg(ShortDateText(date)),
               YesNoBox, QStringLiteral("Appointment Conflict")) != Answer::Yes)
        return false;
    return work.room < 1 || !CheckRoomConflicts(0, date, work.start, work.end, work.room, 0);
}

std::vector<QDate> wantedOf(const SeriesWork& work, const std::vector<QDate>& dates) {
    std::vector<QDate> wanted;
    std::copy_if(dates.begin(), dates.end(), std::back_inserter(wanted),
                 [&](QDate date) { return isWanted(work, date); });
    return wanted;
}

SeriesCopy copyOf(const Recordset& row) {
    const QString note = row["CapptNote"].text();
    return {row["cappttext"].text(),
            row["CLOCATION"].text(),
            GetPipeField(note, 1) + QLatin1Char('|') + GetPipeField(note, 2),
            row["patientid"].text(),
            row["PatientAcct"].text(),
            static_cast<int>(row["ncolor"].integer()),
            row["appttype"].value(),
            row["appointment_type"].value()};
}

SeriesOutcome bookRest(SeriesMark& mark) {
    const SeriesWork& work = mark.Work();
    Recordset rows(Sql("Select * from appointments Where nkeyid = {}", work.source), Session().Connection,
                   Lock::Optimistic);
    const std::vector<QDate> left = datesLeft(work);
    const int booked = static_cast<int>(work.dates.size() - left.size());
    if (rows.Eof())
        throw db::DatabaseError(0, words("The appointment that is repeated is no longer there."));
    const SeriesCopy copy = copyOf(rows);
    const std::vector<QDate> wanted = wantedOf(work, left);
    const BusyPointer busy;
    SeriesOutcome outcome = bookDates(rows, copy, work, wanted);
    outcome.done += booked;
    return outcome;
}

SeriesOutcome deleteRest(SeriesMark& mark) {
    const std::vector<SeriesRow> left = rowsLeft(mark.Work());
    SeriesOutcome outcome = DeleteSeries(left, mark);
    outcome.done += static_cast<int>(mark.Work().keys.size() - left.size());
    return outcome;
}

QString sentence(const SeriesWork& work, const SeriesOutcome& outcome, bool cutOff) {
    if (work.kind == SeriesWork::Kind::Deletion)
        return words(cutOff ? "Deleting a series was cut off: %1 of %2 appointments are deleted."
                            : "%1 of %2 appointments of the series are deleted.")
            .arg(outcome.done)
            .arg(outcome.planned);
    return words(cutOff ? "The series of %1 at %2 was cut off: %3 of %4 appointments are booked."
                        : "The series of %1 at %2: %3 of %4 appointments are booked.")
        .arg(ShortDateText(work.date), MinutesToTimeText(work.start, Session().MilitaryTime))
        .arg(outcome.done)
        .arg(outcome.planned);
}

void doRest(const std::shared_ptr<SeriesMark>& mark, const std::function<void()>& rowsChanged) {
    const bool books = mark->Work().kind == SeriesWork::Kind::Booking;
    SeriesOutcome outcome;
    try {
        outcome = books ? bookRest(*mark) : deleteRest(*mark);
    } catch (const db::DatabaseError& error) {
        db::Ignoring([&] { outcome = progress(mark->Work()); });
        outcome.failure = error;
    }
    if (outcome.failure)
        TellError(books ? QStringLiteral("Error adding appointment. ") : QStringLiteral("Error deleting appointment. "),
                  *outcome.failure);
    if (rowsChanged)
        rowsChanged();
    if (outcome.failure) {
        OfferRest(mark, outcome, rowsChanged);
        return;
    }
    mark->Remove();
    ShowNotice({sentence(mark->Work(), outcome, false)});
}

}  // namespace

SeriesOutcome BookSeries(Recordset& rows, const SeriesCopy& copy, SeriesMark& mark) {
    SeriesOutcome outcome = bookDates(rows, copy, mark.Work(), mark.Work().dates);
    if (!outcome.failure)
        mark.Remove();
    return outcome;
}

SeriesOutcome DeleteSeries(const std::vector<SeriesRow>& rows, SeriesMark& mark) {
    SeriesOutcome outcome{0, static_cast<int>(mark.Work().keys.size()), {}};
    const BusyPointer busy;
    for (const SeriesRow& row : rows) {
        if (const WriteOutcome deleted = DeleteOfSeries(row); deleted.IsDone())
            ++outcome.done;
        else
            outcome.failure = deleted.failure;
    }
    if (!outcome.failure)
        mark.Remove();
    return outcome;
}

void OfferRest(const std::shared_ptr<SeriesMark>& mark, const SeriesOutcome& outcome,
               const std::function<void()>& rowsChanged) {
    const bool books = mark->Work().kind == SeriesWork::Kind::Booking;
    Notice notice;
    notice.text = sentence(mark->Work(), outcome, true);
    notice.kind = Notice::Kind::Caution;
    notice.actions = {{books ? words("Book the rest") : words("Delete the rest"),
                       [mark, rowsChanged] { doRest(mark, rowsChanged); }}};
    notice.dismissed = [mark] { mark->Remove(); };
    ShowNotice(notice);
}

void OfferCutOffSeries(const std::function<void()>& rowsChanged) {
    for (const std::shared_ptr<SeriesMark>& mark : SeriesMark::Left()) {
        try {
            const SeriesOutcome outcome = progress(mark->Work());
            if (outcome.done == outcome.planned)
                mark->Remove();
            else
                OfferRest(mark, outcome, rowsChanged);
        } catch (const db::DatabaseError&) {
            // The mark stays for the next start.
        }
    }
}
