#include "appointments/patientbox.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <utility>

#include "appointments/frmspatnt.h"
#include "appointments/matchlist.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"

namespace {

constexpr int LongestName = 255;
const QString ReadFailed = QStringLiteral("Error reading patient list. ");

bool takesAway(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete || event.matches(QKeySequence::Cut) ||
           event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo);
}

}  // namespace

PatientBox::PatientBox(QWidget& form) : QWidget(&form), form_(form) {
    txtpatients = Named(new TextField(this), "txtpatients");
    txtpatients->SetMost(LongestName);
    txtpatients->setAccessibleName(tr("Patient"));
    txtpatients->setPlaceholderText(tr("Last name, first name"));
    cmdPatientList = FormButton(tr("Look &Up..."), "cmdPatientList", this);
    pnlmatches = new MatchList(*txtpatients, form);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space(8));
    row->addWidget(txtpatients, 1);
    row->addWidget(cmdPatientList);
    setFocusProxy(txtpatients);
    txtpatients->installEventFilter(this);
    connect(txtpatients, &QLineEdit::textEdited, this, &PatientBox::lookUp);
    connect(cmdPatientList, &QPushButton::clicked, this, &PatientBox::pick);
    connect(pnlmatches, &MatchList::Clicked, this, &PatientBox::take);
}

bool PatientBox::SetPatient(const QString& id) {
    try {
        if (const std::optional<PatientFacts> patient = PatientOfId(id)) {
            txtpatients->setText(patient->name);
            pnlmatches->Forget();
            choose(patient);
            return true;
        }
        MsgBox(QStringLiteral("Patient not found. Another user may have deleted this patient."), ExclamationBox,
               form_.windowTitle());
    } catch (const db::DatabaseError& error) {
        TellError(ReadFailed, error);
    }
    return false;
}

void PatientBox::ShowName(const QString& name) {
    txtpatients->setText(name);
    choose(std::nullopt);
}

void PatientBox::choose(const std::optional<PatientFacts>& patient) {
    const QString before = patient_ ? patient_->id : QString();
    patient_ = patient;
    if (before != (patient_ ? patient_->id : QString()))
        Q_EMIT Changed();
}

// What stands left of the caret is completed; taking characters away completes nothing and leaves nobody chosen.
void PatientBox::lookUp() {
    const bool takenAway = std::exchange(takesAway_, false);
    const QString typed = txtpatients->text().left(txtpatients->cursorPosition());
    std::optional<PatientFacts> patient;
    if (!takenAway && !typed.isEmpty()) {
        try {
            patient = FindPatient(typed);
        } catch (const db::DatabaseError& error) {
            TellError(ReadFailed, error);
        }
    }
    choose(patient);
    if (!patient)
        return pnlmatches->Forget();
    txtpatients->setText(patient->name);
    txtpatients->setSelection(static_cast<int>(patient->name.size()),
                              -static_cast<int>(patient->name.size() - typed.size()));
    pnlmatches->LookFor(typed);
}

void PatientBox::take(const QString& id) {
    if (SetPatient(id))
        txtpatients->setFocus();
}

void PatientBox::pick() {
    frmspatnt dialog(&form_);
    if (ShowModal(dialog) == QDialog::Accepted)
        take(dialog.ChosenId());
}

bool PatientBox::Settle() {
    if (!pnlmatches->Ask())
        return true;
    txtpatients->setFocus();
    return false;
}

bool PatientBox::CloseMatches() {
    const bool open = pnlmatches->isVisible();
    pnlmatches->Forget();
    return open;
}

bool PatientBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        takesAway_ = takesAway(key);
        if (keyForMatches(key))
            return true;
    }
    // Whoever goes on to another field has seen the list, and keeps the one whom the box holds or the marked one.
    if (event->type() == QEvent::FocusOut && form_.isVisible()) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            if (pnlmatches->IsShown() && (!patient_ || pnlmatches->MarkedId() != patient_->id))
                SetPatient(pnlmatches->MarkedId());
            pnlmatches->Forget();
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool PatientBox::keyForMatches(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        const bool wasShown = pnlmatches->IsShown();
        if (!pnlmatches->Ask())
            return false;
        if (wasShown)
            take(pnlmatches->MarkedId());
        return true;
    }
    if (key.key() == Qt::Key_Down)
        pnlmatches->Ask();
    if (pnlmatches->isVisible() && pnlmatches->MoveMark(key))
        return true;
    const bool leaves = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    return leaves && !pnlmatches->IsShown() && pnlmatches->Ask();
}
