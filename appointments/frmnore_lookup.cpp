#include <initializer_list>
#include <limits>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <utility>

#include "appointments/frmnore.h"
#include "appointments/frmspatnt.h"
#include "appointments/matchlist.h"
#include "appointments/patientalerts.h"
#include "appointments/patientfiller.h"
#include "appointments/patientlist.h"
#include "appointments/patientrows.h"
#include "appointments/patientsearch.h"
#include "people/frmnewpat.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/database/readtogether.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

const QString Title = QStringLiteral("Solvane");
constexpr int NameColumn = 1;

bool takesAway(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete || event.matches(QKeySequence::Cut) ||
           event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo);
}

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

int frmnore::QuickLookUp = std::numeric_limits<int>::max();

void frmnore::connectLookUp() {
    txtpatients->installEventFilter(this);
    pnlpatlist->installEventFilter(this);
    connect(pnlmatches, &MatchList::Clicked, this, &frmnore::takePatientOfId);
    connect(txtpatients, &QLineEdit::textEdited, this, &frmnore::patientBoxEdited);
    lookUpDue_.setSingleShot(true);
    connect(&lookUpDue_, &QTimer::timeout, this, [this] { LookupPatient(txtpatients->text()); });
    connect(cmdpatients, &QToolButton::clicked, this, &frmnore::cmdpatients_Click);
    connect(cmdPatientList, &QPushButton::clicked, this, &frmnore::cmdPatientList_Click);
    connect(ctList1, &ctList::RowActivated, this, &frmnore::takeFromList);
    connect(txtfind, &QLineEdit::textChanged, this, [this](const QString& text) {
        cmdfind->setEnabled(!text.isEmpty());
        filterPatients();
    });
    PressOnEnter(*txtfind, *cmdfind);
    connect(cmdfind, &QPushButton::clicked, this, [this] {
        patientFiller_->Finish();
        FindInPatientList(*ctList1, txtfind->text());
    });
    for (QPushButton* button : {cmdnew, cmdnewpat})
        connect(button, &QPushButton::clicked, this, &frmnore::addTypedPatient);
    patientFiller_ = new PatientFiller(*ctList1, this);
    connect(patientFiller_, &PatientFiller::Progress, this, [this] { lblcount->setText(PatientCount(*ctList1)); });
}

bool frmnore::eventFilter(QObject* watched, QEvent* event) {
    if (watched == pnlpatlist && eventOfPatientList(*event))
        return true;
    if (watched == txtpatients && event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        // A key that is no letter is for what the letters have brought about.
        if (key.text().isEmpty() || !key.text().front().isPrint())
            settleLookUp();
        takesAway_ = takesAway(key);
        if (keyForMatches(key))
            return true;
    }
    if (watched == txtpatients && event->type() == QEvent::FocusOut)
        focusLeavesBox(static_cast<QFocusEvent*>(event)->reason());
    return QDialog::eventFilter(watched, event);
}

// A box or a menu that opens over the form leaves the list as it stands.
void frmnore::focusLeavesBox(Qt::FocusReason reason) {
    settleLookUp();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason)
        return;
    const bool chosen = !isVisible() || takesMarked();
    if (chosen)
        pnlmatches->Forget();
    // What is said must wait until the focus has come to where it goes.
    if (leavesPatientBox())
        QTimer::singleShot(0, this, [this, chosen] { chosen ? leavePatientBox() : txtpatients->setFocus(); });
}

// Whoever marked another than the box holds meant that one. Where several fit unseen, or the marked one cannot be read,
// the list stays in sight and nobody stands chosen yet.
bool frmnore::takesMarked() {
    if (!pnlmatches->IsShown())
        return !pnlmatches->Ask();
    const QString marked = pnlmatches->MarkedId();
    return marked == patientTag_ || choosePatientOfId(marked);
}

bool frmnore::keyForMatches(const QKeyEvent& key) {
    if (isEnter(key))
        return enterForMatches();
    if (key.key() == Qt::Key_Down)
        pnlmatches->Ask();
    if (pnlmatches->isVisible() && pnlmatches->MoveMark(key))
        return true;
    const bool leaves = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    return leaves && !pnlmatches->IsShown() && pnlmatches->Ask();
}

