#include "companion/companionevent.h"

#include <algorithm>

#include "companion/companiontime.h"
#include "platform/database/recordset.h"
#include "platform/database/rowmerge.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

constexpr int On = 1;
constexpr int NoTime = -1;
constexpr qint64 MinuteSeconds = 60;

QString rowStatement(int ceveid) {
    return Sql("Select * from CalendarEvents Where ceveid = {}", ceveid);
}

CompanionEvent eventOf(const Recordset& row) {
    CompanionEvent event;
    event.name = row["CEveName"].text();
    event.date = row["CEveDate"].date();
    event.start = CompanionMinutes(row["CEveTime"]).value_or(NoTime);
    event.duration = static_cast<int>(row["CEveDuration"].integer());
    event.allDay = row["CEveAllDayInd"].integer() == On;
    event.allProviders = row["CEveAllProvidersInd"].integer() == On;
    event.recurs = row["RecrId"].integer() > 0;
    return event;
}

// The values are compared as the editor shows them, since the row may hold the same in another form.
db::RowState stateOf(const CompanionEvent& event) {
    return {
        {QStringLiteral("CeveName"), event.name},        {QStringLiteral("CeveDate"), event.date},
        {QStringLiteral("CeveTime"), event.start},       {QStringLiteral("Ceveduration"), event.duration},
        {QStringLiteral("Cevealldayind"), event.allDay}, {QStringLiteral("Ceveallprovidersind"), event.allProviders}};
}

CompanionEvent withState(CompanionEvent event, const db::RowState& state) {
    event.name = state.Find(QStringLiteral("CeveName"))->text();
    event.date = state.Find(QStringLiteral("CeveDate"))->date();
    event.start = static_cast<int>(state.Find(QStringLiteral("CeveTime"))->integer());
    event.duration = static_cast<int>(state.Find(QStringLiteral("Ceveduration"))->integer());
    event.allDay = state.Find(QStringLiteral("Cevealldayind"))->boolean();
    event.allProviders = state.Find(QStringLiteral("Ceveallprovidersind"))->boolean();
    return event;
}

// Whom the user added and took away, applied to those who attend now.
QList<int> mergedAttendees(const QList<int>& before, const QList<int>& wanted, const QList<int>& now) {
    QList<int> merged = wanted;
    for (const int provider : now)
        if (!before.contains(provider) && !merged.contains(provider))
            merged << provider;
    merged.removeIf([&](int provider) { return before.contains(provider) && !now.contains(provider); });
    if (merged.isEmpty())
        throw db::RowClash({QStringLiteral("ProvId")});
    return merged;
}

bool isMoved(const CompanionEvent& from, const CompanionEvent& to) {
    return from.date != to.date || from.start != to.start;
}

/// The event as it stands now, with what the user changed; its attendees are not merged.
CompanionEvent merged(const CompanionEvent& loaded, const CompanionEvent& wanted, const CompanionEvent& now) {
    db::RowState state = stateOf(now);
    const db::RowMerge merge = db::Merge(stateOf(loaded), stateOf(wanted), state);
    if (!merge.clashes.isEmpty())
        throw db::RowClash(merge.clashes);
    // A day of the one and a time of the other would be a moment that nobody chose.
    if (isMoved(loaded, wanted) && isMoved(loaded, now) && isMoved(wanted, now))
        throw db::RowClash({QStringLiteral("CeveDate"), QStringLiteral("CeveTime")});
    for (const auto& [column, value] : merge.changes)
        state.Set(column, value);
    return withState(now, state);
}

/// The event as it was loaded, with the columns of a clash as they are now.
CompanionEvent withClash(CompanionEvent loaded, const QStringList& columns, const CompanionEvent& now) {
    db::RowState state = stateOf(loaded);
    const db::RowState theirs = stateOf(now);
    for (const QString& column : columns)
        if (const db::Value* value = theirs.Find(column))
            state.Set(column, *value);
        else
            loaded.attendees = now.attendees;
    return withState(std::move(loaded), state);
}

bool isSame(const CompanionEvent& left, const CompanionEvent& right) {
    const auto inOrder = [](QList<int> attendees) {
        std::sort(attendees.begin(), attendees.end());
        return attendees;
    };
    return stateOf(left) == stateOf(right) && inOrder(left.attendees) == inOrder(right.attendees);
}

QList<int> attendeesOf(db::Connection& companion, int ceveid) {
    QList<int> attendees;
    for (Recordset rows(Sql("Select ProvId from CalendarProviderEvents Where ceveid = {} Order by ProvId", ceveid),
                        companion);
         !rows.Eof(); rows.MoveNext())
        attendees << static_cast<int>(rows["ProvId"].integer());
    return attendees;
}

void writeFields(Recordset& row, const CompanionEvent& event) {
    row.Set("CeveName", event.name);
    row.Set("CeveDate", event.date);
    // The date and the start in one, as a moment: a text of it would be read in the language of the server's login.
    row.Set("CeveTime", QDateTime(event.date, QTime(0, 0), Qt::UTC).addSecs(event.start * MinuteSeconds));
    row.Set("Ceveduration", event.duration);
    row.Set("Cevealldayind", event.allDay ? 1 : 0);
    row.Set("Ceveallprovidersind", event.allProviders ? 1 : 0);
    row.Set("Cevereminderind", 0);
    row.Set("LastModifiedDate", Now());
    row.Set("UserIDLastModified", Session().FHProviderId);
}

