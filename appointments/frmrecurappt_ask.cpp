#include "appointments/appointmentrows.h"
#include "appointments/frmrecurappt.h"
#include "appointments/seriesdates.h"
#include "platform/controls/noticebar.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;
using db::SqlDate;

// The dialog's own rule, not that of the booking screens.
bool frmRecurAppt::collides(QDate date) const {
    return !Recordset(
                Sql("Select * from appointments Where ClinicianId = '{}' AND dapptdate = '{}' AND (({} BETWEEN nstarttime AND nendtime) OR ({} BETWEEN nstarttime AND nendtime) OR (nstarttime BETWEEN {} AND {}))",
                    provider_.id, SqlDate(date), source_.ItemStart, source_.ItemEnd, source_.ItemStart,
                    source_.ItemEnd),
                Session().Connection)
                .Eof();
}

bool frmRecurAppt::getconflict(QDate date) const {
    return collides(date) &&
           MsgBox(QStringLiteral("You have another appointment on %1 which conflicts with this one. Add anyway?")
                      .arg(ShortDateText(date)),
                  YesNoBox, QStringLiteral("Appointment Conflict")) != Answer::Yes;
}

// What the question above does not know of: the room, a shared activity, the patient's other appointments.
bool frmRecurAppt::isTakenElsewhere(QDate date, const Room& room) const {
    const Obstacles obstacles = seriesdates->InTheWay(date);
    QStringList lines = obstacles.elsewhere;
    if (!room.text.isEmpty())
        lines += obstacles.room;
    return !lines.isEmpty() && MsgBox(tr("This is booked on %1:\n\n%2\n\nAdd the appointment anyway?")
                                          .arg(ShortDateText(date), lines.join(QLatin1Char('\n'))),
                                      YesNoBox, QStringLiteral("Appointment Conflict")) != Answer::Yes;
}

bool frmRecurAppt::leavesOut(QDate date, const Room& room) const {
    switch (seriesdates->PlanFor(date)) {
        case SeriesDates::Plan::Own:
        case SeriesDates::Plan::LeaveOut:
            return true;
        case SeriesDates::Plan::Book:
            return false;
        case SeriesDates::Plan::Ask:
            break;
    }
    return getconflict(date) || isTakenElsewhere(date, room);
}

frmRecurAppt::Room frmRecurAppt::roomForCopies(int key) const {
    Room room{ApptRoomId(key), {}};
    if (room.id <= 0)
        return room;
    const Recordset name(Sql("Select room from rooms Where roomid = {}", room.id), Session().Connection);
    const bool wanted =
        MsgBox(
            QStringLiteral(
                "This appointment is associated with a Room. Do you want the room to be associated with all recurring appointments?"),
            YesNoBox, QStringLiteral("Recurring Appointment")) == Answer::Yes;
    if (wanted && !name.Eof())
        room.text = name[0].text();
    return room;
}

frmRecurAppt::Companions frmRecurAppt::askForCompanions() const {
    const Recordset counts(
        Sql("Select (Select Count(*) From appointmentsevents Where nkeyid = {}) As attendees, (Select Count(*) From AppointmentsGroup Where nKeyId = {}) As members",
            sourceKey(), sourceKey()),
        Session().Connection);
    const qint64 attendees = counts["attendees"].integer();
    const qint64 members = counts["members"].integer();
    if (attendees == 0 && members == 0)
        return Companions::None;
    const QString question =
        attendees > 0
            ? tr("This activity has attendees: %1. Do you want them to attend all recurring appointments too? With No these are booked for %2 alone.")
                  .arg(attendees)
                  .arg(provider_.name)
            : tr("This group appointment has patients: %1. Do you want them to be scheduled for all recurring appointments too? With No these are booked without patients.")
                  .arg(members);
    if (MsgBox(question, YesNoBox, QStringLiteral("Recurring Appointment")) != Answer::Yes)
        return Companions::None;
    return attendees > 0 ? Companions::Attendees : Companions::Members;
}

void frmRecurAppt::tellMade(int made) const {
    ShowNotice({tr("%1 of %2 recurring appointments made.").arg(made).arg(seriesdates->NewDates())});
}
