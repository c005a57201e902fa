#include "appointments/attendeelist.h"
#include "appointments/frmactsc.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"

void frmactsc::cmdOk_Click() {
    settleFields();
    offerUnknownItems();
    if (!isComplete())
        return;
    if (key_ != 0 && !dirty)
        return accept();
    if (key_ == 0 ? SaveNewEvent() : SaveUpdateEvent())
        accept();
    else
        closeUnsaved();
}

// Whether the end comes after the start is not asked here; the form shows it.
bool frmactsc::isComplete() {
    if (cboevents->Text().trimmed().isEmpty())
        return refuse(QStringLiteral("Enter an activity or event."), cboevents, QStringLiteral("Missing Text"));
    if (ctDEditComp->Value() < FirstValidDate)
        return refuse(QStringLiteral("Enter a date."), ctDEditComp);
    if (ctstart->Value() == NoTime)
        return refuse(QStringLiteral("Enter a start time."), ctstart);
    if (ctend->Value() == NoTime)
        return refuse(QStringLiteral("Enter an end time."), ctend);
    if (List1->SelectedIds().isEmpty())
        return refuse(QStringLiteral("Enter one or more attendees."), List1);
    return true;
}

bool frmactsc::SaveNewEvent() {
    const BusyPointer busy;
    return isSaved(AddActivity(entered(), List1->SelectedIds()));
}

bool frmactsc::SaveUpdateEvent() {
    const BusyPointer busy;
    std::optional<AttendeeChange> attendees;
    if (attendeesChanged)
        attendees = {storedAttendees_, List1->SelectedIds()};
    return isSaved(UpdateActivity(key_, entered(), attendees, storedState_));
}

bool frmactsc::isSaved(const WriteOutcome& outcome) {
    if (outcome.failure)
        TellError(WriteTrouble(outcome.step), *outcome.failure);
    if (outcome.end == WriteOutcome::End::Gone)
        MsgBox(QStringLiteral("Error saving appointment. Another user may have deleted this appointment. "), ErrorBox,
               QStringLiteral("Error"));
    return outcome.IsDone();
}

ActivityFields frmactsc::entered() const {
    const QString location = cbolocation->Text().trimmed().isEmpty() ? QString() : cbolocation->Text();
    return {ctDEditComp->Date(), ctstart->Time(), ctend->Time(), cboevents->Text(), location};
}
