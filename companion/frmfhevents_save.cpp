#include <initializer_list>
#include <QCheckBox>
#include <QLabel>

#include "appointments/attendeelist.h"
#include "companion/companionfields.h"
#include "companion/frmfhevents.h"
#include "data/minutetime.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/noticebar.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"

void frmFHEvents::cmdOk_Click() {
    settleFields();
    if (!ValidateEntries())
        return;
    const bool isNew = request_.ceveid == 0;
    CompanionEventOutcome outcome;
    {
        const BusyPointer busy;
        outcome = isNew ? AddCompanionEvent(entered()) : UpdateCompanionEvent(request_.ceveid, *loaded_, entered());
    }
    if (!isWritten(
            outcome, isNew ? QStringLiteral("Error saving event. ") : QStringLiteral("Error modifying event. "),
            QStringLiteral("You cannot modify a recurring event in Solvane. Use Fernhall to modify this event."))) {
        if (outcome.clashing)
            showClash(*outcome.clashing);
        return;
    }
    if (outcome.keptTheirs)
        ShowNotice({tr("The event was changed in Fernhall or at another desk meanwhile. Those changes were kept.")});
    savedKey_ = outcome.ceveid;
    accept();
}

void frmFHEvents::showClash(const CompanionEvent& clashing) {
    // The name as it was first shown is a change from now on, when somebody types it again.
    if (clashing.name != loaded_->name)
        nameShown_.clear();
    loaded_ = clashing;
    notify(tr("Fernhall or another desk changed the same as you. OK replaces their change by yours, Cancel keeps it."));
}

void frmFHEvents::cmdDelete_Click() {
    if (MsgBox(QStringLiteral("Are you sure you want to delete this event?"), YesNoBox,
               QStringLiteral("Delete Event")) != Answer::Yes)
        return;
    CompanionEventOutcome outcome;
    {
        const BusyPointer busy;
        outcome = DeleteCompanionEvent(request_.ceveid, *loaded_);
    }
    if (isWritten(outcome, QStringLiteral("Error deleting event. "),
                  QStringLiteral("Unable to delete a recurring event in Solvane. Use Fernhall to delete this event.")))
        accept();
}

bool frmFHEvents::isWritten(const CompanionEventOutcome& outcome, const QString& trouble, const QString& recurs) {
    if (outcome.failure)
        TellError(trouble, *outcome.failure);
    else if (outcome.recurs)
        MsgBox(recurs, InformationBox, QStringLiteral("Solvane"));
    else if (outcome.end == WriteOutcome::End::Gone)
        MsgBox(trouble + QStringLiteral("Another user may have deleted this event. "), ErrorBox,
               QStringLiteral("Error"));
    written_ = outcome.IsDone();
    return written_;
}

// Enter and the Alt key do not leave the field in which the user stands.
void frmFHEvents::settleFields() {
    for (FieldEdit* field : std::initializer_list<FieldEdit*>{txtdate, txtstarttime, txtduration})
        field->setText(field->Text());
}

bool frmFHEvents::ValidateEntries() {
    struct Rule {
        bool broken;
        const char* message;
        QWidget* field;
    };
    const int start = txtstarttime->Time();
    // The end of the day is no start, since only the hour and the minute are kept.
    const Rule rules[] = {{txtevent->text().trimmed().isEmpty(), "Enter an event.", txtevent},
                          {!txtdate->Date().isValid(), "Enter a valid date.", txtdate},
                          {start < 0 || start >= MinutesPerDay, "Enter a valid time.", txtstarttime},
                          {txtduration->Value() <= 0, "Enter a valid duration.", txtduration},
                          {List1->SelectedIds().isEmpty(), "Select at least one attendee.", List1}};
    for (const Rule& rule : rules) {
        if (!rule.broken)
            continue;
        MsgBox(QString::fromLatin1(rule.message), ExclamationBox, QStringLiteral("Solvane"));
        rule.field->setFocus();
        return false;
    }
    return true;
}

CompanionEvent frmFHEvents::entered() const {
    CompanionEvent event;
    // A name that was left alone stays as it is stored, also where the field cannot show all of it.
    event.name = loaded_ && txtevent->text() == nameShown_ ? loaded_->name : txtevent->Stored();
    event.date = txtdate->Date();
    event.start = txtstarttime->Time();
    event.duration = static_cast<int>(txtduration->Value());
    event.allDay = ckallday->isChecked();
    event.allProviders = ckAllProviders->isChecked();
    for (const QString& id : List1->SelectedIds())
        event.attendees << id.toInt();
    return event;
}
