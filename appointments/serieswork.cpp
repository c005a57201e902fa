#include "appointments/serieswork.h"

#include <algorithm>
#include <iterator>
#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include "appointments/conflicts.h"
#include "appointments/restobstacles.h"
#include "appointments/seriesrest.h"
#include "appointments/seriesstep.h"
#include "appointments/seriestexts.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "platform/controls/noticebar.h"
#include "platform/database/sql.h"
#include "platform/database/waiting.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/rights.h"
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
    SeriesOutcome outcome{.planned = static_cast<int>(work.dates.size()), .failure = {}};
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

bool deletes(const SeriesWork& work) {
    return work.kind == SeriesWork::Kind::Deletion ||
           (work.kind == SeriesWork::Kind::Rest && !work.steps.empty() && !work.steps.front().after);
}

QHash<int, RestRow> rowsOf(const std::vector<SeriesStep>& steps) {
    std::vector<int> keys(steps.size());
    std::ranges::transform(steps, keys.begin(), &SeriesStep::key);
    QHash<int, RestRow> rows;
    for (const RestRow& row : ReadRestRows(keys))
        rows.insert(row.key, row);
    return rows;
}

bool isPast(const SeriesStep& step) {
    const QDate today = Today();
    return step.before.date < today || (step.after && step.after->date < today);
}

/// What the rows themselves tell of work that was cut off. A row that stands neither as before nor as after its step is
/// another desk's by now.
struct StepsLeft {
    std::vector<RestPlan> waiting;
    SeriesOutcome taken;
};

StepsLeft stepsLeft(const SeriesWork& work) {
    const QHash<int, RestRow> rows = rowsOf(work.steps);
    StepsLeft left;
    left.taken.planned = static_cast<int>(work.steps.size());
    for (const SeriesStep& step : work.steps) {
        const auto row = rows.constFind(step.key);
        const bool gone = row == rows.cend();
        if (!gone && row->place == step.before && isPast(step))
            ++left.taken.past;
        else if (!gone && row->place == step.before)
            left.waiting.push_back({*row, Stay::No, step.after});
        else if (gone ? !step.after : step.after && row->place == *step.after)
            ++left.taken.done;
        else
            ++left.taken.passed;
    }
    return left;
}

void takeSteps(const std::vector<SeriesStep>& steps, SeriesOutcome& outcome) {
    for (const SeriesStep& step : steps) {
        const WriteOutcome taken = TakeStep(step);
        if (taken.IsDone()) {
            ++outcome.done;
        } else if (!taken.failure || taken.failure->number == db::RowChanged) {
            ++outcome.passed;
        } else {
            outcome.failure = taken.failure;
            if (db::IsUnanswered(*taken.failure))
                return;
        }
    }
}

