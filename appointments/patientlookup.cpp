#include "appointments/patientlookup.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>
#include <utility>

#include "appointments/matchlist.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"

namespace {

bool takesCharactersAway(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete || event.matches(QKeySequence::Cut) ||
           event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo);
}

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

PatientLookUp::PatientLookUp(QLineEdit& box, QWidget& form)
    : QObject(&box), box_(box), form_(form), matches_(new MatchList(box, form)) {
    box.installEventFilter(this);
    due_.setSingleShot(true);
    connect(&due_, &QTimer::timeout, this, &PatientLookUp::lookUp);
    connect(&box, &QLineEdit::textEdited, this, [this] {
        matches_->Forget();
        setPatient(std::nullopt);
        due_.start(0);
    });
    connect(matches_, &MatchList::Clicked, this, &PatientLookUp::Choose);
}

void PatientLookUp::Choose(const QString& id) {
    take(id);
    settle(true);
}

bool PatientLookUp::IsAsking() const {
    return matches_->isVisible();
}

bool PatientLookUp::CloseList() {
    const bool wasOpen = matches_->isVisible();
    matches_->Forget();
    return wasOpen;
}

void PatientLookUp::PlaceList() {
    matches_->PlaceBelowBox();
}

bool PatientLookUp::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        // A key that is no letter is for what the letters have brought about.
        if (key.text().isEmpty() || !key.text().front().isPrint())
            lookUpNow();
        takesAway_ = takesCharactersAway(key);
        if (takesKey(key))
            return true;
    }
    if (event->type() == QEvent::FocusOut && form_.isVisible()) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            leave();
        }
    }
    return QObject::eventFilter(watched, event);
}

bool PatientLookUp::takesKey(const QKeyEvent& key) {
    const bool wasShown = matches_->IsShown();
    if (isEnter(key)) {
        if (!asksForOne(wasShown))
            settle(true);
        return true;
    }
    if (key.key() == Qt::Key_Down)
        matches_->Ask();
    const bool leaves = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    if (leaves && !wasShown && matches_->Ask())
        return true;
    return matches_->isVisible() && matches_->MoveMark(key);
}

// Where several fit and nobody has seen them, the list stays in sight and nobody is chosen yet.
void PatientLookUp::leave() {
    lookUpNow();
    const bool wasShown = matches_->IsShown();
    if (!matches_->Ask())
        return settle(false);
    if (!wasShown) {
        QTimer::singleShot(0, &box_, [this] { box_.setFocus(); });
        return;
    }
    take(matches_->MarkedId());
    settle(false);
}

// Nobody is taken from a list that came with this very key.
bool PatientLookUp::asksForOne(bool wasShown) {
    if (!matches_->Ask())
        return false;
    if (wasShown)
        take(matches_->MarkedId());
    return !wasShown;
}

void PatientLookUp::lookUpNow() {
    if (!due_.isActive())
        return;
    due_.stop();
    lookUp();
}

void PatientLookUp::lookUp() {
    const QString typed = box_.text().left(box_.cursorPosition());
    if (std::exchange(takesAway_, false) || typed.isEmpty())
        return;
    std::optional<PatientFacts> found;
    try {
        found = FindPatient(typed);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading patient list. "), error);
    }
    if (found) {
        box_.setText(found->name);
        // From the end to what was typed, so that the next key replaces the rest and the beginning stays in sight.
        box_.setSelection(static_cast<int>(found->name.size()), -static_cast<int>(found->name.size() - typed.size()));
        matches_->LookFor(typed);
    }
    setPatient(found);
}

void PatientLookUp::take(const QString& id) {
    if (patient_ && patient_->id == id)
        return;
    try {
        if (const std::optional<PatientFacts> patient = PatientOfId(id)) {
            box_.setText(patient->name);
            setPatient(patient);
            return;
        }
        MsgBox(QStringLiteral("Patient not found. Another user may have deleted this patient."), ExclamationBox,
               QStringLiteral("Solvane"));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading patient list. "), error);
    }
}

void PatientLookUp::settle(bool byEnter) {
    matches_->Forget();
    Q_EMIT Settled(byEnter);
}

void PatientLookUp::setPatient(const std::optional<PatientFacts>& patient) {
    const QString before = patient_ ? patient_->id : QString();
    patient_ = patient;
    if (before != (patient ? patient->id : QString()))
        Q_EMIT Changed();
}
