#include "appointments/seriesobstacles.h"

#include "appointments/overlap.h"
#include "appointments/seriestexts.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

MinuteSpan timeOf(const Recordset& row) {
    return {row["nStartTime"].real(), row["nEndTime"].real()};
}

QString withProvider(const QString& what, const QString& provider) {
    return provider.isEmpty() ? what : QObject::tr("%1 with %2").arg(what, provider);
}

}  // namespace

QString Obstacles::Text() const {
    QStringList all = booked + elsewhere + room;
    if (!holiday.isEmpty())
        all << QObject::tr("Holiday: %1").arg(holiday);
    return all.join(QStringLiteral("; "));
}

void SeriesObstacles::Read(QDate from, QDate to) {
    days_.clear();
    readPiece(from, from, to);
}

void SeriesObstacles::ReadOn(int days) {
    readPiece(from_, to_.addDays(1), to_.addDays(days));
}

void SeriesObstacles::readPiece(QDate first, QDate from, QDate to) {
    from_ = to_ = QDate();
    readRoom();
    readSchedules(from, to);
    readBookings(from, to);
    holidays_.Read();
    from_ = first;
    to_ = to;
}

Obstacles SeriesObstacles::On(QDate date) const {
    Obstacles found;
    if (const auto day = days_.find(date); day != days_.end())
        for (const Entry& entry : day->second) {
            QStringList& lines = entry.kind == Kind::Booked      ? found.booked
                                 : entry.kind == Kind::Elsewhere ? found.elsewhere
                                                                 : found.room;
            lines << (Session().HidePatientNames ? entry.textWithoutName : entry.text);
        }
    found.holiday = holidays_.On(date);
    return found;
}

void SeriesObstacles::readRoom() {
    if (roomRead_)
        return;
    const Recordset room(
        Sql("Select roomschedule.croomid, rooms.Room from appointments Inner Join roomschedule On roomschedule.apptid = Case When appointments.repeating = 1 And appointments.repeating_ref > 0 Then appointments.repeating_ref Else appointments.nkeyid End Inner Join rooms On rooms.roomid = roomschedule.croomid Where appointments.nkeyid = {}",
            source_.key),
        Session().Connection);
    if (!room.Eof())
        room_ = {static_cast<int>(room[0].integer()), room[1].text()};
    roomRead_ = true;
}

// Each arm has an index of its own; touching times are sorted out below, except in the provider's own schedule.
void SeriesObstacles::readSchedules(QDate from, QDate to) {
    QString statement = Sql(
        "Select nkeyid, dapptdate, nStartTime, nEndTime, cappttext, ncolor, patientid, 0 As elsewhere, '' As lastname from appointments Where ClinicianId = '{}' And dapptdate Between '{}' And '{}' And nStartTime <= {} And nEndTime >= {} Union All Select appointments.nkeyid, dapptdate, nStartTime, nEndTime, cappttext, ncolor, patientid, 1 As elsewhere, '' As lastname from appointments Inner Join appointmentsevents On appointments.nkeyid = appointmentsevents.nkeyid Where appointmentsevents.clinicianid = '{}' And appointments.clinicianid <> '{}' And dapptdate Between '{}' And '{}' And nStartTime <= {} And nEndTime >= {}",
        source_.provider, from, to, source_.end, source_.start, source_.provider, source_.provider, from, to,
        source_.end, source_.start);
    if (!source_.patientId.isEmpty())
        statement += Sql(
            " Union All Select nkeyid, dapptdate, nStartTime, nEndTime, cappttext, ncolor, patientid, 1 As elsewhere, prov_lastname As lastname from appointments Left Join provider_info On provider_info.id = appointments.clinicianid Where PatientId = '{}' And clinicianid <> '{}' And dapptdate Between '{}' And '{}' And nStartTime <= {} And nEndTime >= {}",
            source_.patientId, source_.provider, from, to, source_.end, source_.start);
    const MinuteSpan proposed{static_cast<double>(source_.start), static_cast<double>(source_.end)};
    for (Recordset rows(statement, Session().Connection); !rows.Eof(); rows.MoveNext()) {
        const MinuteSpan time = timeOf(rows);
        const bool elsewhere = rows["elsewhere"].integer() == 1;
        if (rows["nkeyid"].integer() == source_.key || (elsewhere && !Overlaps(proposed, time)))
            continue;
        const QString provider = rows["lastname"].text();
        const auto line = [&](const QString& whom) {
            const QString told = WithStatus(whom, static_cast<int>(rows["ncolor"].integer()));
            return BookedText(withProvider(told, provider), time);
        };
        days_[rows["dapptdate"].date()].push_back(
            {elsewhere ? Kind::Elsewhere : Kind::Booked, line(rows["cappttext"].text()), line(TextWithoutName(rows))});
    }
}

void SeriesObstacles::readBookings(QDate from, QDate to) {
    if (room_.id <= 0)
        return;
    const MinuteSpan proposed{static_cast<double>(source_.start), static_cast<double>(source_.end)};
    for (
        Recordset rows(
            Sql("Select nApptDate, nStartTime, nEndTime, croomtext, apptid from roomschedule Where croomid = {} And nApptDate Between '{}' And '{}' And nStartTime <= {} And nEndTime >= {}",
                room_.id, from, to, source_.end, source_.start),
            Session().Connection);
        !rows.Eof(); rows.MoveNext()) {
        const MinuteSpan time = timeOf(rows);
        const qint64 appointment = rows["apptid"].integer();
        if (appointment == source_.key || !Overlaps(proposed, time))
            continue;
        const QString who = rows["croomtext"].text();
        const auto line = [&](const QString& whom) {
            return QStringLiteral("%1: %2").arg(room_.name, BookedText(whom, time));
        };
        days_[rows["nApptDate"].date()].push_back(
            {Kind::Room, line(who), line(appointment > 0 ? QObject::tr("booked") : who)});
    }
}
