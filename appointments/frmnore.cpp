#include "appointments/frmnore.h"

#include <algorithm>
#include <initializer_list>
#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

#include "appointments/durationlabel.h"
#include "appointments/editorparts.h"
#include "appointments/patientalerts.h"
#include "appointments/patientrows.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "platform/calendar/colour.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/notefield.h"
#include "platform/desktop/desktop.h"
#include "rooms/frmroomview.h"
#include "session/session.h"

namespace {

constexpr int HourMinutes = 60;

}  // namespace

frmnore::frmnore(const EditorRequest& request, QWidget* parent) : EditorDialog(parent), request_(request) {
    setObjectName(QStringLiteral("frmnore"));
    setWindowTitle(QStringLiteral("New Appointment"));
    buildForm();
    connectFields();
    load();
    headForm();
    alignLabels();
    orderFields();
    FitToScreen(*this);
}

// The focus leaves its field when the form goes, which must still find the whole form.
frmnore::~frmnore() {
    hide();
}

void frmnore::SetPatientTag(const QString& patientId) {
    if (patientTag_ == patientId)
        return;
    patientTag_ = patientId;
    emailTag_.clear();
    lblAuthorization->clear();
    dirty = true;
}

void frmnore::PatientChosen() {
    showAuthorization();
    if (ckemail->isChecked() && emailTag_.isEmpty())
        ckemail_Click();
}

void frmnore::reject() {
    if (closePatientList())
        return;
    givenUp_ = request_.IsNewAppt;
    EditorDialog::reject();
}

QString frmnore::Subject() const {
    return EntrySubject(ctedate->Text(), ctstart->Text());
}

bool frmnore::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        availOrEventTyped_ = false;
        locationTyped_ = false;
    }
    return EditorDialog::event(event);
}

void frmnore::connectFields() {
    const auto setDirty = [this] { dirty = true; };
    for (const ctDEdit* field : {ctedate, ctstart, ctend})
        connect(field, &ctDEdit::Change, this, setDirty);
    for (const CompletingCombo* box :
         {cbocpt, cboapttype, cbocats, cboevents, cboavail, cbolocation, cborooms, cbostatus})
        connect(box, &CompletingCombo::Change, this, setDirty);
    for (const QCheckBox* box : {ckAlarm, ckemail, SSCheck1})
        connect(box, &QCheckBox::toggled, this, setDirty);
    for (const QLineEdit* box : {txtpatients, txtaccount})
        connect(box, &QLineEdit::textChanged, this, setDirty);
    connect(txtnotes, &NoteField::textChanged, this, setDirty);

    connect(ctedate, &ctDEdit::Change, this, &frmnore::showWeekday);
    for (const ctDEdit* time : {ctstart, ctend})
        connect(time, &ctDEdit::Change, this, &frmnore::showDuration);
    // Once a date stands: each digit of it would be a day of its own. A message box ends the editing too.
    connect(ctedate, &ctDEdit::editingFinished, this, [this] {
        if (ctedate->Date() != authorizationDate_)
            showAuthorization();
    });
    connect(SSCheck1, &QCheckBox::clicked, this, &frmnore::SSCheck1_Click);
    connect(cbocpt, &CompletingCombo::Click, this, &frmnore::cbocpt_Click);
    connect(cbocats, &CompletingCombo::Change, this, &frmnore::showCategoryColour);
    connect(cbostatus, &CompletingCombo::Click, this, &frmnore::cbostatus_Click);
    connect(ckemail, &QCheckBox::clicked, this, &frmnore::ckemail_Click);
    for (const CompletingCombo* box : {cboavail, cboevents})
        connect(box, &CompletingCombo::Change, this, [this] { availOrEventTyped_ = true; });
    connect(cbolocation, &CompletingCombo::Change, this, [this] { locationTyped_ = true; });
    for (const CompletingCombo* box : {cboavail, cboevents, cbolocation})
        connect(box, &CompletingCombo::LostFocus, this, &frmnore::leaveList);
    connect(cmdrooms, &QPushButton::clicked, this, &frmnore::cmdrooms_Click);
    connectLookUp();
    connect(cmdOk, &QPushButton::clicked, this, &frmnore::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmnore::reject);
}

// Only a choice made in the list moves on to the end time; leaving the box goes where the user goes.
void frmnore::cbocpt_Click() {
    const int minutes = cbocpt->ItemData();
    if (minutes < 1 || ctstart->Time() < 0)
        return;
    ctend->setTime(std::min(ctstart->Time() + minutes, MinutesPerDay));
    if (cbocpt->hasFocus() && ctend->isEnabled())
        ctend->setFocus();
}

void frmnore::cmdrooms_Click() {
    frmRoomView rooms({ctedate->Date(), ctstart->Time(), ctend->Time()}, ctedate->Text(), this);
    if (ShowModal(rooms) == Accepted)
        cborooms->SetListIndex(cborooms->FindItemData(rooms.ChosenRoom()));
}

void frmnore::cbostatus_Click() {
    if (cbostatus->ItemData() == ncolor::CheckedIn)
        ShowPatientAlerts(patientTag_, QString::fromLatin1(CheckInAlert));
}

void frmnore::ckemail_Click() {
    if (!ckemail->isChecked() || patientTag_.isEmpty())
        return;
    emailTag_ = checkForEmailAddress(patientTag_);
    if (!emailTag_.isEmpty())
        return;
    MsgBox(QStringLiteral("No e-mail address entered for this patient."), InformationBox, QStringLiteral("Solvane"));
    ckemail->setChecked(false);
}

void frmnore::SSCheck1_Click() {
    if (!SSCheck1->isChecked())
        return;
    ctstart->setTime(Session().DayStartHour * HourMinutes);
    ctend->setTime(Session().DayEndHour * HourMinutes);
}

void frmnore::showWeekday() {
    const QDate date = ctedate->Date();
    lblweekday->setText(date.isValid() ? QLocale::c().dayName(date.dayOfWeek()) : QString());
}

void frmnore::showDuration() {
    lblduration->ShowTimes(ctstart->Time(), ctend->Time());
}

void frmnore::showCategoryColour() {
    if (cbocats->ListIndex() < 0)
        return;
    categoryColour_ = cbocats->ItemData();
    QPalette palette = lblaptcolor->palette();
    palette.setColor(lblaptcolor->backgroundRole(), ColorFromWindows(categoryColour_));
    lblaptcolor->setPalette(palette);
}

void frmnore::showAuthorization() {
    const QDate date = authorizationDate_ = ctedate->Date();
    if (patientTag_.isEmpty() || !date.isValid())
        lblAuthorization->clear();
    else
        lblAuthorization->setText(GetAuthInfo(patientTag_, date));
}