// Where several fit, the first Enter takes one of them, and only the next one is for OK. Nobody is taken from a list
// that came with this very key.
bool frmnore::enterForMatches() {
    const bool wasShown = pnlmatches->IsShown();
    if (!pnlmatches->Ask())
        return false;
    if (wasShown)
        takePatientOfId(pnlmatches->MarkedId());
    return true;
}

// OK by whichever key, or by a click that came before the list.
bool frmnore::asksForPatient() {
    settleLookUp();
    if (txtpatients->hasFocus())
        return enterForMatches();
    if (!pnlmatches->isVisible())
        return false;
    txtpatients->setFocus();
    return true;
}

// Enter that no part of the list has taken must not reach the form.
bool frmnore::eventOfPatientList(const QEvent& event) {
    if (event.type() == QEvent::Show || event.type() == QEvent::Hide)
        cmdOk->setEnabled(event.type() == QEvent::Hide);
    // What was looked for in the list is nothing of the appointment.
    if (event.type() == QEvent::Hide)
        txtfind->clear();
    if (event.type() != QEvent::KeyPress || !isEnter(static_cast<const QKeyEvent&>(event)))
        return false;
    for (QPushButton* button : {cmdfind, cmdnew})
        if (button->hasFocus())
            button->click();
    return true;
}

// Whether the user goes on to another field: not to a button that ends the form or finds the patient in another way,
// nor because the form goes.
bool frmnore::leavesPatientBox() const {
    if (txtpatients->isReadOnly() || !isVisible())
        return false;
    const QWidget* next = focusWidget();
    for (const QWidget* elsewhere :
         std::initializer_list<const QWidget*>{cmdOk, cmdCancel, cmdpatients, cmdPatientList, cmdnewpat, pnlpatlist})
        if (next == elsewhere || elsewhere->isAncestorOf(next))
            return false;
    return next != txtpatients;
}

void frmnore::leavePatientBox() {
    if (!isVisible() || txtpatients->hasFocus())
        return;
    if (!txtpatients->text().isEmpty() && patientTag_.isEmpty()) {
        MsgBox(QStringLiteral("Name entered is not in database. Use lookup, try again, or add New Patient."),
               ExclamationBox, Title);
        txtpatients->clear();
        showFacts({});
        txtpatients->setFocus();
        return;
    }
    settlePatient();
}

// Once for each choice, by whichever way the box is left.
void frmnore::settlePatient() {
    if (txtpatients->isReadOnly() || patientTag_.isEmpty() || patientTag_ == settledTag_)
        return;
    settledTag_ = patientTag_;
    const db::ReadTogether together(Session().Connection,
                                    {AuthInfoStatement(patientTag_, ctedate->Date()),
                                     PatientAlertStatement(patientTag_, QString::fromLatin1(AppointmentAlert))});
    PatientChosen();
    ShowPatientAlerts(patientTag_, QString::fromLatin1(AppointmentAlert));
}

// On a slow line the letters come quicker than the answers: each look-up then takes all that have come until it starts,
// and until it is made nobody is chosen.
void frmnore::patientBoxEdited(const QString& text) {
    lookUpDue_.stop();
    if (!lookUpIsSlow_ || takesAway_) {
        LookupPatient(text);
        return;
    }
    pnlmatches->Forget();
    showFacts({});
    lookUpDue_.start(0);
}

void frmnore::settleLookUp() {
    if (!lookUpDue_.isActive())
        return;
    lookUpDue_.stop();
    LookupPatient(txtpatients->text());
}

// `text` is what the box holds after the user's edit: typed, pasted or composed. What stands left of the caret is
// completed; taking characters away completes nothing, and leaves no patient chosen whose name is not there.
void frmnore::LookupPatient(const QString& text) {
    const bool takenAway = std::exchange(takesAway_, false);
    const QString typed = text.left(txtpatients->cursorPosition());
    std::optional<PatientFacts> patient;
    if (!takenAway && txtpatients->cursorPosition() > 0) {
        QElapsedTimer clock;
        clock.start();
        try {
            patient = FindPatient(typed);
        } catch (const db::DatabaseError& error) {
            TellError(QStringLiteral("Error reading patient list. "), error);
        }
        lookUpIsSlow_ = clock.elapsed() > QuickLookUp;
    }
    if (!patient) {
        pnlmatches->Forget();
        showFacts({});
        return;
    }
    txtpatients->setText(patient->name);
    // From the end to what was typed, so that the next key replaces the rest and the beginning stays in sight.
    txtpatients->setSelection(static_cast<int>(patient->name.size()),
                              -static_cast<int>(patient->name.size() - typed.size()));
    showFacts(*patient);
    pnlmatches->LookFor(typed);
}

