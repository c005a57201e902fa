#include <algorithm>

#include "appointments/frmrecurappt.h"
#include "appointments/seriesdates.h"
#include "appointments/serieswork.h"
#include "data/codes.h"
#include "data/pipefields.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

bool frmRecurAppt::SaveProviderApt(const std::vector<QDate>& dates, Companions companions) {
    const BusyPointer busy;
    Recordset rows;
    try {
        rows.Open(Sql("Select * from appointments Where nkeyid = {}", sourceKey()), Session().Connection,
                  Lock::Optimistic);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error opening database. "), error);
        closeUnsaved();
        return true;
    }
    if (rows.Eof()) {
        MsgBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
               ExclamationBox, QStringLiteral("Error"));
        return true;
    }
    // What is in the way and could not be read would be booked into unasked.
    if (const std::optional<db::DatabaseError> failure = seriesdates->Read()) {
        TellError(QStringLiteral("Error checking for conflicts. Nothing has been saved. "), *failure);
        return false;
    }
    try {
        book(rows, planFor(rows, dates, companions));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error adding appointment. "), error);
        closeUnsaved();
    }
    return true;
}

// All that is asked is asked before the first row is written.
SeriesWork frmRecurAppt::planFor(const Recordset& rows, const std::vector<QDate>& dates, Companions companions) const {
    SeriesWork work;
    work.date = source_.ItemDay;
    work.start = source_.ItemStart;
    work.end = source_.ItemEnd;
    work.source = work.reference = sourceKey();
    // A series grows from its first member.
    if (rows["repeating"].integer() == 1 && rows["repeating_ref"].integer() > 0)
        work.reference = static_cast<int>(rows["repeating_ref"].integer());
    work.schedule = provider_.id;
    work.provider = companions == Companions::Attendees ? QString::fromLatin1(EventClinicianId) : provider_.id;
    work.company = companions;
    const Room room = roomForCopies(work.reference);
    work.room = room.text.isEmpty() ? 0 : room.id;
    for (const QDate date : dates)
        if (!leavesOut(date, room))
            work.dates.push_back(date);
    const Recordset last(
        Sql("Select Max(nkeyid) from appointments Where repeating = 1 AND repeating_ref = {}", work.reference),
        Session().Connection);
    work.lastKey = std::max(last[0].integer(), qint64{sourceKey()});
    return work;
}

void frmRecurAppt::book(Recordset& rows, const SeriesWork& work) {
    const SeriesCopy copy{source_.ItemText, source_.ItemLocation,
                          GetPipeField(source_.ItemNote, 1) + QLatin1Char('|') + GetPipeField(source_.ItemNote, 2),
                          GetPipeField(source_.ItemNote, 3), GetPipeField(source_.ItemNote, 4),
                          // The row's own code: what the calendar paints for a type slot is never stored.
                          static_cast<int>(rows["ncolor"].integer()), rows["appttype"].value(),
                          rows["appointment_type"].value()};
    const std::shared_ptr<SeriesMark> mark = SeriesMark::Begin(work);
    const SeriesOutcome outcome = BookSeries(rows, copy, *mark);
    if (!outcome.failure)
        return tellMade(outcome.done);
    TellError(QStringLiteral("Error adding appointment. "), *outcome.failure);
    OfferRest(mark, outcome, rowsChanged_);
}
