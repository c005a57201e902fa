#include "appointments/seriesrest.h"

#include <algorithm>
#include <QObject>
#include <QSet>
#include <tuple>

#include "appointments/seriesstep.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "data/recurrence.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int FirstStart = 1;  // The editors take no appointment that begins at midnight.

auto timeOf(const RestRow& row) {
    return std::tie(row.place.date, row.place.start, row.key);
}

RestRow rowOf(const Recordset& rows) {
    return {static_cast<int>(rows["nkeyid"].integer()),
            PlaceOf(rows),
            rows["cappttext"].text(),
            static_cast<int>(rows["appttype"].integer()),
            rows["patientid"].text(),
            rows["Room"].text(),
            rows["NoteID"].integer() > 0,
            false};
}

std::vector<RestRow> rowsWhere(const QString& condition) {
    std::vector<RestRow> found;
    QSet<int> read;
    for (Recordset rows(PlacesStatement(condition), Session().Connection); !rows.Eof(); rows.MoveNext()) {
        RestRow row = rowOf(rows);
        if (read.contains(row.key))
            continue;
        read.insert(row.key);
        found.push_back(std::move(row));
    }
    std::ranges::sort(found, [](const RestRow& a, const RestRow& b) { return timeOf(a) < timeOf(b); });
    return found;
}

/// The keys of the series' appointments to which a member of the group came.
QSet<int> attendedKeys(int reference) {
    QSet<int> keys;
    for (
        Recordset rows(
            Sql("Select AppointmentsGroup.nKeyId from AppointmentsGroup Inner Join appointments On appointments.nkeyid = AppointmentsGroup.nKeyId Where appointments.repeating = 1 And appointments.repeating_ref = {} And appointments.ncolor = {} And AppointmentsGroup.Kept = 1",
                reference, ncolor::Group),
            Session().Connection);
        !rows.Eof(); rows.MoveNext())
        keys << static_cast<int>(rows[0].integer());
    return keys;
}

bool isChosen(const RestRow& row, const RestRow& chosen, RestScope scope) {
    switch (scope) {
        case RestScope::This:
            return row.key == chosen.key;
        case RestScope::Following:
            return timeOf(row) >= timeOf(chosen);
        case RestScope::All:
            break;
    }
    return true;
}

/// What has taken place or is settled, whatever the change.
Stay settled(const RestRow& row, QDate today) {
    if (row.place.date < today)
        return Stay::Past;
    switch (row.place.code) {
        case ncolor::CheckedIn:
            return Stay::CheckedIn;
        case ncolor::Kept:
            return Stay::Kept;
        case ncolor::Missed:
            return Stay::Missed;
        case ncolor::PatientCancelled:
        case ncolor::TherapistCancelled:
            return Stay::Cancelled;
        case ncolor::Group:
            if (row.attended)
                return Stay::Kept;
            [[fallthrough]];
        default:
            return row.hasNote ? Stay::HasNote : Stay::No;
    }
}

void moveTo(RestPlan& plan, QDate date, int start, QDate today) {
    const SeriesPlace& from = plan.row.place;
    const int end = start + from.end - from.start;
    if (date == from.date && start == from.start)
        plan.stay = Stay::NothingNew;
    else if (start < FirstStart || start >= MinutesPerDay || end > MinutesPerDay)
        plan.stay = Stay::PastMidnight;
    else if (date < today)
        plan.stay = Stay::IntoPast;
    if (!plan.Changes())
        return;
    plan.after = from;
    plan.after->date = date;
    plan.after->start = start;
    plan.after->end = end;
}

void moveToRoom(RestPlan& plan, int room) {
    if (room < 0 || plan.row.place.room == room) {
        plan.stay = Stay::NothingNew;
        return;
    }
    plan.after = plan.row.place;
    plan.after->room = room;
}

void giveTo(RestPlan& plan, const QString& provider) {
    const QString& now = plan.row.place.provider;
    if (now == QLatin1String(EventClinicianId))
        plan.stay = Stay::Shared;
    else if (provider.isEmpty() || now.compare(provider, Qt::CaseInsensitive) == 0)
        plan.stay = Stay::NothingNew;
    if (!plan.Changes())
        return;
    plan.after = plan.row.place;
    plan.after->provider = provider;
}