void frmnore::showFacts(const PatientFacts& patient) {
    SetPatientTag(patient.id);
    txtaccount->setText(patient.account);
    lblHPhone->setText(patient.homePhone);
    lblwphone->setText(patient.workPhone);
    lblcphone->setText(patient.otherPhone);
    lblemail->setText(patient.email);
    cbocpt->SetText({});
    if (!patient.cpt.isEmpty())
        cbocpt->SetListIndex(cbocpt->FindPrefix(patient.cpt));
}

void frmnore::takePatientOfId(const QString& id) {
    if (choosePatientOfId(id))
        settlePatient();
}

bool frmnore::choosePatientOfId(const QString& id) {
    try {
        if (const std::optional<PatientFacts> patient = PatientOfId(id)) {
            txtpatients->setText(patient->name);
            showFacts(*patient);
            pnlpatlist->hide();
            pnlmatches->Forget();
            return true;
        }
        MsgBox(QStringLiteral("Patient not found. Another user may have deleted this patient."), ExclamationBox, Title);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading patient list. "), error);
    }
    return false;
}

void frmnore::cmdpatients_Click() {
    if (pnlpatlist->isVisible()) {
        pnlpatlist->hide();
        txtpatients->setFocus();
        return;
    }
    showPatientList();
}

void frmnore::showPatientList() {
    settleLookUp();
    if (ctList1->RowCount() == 0)
        patientFiller_->loadpatients();
    pnlmatches->Forget();
    placePatientList();
    pnlpatlist->show();
    ctList1->setFocus();
    startPatientList();
}

// The whole list must be there before some of it is hidden.
void frmnore::filterPatients() {
    patientFiller_->Finish();
    ctList1->SetFilter(txtfind->text().trimmed(), NameColumn);
    lblcount->setText(PatientCount(*ctList1));
}

void frmnore::startPatientList() {
    patientFiller_->StartAt(patientTag_, txtpatients->text());
}

void frmnore::cmdPatientList_Click() {
    frmspatnt dialog(this);
    if (ShowModal(dialog) == Accepted)
        takePatientOfId(dialog.ChosenId());
}

void frmnore::takeFromList(int row) {
    takePatientOfId(ctList1->ItemData(row).toString());
    ctstart->setFocus();
}

namespace {

/// Returns what a typed name tells of a new patient. A name with a comma is "last, first", one with a blank
/// "first last". A single word is a last name for `lone`, and tells nothing otherwise.
frmnewpat::Names splitName(const QString& typed, bool lone) {
    if (const qsizetype comma = typed.indexOf(u','); comma >= 0)
        return {typed.left(comma).trimmed(), typed.mid(comma + 1).trimmed()};
    if (const qsizetype blank = typed.indexOf(u' '); blank >= 0)
        return {typed.mid(blank + 1).trimmed(), typed.left(blank).trimmed()};
    return {lone ? typed : QString(), {}};
}

}  // namespace

bool frmnore::AddNewPatient() {
    return addPatient(splitName(txtpatients->text(), false));
}

// A patient who was chosen before is not the one to be added.
void frmnore::addTypedPatient() {
    addPatient(patientTag_.isEmpty() ? splitName(txtpatients->text().simplified(), true) : frmnewpat::Names());
}

bool frmnore::addPatient(frmnewpat::Names known) {
    known.provider = request_.provider.id;
    frmnewpat dialog(known, this);
    ShowModal(dialog);
    if (!dialog.NewPatientId())
        return false;
    // The list was read before there was this patient.
    ctList1->Clear();
    takePatientOfId(*dialog.NewPatientId());
    return true;
}

// Escape first closes the list.
bool frmnore::closePatientList() {
    if (pnlmatches->isVisible()) {
        pnlmatches->Forget();
        return true;
    }
    if (!pnlpatlist->isVisible())
        return false;
    pnlpatlist->hide();
    txtpatients->setFocus();
    return true;
}
