#include "appointments/restobstacles.h"

#include <algorithm>

#include "appointments/seriestexts.h"
#include "data/codes.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/providernames.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

MinuteSpan timeOf(const Recordset& row) {
    return {row["nStartTime"].real(), row["nEndTime"].real()};
}

MinuteSpan timeOf(const SeriesPlace& place) {
    return {static_cast<double>(place.start), static_cast<double>(place.end)};
}

QString idOf(const Recordset& row, const char* column) {
    return row[column].text().trimmed().toUpper();
}

/// The ids for an In (...).
QString listed(const QSet<QString>& ids) {
    QStringList quoted;
    for (const QString& id : ids)
        quoted << Sql("'{}'", id);
    return quoted.join(u',');
}

QString listed(const QSet<int>& ids) {
    QStringList numbers;
    for (const int id : ids)
        numbers << QString::number(id);
    return numbers.join(u',');
}

bool movesInTime(const RestPlan& plan) {
    return plan.after && (plan.after->date != plan.row.place.date || plan.after->start != plan.row.place.start);
}

/// The days and times between which the plans bring something, for a condition on `date`; empty when they bring nothing
/// anywhere.
QString spanOf(const std::vector<RestPlan>& plans, const char* date) {
    std::optional<SeriesPlace> all;
    QDate last;
    for (const RestPlan& plan : plans) {
        if (!plan.after)
            continue;
        if (!all)
            all = plan.after;
        all->start = std::min(all->start, plan.after->start);
        all->end = std::max(all->end, plan.after->end);
        all->date = std::min(all->date, plan.after->date);
        last = last.isValid() ? std::max(last, plan.after->date) : plan.after->date;
    }
    if (!all)
        return {};
    return Sql("{} Between '{}' And '{}' And nStartTime <= {} And nEndTime >= {}", db::Raw{QLatin1String(date)},
               all->date, last, all->end, all->start);
}

}  // namespace

bool RestObstacles::Needs::Meets(const Needs& other) const {
    return providers.intersects(other.providers) || patients.intersects(other.patients) ||
           rooms.intersects(other.rooms);
}

void RestObstacles::Needs::Add(const Needs& other) {
    providers |= other.providers;
    patients |= other.patients;
    rooms |= other.rooms;
}

void RestObstacles::Read(const std::vector<RestPlan>& plans) {
    plans_.clear();
    needs_.clear();
    positions_.clear();
    arriving_.clear();
    days_.clear();
    attendees_ = readAttendees(plans);
    Needs all;
    for (const RestPlan& plan : plans) {
        needs_.push_back(needsOf(plan));
        all.Add(needs_.back());
    }
    readSchedules(spanOf(plans, "dapptdate"), all);
    readRooms(spanOf(plans, "nApptDate"), all);
    holidays_.Read();
    for (std::size_t i = 0; i < plans.size(); ++i) {
        positions_.insert(plans[i].row.key, i);
        if (plans[i].after)
            arriving_[plans[i].after->date].push_back(i);
    }
    plans_ = plans;
}

QHash<int, QSet<QString>> RestObstacles::readAttendees(const std::vector<RestPlan>& plans) {
    QSet<int> shared;
    for (const RestPlan& plan : plans)
        if (plan.row.place.provider == QLatin1String(EventClinicianId) && movesInTime(plan))
            shared << plan.row.key;
    QHash<int, QSet<QString>> attendees;
    if (shared.isEmpty())
        return attendees;
    for (Recordset rows(
             Sql("Select nkeyid, clinicianid from appointmentsevents Where nkeyid In ({})", db::Raw{listed(shared)}),
             Session().Connection);
         !rows.Eof(); rows.MoveNext())
        attendees[static_cast<int>(rows["nkeyid"].integer())] << idOf(rows, "clinicianid");
    return attendees;
}

RestObstacles::Needs RestObstacles::needsOf(const RestPlan& plan) const {
    Needs needs;
    if (!plan.after)
        return needs;
    const SeriesPlace& from = plan.row.place;
    const bool moves = movesInTime(plan);
    if (moves && attendees_.contains(plan.row.key))
        needs.providers = attendees_[plan.row.key];
    else if (moves || plan.after->provider != from.provider)
        needs.providers << plan.after->provider.trimmed().toUpper();
    if (moves && !plan.row.patientId.isEmpty())
        needs.patients << plan.row.patientId.toUpper();
    if (plan.after->room > 0 && (moves || plan.after->room != from.room))
        needs.rooms << plan.after->room;
    return needs;
}

