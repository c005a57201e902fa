#include "appointments/frmnore.h"
#include "appointments/waitlist.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"

Cancelled frmnore::cancelledRows() const {
    return request_.waitId > 0 ? Cancelled::LeftOut : Cancelled::Conflicts;
}

// The entry waits for the patient who was offered the time. Another one may have been chosen since.
int frmnore::waitOfPatient() const {
    return patientTag_.compare(request_.patientId, Qt::CaseInsensitive) == 0 ? waitId_ : 0;
}

// The save itself closes the entry, and fails as a whole where another desk was quicker. Whoever is asked before can
// still book.
bool frmnore::waitIsSettled() {
    if (waitOfPatient() == 0)
        return true;
    try {
        const std::optional<WaitRow> row = WaitRowOf(waitId_);
        if (row && !row->entry.closed)
            return true;
    } catch (const db::DatabaseError& error) {
        TellError(WriteTrouble(WriteStep::WaitList), error);
        return false;
    }
    if (MsgBox(
            tr("Another user has booked or closed this entry of the wait list in the meantime. Book the appointment all the same?"),
            YesNoWarningBox, windowTitle()) != Answer::Yes)
        return false;
    waitId_ = 0;
    return true;
}