void cancel(RestPlan& plan, int code) {
    if (!IsPatientRow(plan.row.place.code) || plan.row.apptType == ApptTypeSlot) {
        plan.stay = Stay::NoStatus;
        return;
    }
    plan.after = plan.row.place;
    plan.after->code = code;
}

void apply(RestPlan& plan, const RestChange& change, QDate today) {
    using Kind = RestChange::Kind;
    const SeriesPlace& place = plan.row.place;
    switch (change.kind) {
        case Kind::Delete:
            return;
        case Kind::Shift:
            return moveTo(plan, place.date, place.start + change.minutes, today);
        case Kind::MoveTo:
            return moveTo(
                plan, change.weekday > 0 ? place.date.addDays(change.weekday - WeekdayNumber(place.date)) : place.date,
                change.start >= 0 ? change.start : place.start, today);
        case Kind::Room:
            return moveToRoom(plan, change.room);
        case Kind::Provider:
            return giveTo(plan, change.provider);
        case Kind::PatientCancel:
            return cancel(plan, ncolor::PatientCancelled);
        case Kind::TherapistCancel:
            return cancel(plan, ncolor::TherapistCancelled);
    }
}

}  // namespace

std::vector<RestRow> ReadSeries(int reference) {
    const QSet<int> attended = attendedKeys(reference);
    std::vector<RestRow> series =
        rowsWhere(Sql("appointments.repeating = 1 And appointments.repeating_ref = {}", reference));
    for (RestRow& row : series)
        row.attended = attended.contains(row.key);
    return series;
}

std::vector<RestRow> ReadRestRows(const std::vector<int>& keys) {
    QStringList listed{QStringLiteral("0")};
    for (const int key : keys)
        listed << QString::number(key);
    return rowsWhere(Sql("appointments.nkeyid In ({})", db::Raw{listed.join(u',')}));
}

QString StayText(Stay stay) {
    switch (stay) {
        case Stay::No:
            break;
        case Stay::NotChosen:
            return QObject::tr("not chosen");
        case Stay::Past:
            return QObject::tr("stays: is past");
        case Stay::CheckedIn:
            return QObject::tr("stays: the patient has checked in");
        case Stay::Kept:
            return QObject::tr("stays: was kept");
        case Stay::Missed:
            return QObject::tr("stays: was missed");
        case Stay::Cancelled:
            return QObject::tr("stays: is cancelled");
        case Stay::HasNote:
            return QObject::tr("stays: has a session note");
        case Stay::OthersSchedule:
            return QObject::tr("stays: is with another provider");
        case Stay::NothingNew:
            return QObject::tr("stays as it is");
        case Stay::PastMidnight:
            return QObject::tr("stays: would not lie within the day");
        case Stay::IntoPast:
            return QObject::tr("stays: would come to lie in the past");
        case Stay::Shared:
            return QObject::tr("stays: has several providers");
        case Stay::OtherGroup:
            return QObject::tr("stays: is not this group's");
        case Stay::NoStatus:
            return QObject::tr("stays: only a patient's appointment has a status");
    }
    return {};
}

std::vector<RestPlan> PlanRest(const std::vector<RestRow>& rows, int chosen, RestScope scope, const RestChange& change,
                               QDate today, bool allProviders) {
    const auto begun = std::ranges::find(rows, chosen, &RestRow::key);
    std::vector<RestPlan> plans;
    for (const RestRow& row : rows) {
        RestPlan plan{row, Stay::No, {}};
        if (begun == rows.end() || !isChosen(row, *begun, scope))
            plan.stay = Stay::NotChosen;
        else if (plan.stay = settled(row, today);
                 plan.Changes() && !allProviders &&
                 row.place.provider.compare(begun->place.provider, Qt::CaseInsensitive) != 0)
            plan.stay = Stay::OthersSchedule;
        if (plan.Changes())
            apply(plan, change, today);
        plans.push_back(std::move(plan));
    }
    return plans;
}
