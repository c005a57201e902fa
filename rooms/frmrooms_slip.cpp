#include <QComboBox>

#include "output/appointmentslip.h"
#include "output/frmpappt.h"
#include "platform/calendar/ctmday.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "rooms/frmrooms.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

/// Whether the appointment that owns a slot has a slip. One that cannot be read has none.
bool ownerHasSlip(qint64 owner) {
    bool has = false;
    db::Ignoring([&] {
        const db::Recordset row(db::Sql("Select ncolor, appttype from appointments Where nkeyid = {}", owner),
                                Session().Connection);
        has = !row.Eof() &&
              HasSlip(static_cast<int>(row["ncolor"].integer()), static_cast<int>(row["appttype"].integer()));
    });
    return has;
}

QString whyNoSlip() {
    return frmrooms::tr("Only a patient's appointment that is blank, pending or tentative has a slip.");
}

}  // namespace

void frmrooms::suitSlip() {
    const RoomMeeting* selected = meetingAt(ctDays1->SelectedItem());
    const bool suits = selected != nullptr && (!selected->bound || ownerHasSlip(selected->owner));
    menus().Suit(menu::mnuFPrintA, suits, selected == nullptr ? tr("Select a meeting first.") : whyNoSlip());
}

void frmrooms::printSlip() {
    ctDays1->CommitEdit();
    const RoomMeeting* selected = meetingAt(ctDays1->SelectedItem());
    if (selected == nullptr)
        return;
    const RoomMeeting meeting = *selected;
    if (meeting.bound)
        OpenAppointmentSlip({.key = static_cast<int>(meeting.owner),
                             .date = meeting.date,
                             .start = meeting.start,
                             .room = cborooms->currentText(),
                             .whyNot = whyNoSlip()},
                            window(), [this] { LoadRooms(); });
    else
        printMeetingSlip(meeting);
}

void frmrooms::printMeetingSlip(const RoomMeeting& shown) {
    std::optional<RoomMeeting> stored;
    try {
        stored = StoredMeeting(shown.key);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading room schedule. "), error);
        return;
    }
    if (!stored)
        MsgBox(tr("This booking is not there any more. Another user may have deleted it."), ExclamationBox,
               QStringLiteral("Print Appointment Slip"));
    if (stored != shown)
        LoadRooms();
    if (!stored)
        return;
    frmpappt form({.appointmentFor = stored->text,
                   .appointmentWith = {},
                   .location = cborooms->itemText(cborooms->findData(stored->room)),
                   .date = stored->date,
                   .start = stored->start,
                   .namesPatient = false},
                  window());
    ShowModal(form);
}
