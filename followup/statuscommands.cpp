#include "followup/statuscommands.h"

#include "appointments/appointmentwrites.h"
#include "appointments/patientalerts.h"
#include "data/codes.h"
#include "followup/frmarrivaltime.h"
#include "followup/frmcheckedin.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"

namespace {

// Colours that are a kind: a status over one of them would make another thing of the row.
bool isKind(int code) {
    return code == ncolor::Activity || code == ncolor::Unavailable || code == ncolor::Group || code == ncolor::Holiday;
}

}  // namespace

bool HasStatus(int code, int apptType, const QString& patientId) {
    return apptType != ApptTypeSlot && (IsPatientRow(code) || (!isKind(code) && !patientId.isEmpty()));
}

WriteOutcome ChangeStatus(int key, int code) {
    const WriteOutcome outcome = SetApptStatus(key, code);
    if (outcome.failure)
        TellInBar(StatusUnsaved, *outcome.failure);
    else
        DropNotice(StatusUnsaved);
    if (outcome.IsDone())
        frmCheckedIn::ReloadIfOpen();
    return outcome;
}

bool AskArrival(int key, QWidget* window) {
    frmarrivalTime arrival(key, window);
    return ShowModal(arrival) == QDialog::Accepted;
}

void AfterArrival(const QString& patientId) {
    frmCheckedIn::ReloadIfOpen();
    ShowPatientAlerts(patientId, QLatin1String(CheckInAlert));
}
