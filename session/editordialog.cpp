#include "session/editordialog.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "platform/controls/formstate.h"
#include "platform/desktop/desktop.h"

bool EditorDialog::IsChanged() const {
    return firstState_ && *firstState_ != FormState(*this);
}

void EditorDialog::closeUnsaved() {
    unsaved_ = true;
    accept();
}

void EditorDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    unsaved_ = false;
    if (!firstState_)
        firstState_ = FormState(*this);
}

QString EditorDialog::giveUpQuestion() const {
    return tr("Close without saving what you have changed?");
}

bool EditorDialog::mayGiveUp() const {
    return !IsChanged() || MsgBox(giveUpQuestion(), YesNoWarningBox, windowTitle()) == Answer::Yes;
}

void EditorDialog::keyPressEvent(QKeyEvent* event) {
    if (!event->matches(QKeySequence::Cancel)) {
        QDialog::keyPressEvent(event);
        return;
    }
    if (!takesEscape() && mayGiveUp())
        reject();
}

void EditorDialog::closeEvent(QCloseEvent* event) {
    if (isVisible())
        takesEscape();
    if (isVisible() && !mayGiveUp())
        event->ignore();
    else
        QDialog::closeEvent(event);
}