void RestObstacles::readSchedules(const QString& when, const Needs& all) {
    if (when.isEmpty() || all.providers.isEmpty())
        return;
    const db::Raw providers{listed(all.providers)};
    const db::Raw span{when};
    QString statement = Sql(
        "Select nkeyid, dapptdate, nStartTime, nEndTime, cappttext, ncolor, patientid, clinicianid, 0 As shared from appointments Where appttype <> 4 And clinicianid In ({}) And {} Union All Select appointments.nkeyid, dapptdate, nStartTime, nEndTime, cappttext, ncolor, patientid, appointmentsevents.clinicianid, 1 As shared from appointments Inner Join appointmentsevents On appointments.nkeyid = appointmentsevents.nkeyid Where appttype <> 4 And appointmentsevents.clinicianid In ({}) And {}",
        providers, span, providers, span);
    if (!all.patients.isEmpty())
        statement += Sql(
            " Union All Select nkeyid, dapptdate, nStartTime, nEndTime, cappttext, ncolor, patientid, clinicianid, 0 As shared from appointments Where appttype <> 4 And patientid In ({}) And {}",
            db::Raw{listed(all.patients)}, span);
    const ProviderNames names;
    for (Recordset rows(statement, Session().Connection); !rows.Eof(); rows.MoveNext()) {
        Booking booking{static_cast<int>(rows["nkeyid"].integer()), timeOf(rows), {}, {}, {}};
        booking.takes.providers << idOf(rows, "clinicianid");
        if (!rows["patientid"].text().isEmpty())
            booking.takes.patients << idOf(rows, "patientid");
        const QString provider = names.Of(rows["clinicianid"].text());
        const auto line = [&](const QString& whom) {
            const QString told = WithStatus(whom, static_cast<int>(rows["ncolor"].integer()));
            return BookedText(QObject::tr("%1 with %2").arg(told, provider), booking.time);
        };
        booking.text = line(rows["cappttext"].text());
        booking.textWithoutName = line(TextWithoutName(rows));
        days_[rows["dapptdate"].date()].push_back(std::move(booking));
    }
}

void RestObstacles::readRooms(const QString& when, const Needs& all) {
    if (when.isEmpty() || all.rooms.isEmpty())
        return;
    for (
        Recordset rows(
            Sql("Select nApptDate, nStartTime, nEndTime, croomtext, apptid, croomid, rooms.Room from roomschedule Inner Join rooms On rooms.roomid = roomschedule.croomid Where croomid In ({}) And {}",
                db::Raw{listed(all.rooms)}, db::Raw{when}),
            Session().Connection);
        !rows.Eof(); rows.MoveNext()) {
        Booking booking{static_cast<int>(rows["apptid"].integer()), timeOf(rows), {}, {}, {}};
        booking.takes.rooms << static_cast<int>(rows["croomid"].integer());
        const QString who = rows["croomtext"].text();
        const auto line = [&](const QString& whom) {
            return QStringLiteral("%1: %2").arg(rows["Room"].text(), BookedText(whom, booking.time));
        };
        booking.text = line(who);
        booking.textWithoutName = line(booking.key > 0 ? QObject::tr("booked") : who);
        days_[rows["nApptDate"].date()].push_back(std::move(booking));
    }
}

QStringList RestObstacles::InTheWay(std::size_t plan, const Ticked& ticked) const {
    QStringList lines;
    if (plan >= plans_.size() || !plans_[plan].after)
        return lines;
    const auto& [row, stay, after] = plans_[plan];
    const MinuteSpan proposed = timeOf(*after);
    const auto leaves = [&](int key) {
        const auto position = positions_.constFind(key);
        return position != positions_.cend() && plans_[*position].after && ticked(*position);
    };
    for (const Booking& booking : days_.value(after->date))
        if (booking.key != row.key && booking.takes.Meets(needs_[plan]) && Overlaps(proposed, booking.time) &&
            !(booking.key > 0 && leaves(booking.key)))
            lines << (Session().HidePatientNames ? booking.textWithoutName : booking.text);
    for (const std::size_t other : arriving_.value(after->date))
        if (other != plan && ticked(other) && needs_[other].Meets(needs_[plan]) &&
            Overlaps(proposed, timeOf(*plans_[other].after)))
            lines << QObject::tr("another appointment of this series, %1").arg(TimesText(timeOf(*plans_[other].after)));
    lines.removeDuplicates();
    return lines;
}

QString RestObstacles::Holiday(std::size_t plan) const {
    return plan < plans_.size() && movesInTime(plans_[plan]) ? holidays_.On(plans_[plan].after->date) : QString();
}