SeriesOutcome progress(const SeriesWork& work) {
    switch (work.kind) {
        case SeriesWork::Kind::Deletion: {
            const int planned = static_cast<int>(work.keys.size());
            return {.done = planned - static_cast<int>(rowsLeft(work).size()), .planned = planned, .failure = {}};
        }
        case SeriesWork::Kind::Rest:
            return stepsLeft(work).taken;
        case SeriesWork::Kind::Booking:
            break;
    }
    const int planned = static_cast<int>(work.dates.size());
    return {.done = planned - static_cast<int>(datesLeft(work).size()), .planned = planned, .failure = {}};
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

bool isWanted(const RestPlan& plan, const QStringList& inTheWay) {
    return inTheWay.isEmpty() ||
           MsgBox(
               words("Something is booked in the way of the appointment on %1 at %2:\n%3\nChange it anyway?")
                   .arg(WeekdayAndDate(plan.after->date), MinutesToTimeText(plan.after->start, Session().MilitaryTime),
                        inTheWay.join(QLatin1Char('\n'))),
               YesNoBox, QStringLiteral("Appointment Conflict")) == Answer::Yes;
}

// Something may have been booked by others in the meantime. An appointment that stays does so where the next ones are
// asked about.
std::vector<SeriesStep> wantedOf(const std::vector<RestPlan>& plans) {
    RestObstacles obstacles;
    obstacles.Read(plans);
    std::vector<bool> ticked(plans.size(), true);
    std::vector<SeriesStep> wanted;
    for (std::size_t place = 0; place < plans.size(); ++place) {
        const RestPlan& plan = plans[place];
        ticked[place] = isWanted(plan, obstacles.InTheWay(place, [&](std::size_t other) { return ticked[other]; }));
        if (ticked[place])
            wanted.push_back({plan.row.key, plan.row.place, plan.after});
    }
    return wanted;
}

SeriesOutcome changeRest(SeriesMark& mark) {
    StepsLeft left = stepsLeft(mark.Work());
    const std::vector<SeriesStep> wanted = wantedOf(left.waiting);
    const BusyPointer busy;
    takeSteps(wanted, left.taken);
    return left.taken;
}

QString passedText(const SeriesOutcome& outcome) {
    QString text;
    if (outcome.passed > 0)
        text +=
            words(outcome.passed == 1 ? " %1 was left as it is, because another desk has changed or deleted it."
                                      : " %1 were left as they are, because another desk has changed or deleted them.")
                .arg(outcome.passed);
    if (outcome.past > 0)
        text += words(outcome.past == 1 ? " %1 was left as it is, because it is past by now."
                                        : " %1 were left as they are, because they are past by now.")
                    .arg(outcome.past);
    return text;
}

QString sentence(const SeriesWork& work, const SeriesOutcome& outcome, bool cutOff) {
    if (work.kind == SeriesWork::Kind::Rest && !deletes(work))
        return words(cutOff ? "Changing a series was cut off: %1 of %2 appointments are changed."
                            : "%1 of %2 appointments of the series are changed.")
                   .arg(outcome.done)
                   .arg(outcome.planned) +
               passedText(outcome);
    if (deletes(work))
        return words(cutOff ? "Deleting a series was cut off: %1 of %2 appointments are deleted."
                            : "%1 of %2 appointments of the series are deleted.")
                   .arg(outcome.done)
                   .arg(outcome.planned) +
               passedText(outcome);
    return words(cutOff ? "The series of %1 at %2 was cut off: %3 of %4 appointments are booked."
                        : "The series of %1 at %2: %3 of %4 appointments are booked.")
        .arg(ShortDateText(work.date), MinutesToTimeText(work.start, Session().MilitaryTime))
        .arg(outcome.done)
        .arg(outcome.planned);
}

QString restCommand(const SeriesWork& work) {
    if (deletes(work))
        return words("Delete the rest");
    return work.kind == SeriesWork::Kind::Rest ? words("Change the rest") : words("Book the rest");
}

SeriesOutcome restOf(SeriesMark& mark) {
    switch (mark.Work().kind) {
        case SeriesWork::Kind::Deletion:
            return deleteRest(mark);
        case SeriesWork::Kind::Rest:
            return changeRest(mark);
        case SeriesWork::Kind::Booking:
            break;
    }
    return bookRest(mark);
}

void doRest(const std::shared_ptr<SeriesMark>& mark, const std::function<void()>& rowsChanged) {
    SeriesOutcome outcome;
    try {
        outcome = restOf(*mark);
    } catch (const db::DatabaseError& error) {
        db::Ignoring([&] { outcome = progress(mark->Work()); });
        outcome.failure = error;
    }
    if (outcome.failure)
        TellError(SeriesTrouble(mark->Work()), *outcome.failure);
    if (rowsChanged)
        rowsChanged();
    if (outcome.failure) {
        OfferRest(mark, outcome, rowsChanged);
        return;
    }
    mark->Remove();
    ShowNotice({sentence(mark->Work(), outcome, false)});
}

bool mayDo(const SeriesWork& work) {
    return deletes(work) ? MayDelete() : MayWrite();
}

/// Ends cut-off work of which nothing waits any more.
void endCutOff(SeriesMark& mark, const SeriesOutcome& outcome) {
    mark.Remove();
    if (outcome.past > 0)
        ShowNotice({sentence(mark.Work(), outcome, true), Notice::Kind::Caution});
}

}  // namespace

SeriesOutcome BookSeries(Recordset& rows, const SeriesCopy& copy, SeriesMark& mark) {
    SeriesOutcome outcome = bookDates(rows, copy, mark.Work(), mark.Work().dates);
    if (!outcome.failure)
        mark.Remove();
    return outcome;
}

SeriesOutcome DeleteSeries(const std::vector<SeriesRow>& rows, SeriesMark& mark) {
    SeriesOutcome outcome{.planned = static_cast<int>(mark.Work().keys.size()), .failure = {}};
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

SeriesOutcome ChangeSeries(SeriesMark& mark) {
    SeriesOutcome outcome{.planned = static_cast<int>(mark.Work().steps.size()), .failure = {}};
    const BusyPointer busy;
    takeSteps(mark.Work().steps, outcome);
    if (!outcome.failure)
        mark.Remove();
    return outcome;
}

QString ChangedText(const SeriesWork& work, const SeriesOutcome& outcome) {
    return sentence(work, outcome, false);
}

QString SeriesTrouble(const SeriesWork& work) {
    if (deletes(work))
        return QStringLiteral("Error deleting appointment. ");
    return work.kind == SeriesWork::Kind::Rest ? QStringLiteral("Error saving appointment. ")
                                               : QStringLiteral("Error adding appointment. ");
}

void OfferRest(const std::shared_ptr<SeriesMark>& mark, const SeriesOutcome& outcome,
               const std::function<void()>& rowsChanged) {
    Notice notice;
    notice.text = sentence(mark->Work(), outcome, true);
    notice.kind = Notice::Kind::Caution;
    notice.actions = {{restCommand(mark->Work()), [mark, rowsChanged] { doRest(mark, rowsChanged); }}};
    notice.dismissed = [mark] { mark->Remove(); };
    ShowNotice(notice);
}

void OfferCutOffSeries(const std::function<void()>& rowsChanged) {
    for (const std::shared_ptr<SeriesMark>& mark : SeriesMark::Left()) {
        if (!mayDo(mark->Work()))
            continue;
        try {
            const SeriesOutcome outcome = progress(mark->Work());
            if (outcome.done + outcome.passed + outcome.past == outcome.planned)
                endCutOff(*mark, outcome);
            else
                OfferRest(mark, outcome, rowsChanged);
        } catch (const db::DatabaseError&) {
            // The mark stays for the next start.
        }
    }
}
