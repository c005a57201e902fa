#include <optional>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "appointments/appointmentrows.h"
#include "appointments/conflicts.h"
#include "appointments/editorparts.h"
#include "appointments/frmnore.h"
#include "appointments/patientrows.h"
#include "data/codes.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "platform/database/readtogether.h"
#include "platform/database/waiting.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

constexpr int UsualLeadMinutes = 10;
constexpr int LongestAuditedText = 100;

/// The data of the item that is selected, where one is.
std::optional<int> chosen(const CompletingCombo& box) {
    return box.ListIndex() >= 0 ? std::optional(box.ItemData()) : std::nullopt;
}

}  // namespace

void frmnore::cmdOk_Click() {
    if (asksForPatient())
        return;
    // Enter and the Alt key do not leave the field in which the user stands.
    for (CompletingCombo* box : {cbocpt, cboapttype, cbocats, cborooms, cbostatus})
        box->Settle();
    for (ctDEdit* field : {ctedate, ctstart, ctend})
        field->setText(field->Text());
    offerUnknownItems();
    if (!dirty)
        return accept();
    if (entryText().trimmed().isEmpty())
        return;
    const db::ReadTogether together(Session().Connection, savingStatements(key_, request_.provider.id));
    if (request_.ApptKind == apptkind::Patient && !patientIsKnown())
        return;
    settlePatient();
    if (conflicts(key_, request_.provider.id) || !ViewHasEditor(request_.CurrentView) ||
        !TimesAreValid(*ctstart, *ctend, *ctedate) || !waitIsSettled())
        return;
    if (!saveappt(key_, request_.provider.id))
        return closeUnsaved();
    sendConfirmation();
    accept();
}

bool frmnore::patientIsKnown() {
    std::optional<db::DatabaseError> failure;
    if (patientinDB(patientTag_, &failure))
        return true;
    if (failure && db::IsUnanswered(*failure))
        return false;
    const Answer answer =
        MsgBox(QStringLiteral("Patient not found in database. Add patient now?"), YesNoBox, QStringLiteral("Solvane"));
    if (answer == Answer::Yes) {
        // Who was just added is chosen already, and the user looks at the appointment again.
        if (!AddNewPatient())
            showPatientList();
        return false;
    }
    // What could not be looked up may well be there.
    if (!failure) {
        txtaccount->clear();
        for (QLabel* fact : {lblHPhone, lblwphone, lblcphone, lblemail})
            fact->clear();
    }
    if (txtpatients->isEnabled())
        txtpatients->setFocus();
    return false;
}

QStringList frmnore::savingStatements(int key, const QString& providerId) const {
    const QDate date = ctedate->Date();
    const int start = ctstart->Time();
    const int end = ctend->Time();
    QStringList statements{ApptConflictStatement(key, date, start, end, patientTag_, providerId, cancelledRows()),
                           AppointmentStatement(key)};
    if (request_.ApptKind == apptkind::Patient)
        statements << PatientStatement(patientTag_);
    if (cborooms->ListIndex() >= 0)
        statements << RoomConflictStatements(key, date, start, end, cborooms->ItemData(), key);
    return statements;
}

// The conflicts are asked before the times are checked: the order is fixed.
bool frmnore::conflicts(int key, const QString& providerId) {
    const QDate date = ctedate->Date();
    const int start = ctstart->Time();
    const int end = ctend->Time();
    if (ViewHasEditor(request_.CurrentView) &&
        CheckApptConflicts(key, date, start, end, patientTag_, providerId, cancelledRows()))
        return true;
    return cborooms->ListIndex() >= 0 && CheckRoomConflicts(key, date, start, end, cborooms->ItemData(), key);
}

QString frmnore::entryText() const {
    switch (request_.ApptKind) {
        case apptkind::Patient:
            return txtpatients->text();
        case apptkind::Activity:
            return cboevents->Text();
        case apptkind::Unavailable:
            return cboavail->Text();
        default:
            return cbocats->Text();
    }
}

bool frmnore::saveappt(int key, const QString& providerId) {
    const BusyPointer busy;
    const EntryOutcome outcome = SaveEntry(key, entered(providerId), loadedState_);
    if (outcome.failure) {
        TellError(WriteTrouble(outcome.step), *outcome.failure);
        return false;
    }
    auditSave(outcome.isNew);
    if (outcome.isNew && key > 0)
        TellAddedAgain();
    return true;
}

EntryFields frmnore::entered(const QString& providerId) const {
    EntryFields fields;
    fields.ApptKind = request_.ApptKind;
    fields.date = ctedate->Date();
    fields.start = ctstart->Time();
    fields.end = ctend->Time();
    fields.text = entryText();
    fields.location = cbolocation->Text();
    fields.note = cbocpt->Text() + QLatin1Char('|') + txtnotes->StoredText();
    fields.provider = providerId;
    fields.category = chosen(*cboapttype);
    if (ckAlarm->isChecked())
        fields.reminderLead = alarmLeadMinutes_ > 0 ? alarmLeadMinutes_ : UsualLeadMinutes;
    fields.status = chosen(*cbostatus);
    fields.patientId = patientTag_;
    fields.account = txtaccount->text();
    fields.homePhone = lblHPhone->text();
    fields.workPhone = lblwphone->text();
    fields.categoryColour = categoryColour_;
    fields.room = {cborooms->ItemData(), roomText(), roomUnread_};
    fields.waitId = waitOfPatient();
    return fields;
}

QString frmnore::roomText() const {
    switch (request_.ApptKind) {
        case apptkind::Patient:
            return request_.provider.name;
        case apptkind::Activity:
            return cboevents->Text();
        case apptkind::TypeSlot:
            return cbocats->Text();
        default:
            return {};
    }
}

void frmnore::auditSave(bool isNew) const {
    const QString date = ctedate->Text();
    const QString time = ctstart->Text();
    if (isNew)
        AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Add Appointment"), {},
                 QStringLiteral("Added Appointment on %1 at %2 for %3").arg(date, time, entryText()));
    else
        AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Modify Appointment"), {},
                 QStringLiteral("Modified Appointment (%1) to %2 at %3 for %4")
                     .arg(originalSlot_, date, time, entryText().left(LongestAuditedText)));
}