void insertAttendees(db::Connection& companion, int ceveid, const QList<int>& attendees) {
    for (const int provider : attendees)
        companion.Execute(Sql("Insert Into CalendarProviderEvents (ceveID, provid) Values({}, {})", ceveid, provider));
}

void writeAttendees(db::Connection& companion, int ceveid, const QList<int>& attendees) {
    companion.Execute(Sql("Delete from CalendarProviderEvents Where ceveID = {}", ceveid));
    insertAttendees(companion, ceveid, attendees);
}

/// Runs a write on a connection of its own, in one transaction.
template <typename Write>
CompanionEventOutcome attempt(Write&& write) {
    return AttemptWrite<CompanionEventOutcome>([&](CompanionEventOutcome& outcome) {
        db::Connection companion;
        companion.Open(Session().FHConnectionString);
        db::InTransaction(companion, [&] { write(companion, outcome); });
    });
}

// Whether the row is there and no series; the outcome tells what it is otherwise.
bool isSingle(const Recordset& row, CompanionEventOutcome& outcome) {
    if (row.Eof())
        outcome.end = WriteOutcome::End::Gone;
    else if (eventOf(row).recurs) {
        outcome.end = WriteOutcome::End::Failed;
        outcome.recurs = true;
    }
    return outcome.IsDone();
}

}  // namespace

QString CompanionEventStatement(int ceveid) {
    return Sql(
        "Select * from CalendarEvents Inner Join CalendarProviderEvents On CalendarEvents.Ceveid = CalendarProviderEvents.ceveid Where CalendarEvents.ceveid = {}",
        ceveid);
}

std::optional<CompanionEvent> ReadCompanionEvent(db::Connection& companion, int ceveid) {
    Recordset rows(CompanionEventStatement(ceveid), companion);
    if (rows.Eof()) {
        const Recordset row(rowStatement(ceveid), companion);
        return row.Eof() ? std::nullopt : std::optional(eventOf(row));
    }
    CompanionEvent event = eventOf(rows);
    for (; !rows.Eof(); rows.MoveNext())
        event.attendees << static_cast<int>(rows["provid"].integer());
    return event;
}

CompanionEventOutcome AddCompanionEvent(const CompanionEvent& event) {
    return attempt([&](db::Connection& companion, CompanionEventOutcome& outcome) {
        Recordset row(QStringLiteral("Select * from CalendarEvents Where 0=1"), companion, Lock::Optimistic);
        row.AddNew();
        writeFields(row, event);
        row.Set("CeveEndDate", event.date);
        row.Set("Cevereminderleadminutes", 0);
        row.Set("DateCreated", Now());
        row.Set("UserIDCreated", Session().FHProviderId);
        row.Update();
        outcome.ceveid = static_cast<int>(row["ceveid"].integer());
        insertAttendees(companion, outcome.ceveid, event.attendees);
    });
}

CompanionEventOutcome UpdateCompanionEvent(int ceveid, const CompanionEvent& loaded, const CompanionEvent& wanted) {
    return attempt([&](db::Connection& companion, CompanionEventOutcome& outcome) {
        outcome.ceveid = ceveid;
        Recordset row(rowStatement(ceveid), companion, Lock::Optimistic);
        if (!isSingle(row, outcome))
            return;
        CompanionEvent now = eventOf(row);
        try {
            writeFields(row, merged(loaded, wanted, now));
            row.Update();
            // The row is held from here on, so that no other desk adds an attendee unseen.
            now.attendees = attendeesOf(companion, ceveid);
            outcome.keptTheirs = !isSame(loaded, now);
            writeAttendees(companion, ceveid, mergedAttendees(loaded.attendees, wanted.attendees, now.attendees));
        } catch (const db::RowClash& clash) {
            outcome.clashing = withClash(loaded, clash.columns, now);
            throw;
        }
    });
}

CompanionEventOutcome DeleteCompanionEvent(int ceveid, const CompanionEvent& loaded) {
    CompanionEventOutcome outcome = attempt([&](db::Connection& companion, CompanionEventOutcome& deleting) {
        deleting.ceveid = ceveid;
        const Recordset row(rowStatement(ceveid), companion);
        if (!isSingle(row, deleting))
            return;
        CompanionEvent now = eventOf(row);
        companion.Execute(Sql("Delete from CalendarEvents Where ceveid = {}", ceveid));
        now.attendees = attendeesOf(companion, ceveid);
        if (!isSame(loaded, now))
            throw db::RowChangedError();
        companion.Execute(Sql("Delete from CalendarProviderEvents Where ceveID = {}", ceveid));
    });
    if (outcome.end == WriteOutcome::End::Gone)
        outcome.end = WriteOutcome::End::Done;
    return outcome;
}
