#include "appointments/commandrow.h"

#include "appointments/appointmentrows.h"
#include "platform/database/recordset.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

std::optional<ShownAppointment> RowForCommand(int key, const ItemPainting& painted) {
    const db::Recordset row(AppointmentStatement(key), Session().Connection);
    if (row.Eof()) {
        MsgBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
               ExclamationBox, QStringLiteral("Appointment not found"));
        return std::nullopt;
    }
    return RowOf(row, ItemFromAppointment(row, painted));
}

void TellSavedRowIsGone() {
    MsgBox(QStringLiteral("Unable to save. Appointment not found. It may have been deleted by another user."),
           ExclamationBox, QStringLiteral("Appointment not found"));
}

void TellUnsaved(const WriteOutcome& outcome, const QString& subject) {
    if (subject.isEmpty() || outcome.failure->number == db::RowChanged)
        TellError(WriteTrouble(outcome.step), *outcome.failure);
    else
        TellInBar(subject, *outcome.failure);
}
