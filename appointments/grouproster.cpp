#include "appointments/grouproster.h"

#include <algorithm>
#include <QHash>
#include <QSet>
#include <tuple>

#include "data/codes.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "session/audit.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

using Member = GroupFields::Member;

QString idOf(const Recordset& row, const char* column) {
    return row[column].text().trimmed().toUpper();
}

QString idOf(const Member& member) {
    return member.patientId.trimmed().toUpper();
}

/// The attendance of all dates, by key and patient.
using Attendances = QHash<int, QHash<QString, bool>>;

Attendances attendances(int reference) {
    Attendances found;
    for (
        Recordset rows(
            Sql("Select AppointmentsGroup.nKeyId, AppointmentsGroup.PatientId, AppointmentsGroup.Kept from AppointmentsGroup Inner Join appointments On appointments.nkeyid = AppointmentsGroup.nKeyId Where appointments.repeating = 1 And appointments.repeating_ref = {}",
                reference),
            Session().Connection);
        !rows.Eof(); rows.MoveNext())
        found[static_cast<int>(rows["nKeyId"].integer())][idOf(rows, "PatientId")] |= rows["Kept"].integer() == 1;
    return found;
}

struct Time {
    QDate from;
    QDate until;  ///< Invalid where the member stays in the group.
};

QHash<QString, std::vector<Time>> timesInGroup(int group) {
    QHash<QString, std::vector<Time>> times;
    for (Recordset rows(Sql("Select PatientID, startDate, enddate from GroupMembers Where GroupID = {}", group),
                        Session().Connection);
         !rows.Eof(); rows.MoveNext())
        times[idOf(rows, "PatientID")].push_back({rows["startDate"].date(), rows["enddate"].date()});
    return times;
}

// Who was never a member is a guest, and comes on any date.
bool takesPart(const std::vector<Time>& times, QDate date) {
    return times.empty() || std::ranges::any_of(times, [date](const Time& time) {
               return time.from.isValid() && time.from <= date && (!time.until.isValid() || date <= time.until);
           });
}

Stay stayOf(const RestRow& row, const RosterChange& change, QDate today) {
    if (row.place.date < today)
        return Stay::Past;
    if (row.place.code != ncolor::Group || row.text.compare(change.group, Qt::CaseInsensitive) != 0)
        return Stay::OtherGroup;
    if (!Session().AllProviders && row.place.provider.compare(change.provider, Qt::CaseInsensitive) != 0)
        return Stay::OthersSchedule;
    return row.hasNote ? Stay::HasNote : Stay::No;
}

QString keysOf(const std::vector<RosterDate>& dates) {
    QStringList keys{QStringLiteral("0")};
    for (const RosterDate& date : dates)
        keys << QString::number(date.row.key);
    return keys.join(u',');
}

QString keysOf(const std::vector<RosterDate>& dates, const Member& member, std::vector<Member> RosterDate::*who) {
    QStringList keys{QStringLiteral("0")};
    for (const RosterDate& date : dates)
        if (std::ranges::any_of(date.*who, [&](const Member& other) { return idOf(other) == idOf(member); }))
            keys << QString::number(date.row.key);
    return keys.join(u',');
}

/// The condition on `appointments` under which a date is still to be changed.
QString stillOpen(const RosterChange& change, const QString& keys, QDate today) {
    const QString open = Sql(
        "nkeyid In ({}) And ncolor = {} And cappttext = '{}' And dapptdate >= '{}' And (NoteID Is Null Or NoteID < 1)",
        db::Raw{keys}, ncolor::Group, change.group, today);
    return Session().AllProviders ? open : open + Sql(" And clinicianid = '{}'", change.provider);
}

