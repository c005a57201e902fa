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
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

constexpr int LongestName = 255;  // appointments.cappttext
const QString ReadFailed = QStringLiteral("Error reading patient list. ");

bool takesAway(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete || event.matches(QKeySequence::Cut) ||
           event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo);
}

bool isModifier(const QKeyEvent& event) {
    return event.key() == Qt::Key_Alt || event.key() == Qt::Key_Control || event.key() == Qt::Key_Shift ||
           event.key() == Qt::Key_Meta;
}

}  // namespace

PatientBox::PatientBox(QWidget& form) : QWidget(&form), form_(form) {
    txtpatients = Named(new TextField(this), "txtpatients");
    txtpatients->SetMost(LongestName);
    txtpatients->setAccessibleName(tr("Patient"));
    txtpatients->setPlaceholderText(tr("Last name, first name"));
    // A label beside the box is none of the field's neighbours, by which a screen reader would find it.
    txtpatients->setAccessibleName(CaptionText(Session().WordUsage));
    cmdPatientList = FormButton(tr("Look &Up..."), "cmdPatientList", this);
    pnlmatches = new MatchList(*txtpatients, form);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space(8));
    row->addWidget(txtpatients, 1);
    row->addWidget(cmdPatientList);
    setFocusProxy(txtpatients);
    txtpatients->installEventFilter(this);
    due_.setSingleShot(true);
    connect(&due_, &QTimer::timeout, this, &PatientBox::lookUp);
    connect(txtpatients, &QLineEdit::textEdited, this, [this] {
        pnlmatches->Forget();
        choose(std::nullopt);
        due_.start(0);
    });
    connect(cmdPatientList, &QPushButton::clicked, this, &PatientBox::pick);
    connect(pnlmatches, &MatchList::Clicked, this, &PatientBox::take);
}

bool PatientBox::SetPatient(const QString& id) {
    try {
        if (const std::optional<PatientFacts> patient = PatientOfId(id)) {
            due_.stop();
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

bool PatientBox::IsAsking() const {
    return pnlmatches->isVisible();
}

bool PatientBox::Settle() {
    lookUpNow();
    const bool seen = seen_ && pnlmatches->IsShown();
    if (!pnlmatches->Ask() || (seen && takesMarked()))
        return true;
    txtpatients->setFocus();
    return false;
}

bool PatientBox::CloseMatches() {
    const bool open = pnlmatches->isVisible();
    pnlmatches->Forget();
    return open;
}

void PatientBox::PlaceMatches() {
    pnlmatches->PlaceBelowBox();
}

void PatientBox::choose(const std::optional<PatientFacts>& patient) {
    const QString before = patient_ ? patient_->id : QString();
    patient_ = patient;
    if (before != (patient_ ? patient_->id : QString()))
        Q_EMIT Changed();
}

void PatientBox::lookUpNow() {
    if (!due_.isActive())
        return;
    due_.stop();
    lookUp();
}

// What stands left of the caret is completed; taking characters away completes nothing and leaves nobody chosen.
void PatientBox::lookUp() {
    const QString typed = txtpatients->text().left(txtpatients->cursorPosition());
    if (std::exchange(takesAway_, false) || typed.isEmpty())
        return;
    std::optional<PatientFacts> found;
    try {
        found = FindPatient(typed);
    } catch (const db::DatabaseError& error) {
        TellError(ReadFailed, error);
    }
    if (found) {
        txtpatients->setText(found->name);
        // From the end to what was typed, so that the next key replaces the rest and the beginning stays in sight.
        txtpatients->setSelection(static_cast<int>(found->name.size()),
                                  -static_cast<int>(found->name.size() - typed.size()));
        pnlmatches->LookFor(typed);
    }
    choose(found);
}

void PatientBox::take(const QString& id) {
    txtpatients->setFocus();
    if (SetPatient(id))
        settle(true);
}

void PatientBox::pick() {
    frmspatnt dialog(&form_);
    if (ShowModal(dialog) == QDialog::Accepted)
        take(dialog.ChosenId());
}

// A key of a menu or a button comes as ShortcutOverride alone, and what it sets off may come later than the list.
bool PatientBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (!isModifier(key))
            seen_ = pnlmatches->IsShown();
        if (event->type() == QEvent::KeyPress) {
            // A key that is no letter is for what the letters have brought about.
            if (key.text().isEmpty() || !key.text().front().isPrint())
                lookUpNow();
            takesAway_ = takesAway(key);
            if (takesKey(key))
                return true;
        }
    }
    if (event->type() == QEvent::FocusOut && form_.isVisible()) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            leave(reason != Qt::MouseFocusReason);
    }
    return QWidget::eventFilter(watched, event);
}

bool PatientBox::takesKey(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return takesEnter();
    if (key.key() == Qt::Key_Down)
        pnlmatches->Ask();
    const bool leaves = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    if (leaves && !pnlmatches->IsShown() && pnlmatches->Ask())
        return true;
    return pnlmatches->isVisible() && pnlmatches->MoveMark(key);
}

// Enter that chooses nobody from the list goes on to the form.
bool PatientBox::takesEnter() {
    if (!pnlmatches->Ask()) {
        settle(false);
        return false;
    }
    if (seen_ && takesMarked())
        settle(true);
    return true;
}

// One who cannot be read leaves the list in sight, and nobody chosen in his place.
bool PatientBox::takesMarked() {
    const QString marked = pnlmatches->MarkedId();
    if (!(patient_ && patient_->id == marked) && !SetPatient(marked))
        return false;
    pnlmatches->Forget();
    return true;
}

// Where several fit and nobody has seen them, the list stays in sight and nobody is chosen yet.
void PatientBox::leave(bool byKey) {
    lookUpNow();
    const bool seen = pnlmatches->IsShown() && (seen_ || !byKey);
    if (!pnlmatches->Ask() || (seen && takesMarked()))
        settle(false);
    else
        QTimer::singleShot(0, txtpatients, [this] { txtpatients->setFocus(); });
}

void PatientBox::settle(bool byChoice) {
    pnlmatches->Forget();
    Q_EMIT Settled(byChoice);
}
