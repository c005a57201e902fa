#include "companion/companionwrites.h"

#include <optional>

#include "companion/companionappointment.h"
#include "companion/companiontime.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/busypointer.h"
#include "session/session.h"

using db::Connection;
using db::Recordset;
using db::Sql;

namespace {

template <typename Write>
CompanionOutcome writeInCompanion(Write&& write) {
    const BusyPointer busy;
    return AttemptWrite<CompanionOutcome>([&](CompanionOutcome& outcome) {
        Connection companion;
        companion.Open(Session().FHConnectionString);
        db::InTransaction(companion, [&] { write(companion, outcome); });
    });
}

// The row is held, so that nobody charges or moves it between this look and the write.
QString movedRowStatement(int CtrnId) {
    return Sql(
        "Select CtrnStatus, RecurTranId, CtrnDate, CtrnTime, CtrnDuration, ProvId, ProvIdAdditional from ClientTransactions With (UpdLock) Where CtrnId = {}",
        CtrnId);
}

CompanionHitch hitchOf(const Recordset& row, const CompanionPlace& from) {
    if (!IsScheduled(row))
        return CompanionHitch::Charged;
    if (row["RecurTranId"].integer() > 0)
        return CompanionHitch::Recurring;
    return row["CtrnDate"].date() == from.day ? CompanionHitch::None : CompanionHitch::OnOtherDay;
}

/// Whether the row has the time and the provider that the user saw.
bool standsAt(const Recordset& row, const CompanionPlace& place) {
    const bool isOfProvider =
        row["ProvId"].integer() == place.ProvId || row["ProvIdAdditional"].integer() == place.ProvId;
    return isOfProvider && CompanionMinutes(row["CtrnTime"]) == place.start &&
           row["CtrnDuration"].integer() == place.end - place.start;
}

void writePlace(Connection& companion, int CtrnId, const CompanionPlace& to) {
    companion.Execute(Sql(
        "Update ClientTransactions Set CtrnTime = '{}', provid = {}, CTRNDuration = {}, LastModifiedDate = '{}', UserIdLastModified = '{}' Where CtrnId = {}",
        CompanionTimeText(to.day, to.start), to.ProvId, to.end - to.start, CompanionNowText(), Session().FHProviderId,
        CtrnId));
}

void writeDay(Connection& companion, int CtrnId, QDate day) {
    companion.Execute(Sql("Update ClientTransactions Set CtrnDate = '{}' Where CtrnId = {}", day, CtrnId));
}

// Of two desks that take an attendee away at the same moment, the second waits here and then sees what is left.
QString heldEventStatement(int CEveId) {
    return Sql("Select RecrId, CEveAllProvidersInd from CalendarEvents With (UpdLock) Where ceveid = {}", CEveId);
}

void removeEvent(Connection& companion, int CEveId) {
    companion.Execute(Sql("Delete from CalendarEvents where ceveid = {}", CEveId));
    // The row of the attendee goes along, as when an event is deleted in its form.
    companion.Execute(Sql("Delete from CalendarProviderEvents Where ceveID = {}", CEveId));
}

void removeFrom(Connection& companion, int CEveId, int ProvId, CompanionOutcome& outcome) {
    const Recordset attending(
        Sql("Select * from CalendarEvents Inner Join CalendarProviderEvents On CalendarEvents.Ceveid = CalendarProviderEvents.ceveid Where CalendarEvents.ceveid = {}",
            CEveId),
        companion);
    if (attending.Eof()) {
        outcome.hitch = CompanionHitch::NoAttendees;
    } else if (attending.RecordCount() > 1) {
        if (companion.Execute(
                Sql("Delete from CalendarProviderEvents where ceveid = {} AND provid = {}", CEveId, ProvId)) == 0)
            outcome.hitch = CompanionHitch::NotAttending;
    } else if (outcome.allProviders || attending["provid"].integer() == ProvId) {
        removeEvent(companion, CEveId);
        outcome.allProviders = false;
    } else {
        outcome.hitch = CompanionHitch::NotAttending;
    }
}

}  // namespace

CompanionOutcome MoveFHAppointment(int CtrnId, const CompanionPlace& from, const CompanionPlace& to) {
    return writeInCompanion([&](Connection& companion, CompanionOutcome& outcome) {
        const Recordset row(movedRowStatement(CtrnId), companion);
        if (row.Eof()) {
            outcome.end = WriteOutcome::End::Gone;
            return;
        }
        outcome.hitch = hitchOf(row, from);
        if (outcome.hitch != CompanionHitch::None)
            return;
        outcome.replaced = !standsAt(row, from);
        outcome.newProvider = to.ProvId == from.ProvId && row["ProvId"].integer() != to.ProvId;
        writePlace(companion, CtrnId, to);
        if (to.day != from.day)
            writeDay(companion, CtrnId, to.day);
    });
}

CompanionOutcome DeleteFHAppointment(int CtrnId) {
    return writeInCompanion([&](Connection& companion, CompanionOutcome& outcome) {
        if (companion.Execute(Sql("Delete from ClientTransactions Where CtrnStatus = 'S' and ctrnID = {}", CtrnId)) > 0)
            return;
        const Recordset row(Sql("Select CtrnStatus from ClientTransactions Where ctrnID = {}", CtrnId), companion);
        if (row.Eof())
            outcome.end = WriteOutcome::End::Gone;
        else
            outcome.hitch = CompanionHitch::Charged;
    });
}

CompanionOutcome DeleteFHEvent(int CEveId, int ProvId) {
    return writeInCompanion([&](Connection& companion, CompanionOutcome& outcome) {
        const Recordset event(heldEventStatement(CEveId), companion);
        if (event.Eof()) {
            outcome.end = WriteOutcome::End::Gone;
            return;
        }
        outcome.allProviders = event["CEveAllProvidersInd"].integer() == 1;
        if (event["RecrId"].integer() > 0)
            outcome.hitch = CompanionHitch::Recurring;
        else
            removeFrom(companion, CEveId, ProvId, outcome);
    });
}