void add(const RosterChange& change, const std::vector<RosterDate>& dates, const Member& member, QDate today) {
    Session().Connection.Execute(Sql(
        "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientAcct, PatientName, Kept, GroupId) Select nkeyid, '{}', '{}', '{}', 0, {} From appointments Where {} And Not Exists (Select * From AppointmentsGroup Where AppointmentsGroup.nKeyId = appointments.nkeyid And AppointmentsGroup.PatientId = '{}')",
        member.patientId, member.account, member.name, change.groupId,
        db::Raw{stillOpen(change, keysOf(dates, member, &RosterDate::adds), today)}, member.patientId));
}

void remove(const RosterChange& change, const std::vector<RosterDate>& dates, const Member& member, QDate today) {
    Session().Connection.Execute(Sql(
        "Delete from AppointmentsGroup Where PatientId = '{}' And (Kept Is Null Or Kept = 0) And nKeyId In (Select nkeyid from appointments Where {})",
        member.patientId, db::Raw{stillOpen(change, keysOf(dates, member, &RosterDate::removes), today)}));
}

/// What is left to do on these dates after what other desks have done meanwhile.
std::vector<RosterDate> leftToDo(const RosterChange& change, const std::vector<RosterDate>& dates, QDate today) {
    QSet<int> open;
    for (Recordset rows(
             Sql("Select nkeyid from appointments Where {}", db::Raw{stillOpen(change, keysOf(dates), today)}),
             Session().Connection);
         !rows.Eof(); rows.MoveNext())
        open << static_cast<int>(rows[0].integer());
    const Attendances attended = attendances(change.reference);
    std::vector<RosterDate> left;
    for (RosterDate date : dates) {
        const QHash<QString, bool> there = attended.value(date.row.key);
        std::erase_if(date.adds, [&](const Member& member) { return there.contains(idOf(member)); });
        std::erase_if(date.removes, [&](const Member& member) { return there.value(idOf(member), true); });
        if (open.contains(date.row.key) && date.Changes())
            left.push_back(std::move(date));
    }
    return left;
}

}  // namespace

std::vector<RosterDate> ReadRoster(const RosterChange& change, QDate today) {
    const Attendances attended = attendances(change.reference);
    const QHash<QString, std::vector<Time>> times = timesInGroup(change.groupId);
    std::vector<RosterDate> dates;
    for (RestRow& row : ReadSeries(change.reference)) {
        if (row.key == change.key)
            continue;
        RosterDate date{std::move(row), Stay::No, {}, {}, {}, {}};
        date.stay = stayOf(date.row, change, today);
        const QHash<QString, bool> there = attended.value(date.row.key);
        for (const Member& member : change.added)
            if (!there.contains(idOf(member)))
                (takesPart(times.value(idOf(member)), date.row.place.date) ? date.adds : date.ended).push_back(member);
        for (const Member& member : change.removed)
            if (there.contains(idOf(member)))
                (there[idOf(member)] ? date.attended : date.removes).push_back(member);
        dates.push_back(std::move(date));
    }
    return dates;
}

bool IsChosenDate(const RosterDate& date, const RestRow& saved, RestScope scope) {
    const SeriesPlace& place = date.row.place;
    return scope == RestScope::All ||
           (scope == RestScope::Following &&
            std::tie(place.date, place.start, date.row.key) > std::tie(saved.place.date, saved.place.start, saved.key));
}

RosterOutcome WriteRoster(const RosterChange& change, const std::vector<RosterDate>& dates, QDate today) {
    return AttemptWrite<RosterOutcome>([&](RosterOutcome& outcome) {
        outcome.step = WriteStep::Members;
        db::InTransaction(Session().Connection, [&] {
            const std::vector<RosterDate> left = leftToDo(change, dates, today);
            for (const Member& member : change.removed)
                remove(change, left, member, today);
            for (const Member& member : change.added)
                add(change, left, member, today);
            for (const RosterDate& date : left)
                AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Modify Appointment"), {},
                         QStringLiteral("Modified Group Appointment of %1 for %2")
                             .arg(AuditDate(date.row.place.date), change.group));
            outcome.changed = static_cast<int>(left.size());
        });
    });
}
