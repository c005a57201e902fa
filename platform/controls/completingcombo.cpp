#include "platform/controls/completingcombo.h"

#include <algorithm>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

#include "platform/controls/textfield.h"
#include "platform/text/plaintext.h"

namespace {

constexpr int MostItemsShown = 16;

bool takesTextAway(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete || event.matches(QKeySequence::Cut) ||
           event.matches(QKeySequence::Undo);
}

TextField& fieldOf(const CompletingCombo& box) {
    return static_cast<TextField&>(*box.lineEdit());
}

}  // namespace

CompletingCombo::CompletingCombo(Entry entry, QWidget* parent) : QComboBox(parent), entry_(entry) {
    auto* field = new TextField(this);
    setLineEdit(field);
    field->SetWholeTexts([this](const QString& text) { return FindExact(text) >= 0; });
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setMaxVisibleItems(MostItemsShown);
    connect(lineEdit(), &QLineEdit::textEdited, this, &CompletingCombo::complete);
    connect(this, &QComboBox::currentIndexChanged, this, &CompletingCombo::noteChange);
    connect(this, &QComboBox::activated, this, [this] {
        typed_ = currentText();
        if (stepping_)
            return;
        told_ = -1;  // Picking the selected item once more chooses it again.
        Settle();
    });
}

void CompletingCombo::AddItem(const QString& text, int itemData, const QIcon& icon) {
    const QString shown = currentText();
    const int index = currentIndex();
    {
        // A combo box selects its first item by itself.
        const QSignalBlocker quiet(this);
        addItem(icon, OneLine(text), itemData);
    }
    show(shown, index);
}

void CompletingCombo::SetText(const QString& text) {
    const QString line = OneLine(text);
    show(line, FindExact(line));
    told_ = currentIndex();
}

void CompletingCombo::SetListIndex(int index) {
    show(itemText(index), index);
    told_ = currentIndex();
}

void CompletingCombo::SetAccessibleName(const QString& name) {
    setAccessibleName(name);
    lineEdit()->setAccessibleName(name);
}

void CompletingCombo::SetMaxLength(int characters) {
    fieldOf(*this).SetMost(characters);
}

int CompletingCombo::FindPrefix(const QString& text) const {
    return text.isEmpty() ? -1 : findText(text, Qt::MatchStartsWith);
}

void CompletingCombo::keyPressEvent(QKeyEvent* event) {
    const QScopedValueRollback stepping(stepping_, true);
    const QScopedValueRollback removing(removing_, takesTextAway(*event));
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Settle();
    QComboBox::keyPressEvent(event);
}

void CompletingCombo::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    // Another window or the box's own list came to the front, and the user will come back.
    if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
        return;
    Settle();
    Q_EMIT LostFocus(event->reason());
}

// The wheel scrolls the form, because nobody would notice a value that the wheel changed in passing.
void CompletingCombo::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void CompletingCombo::complete(const QString& edited) {
    const bool atEnd = lineEdit()->cursorPosition() == edited.size();
    const QString before = cleaned(edited.left(lineEdit()->cursorPosition()));
    QString typed = cleaned(edited);
    if (entry_ == Entry::ListOnly && !typed.isEmpty() && FindPrefix(typed) < 0) {
        QApplication::beep();
        typed = typed_;
    }
    const int prefix = removing_ || !atEnd ? -1 : FindPrefix(typed);
    if (prefix < 0) {
        show(typed, FindExact(typed));
        lineEdit()->setCursorPosition(static_cast<int>(std::min(before.size(), typed.size())));
        return;
    }
    show(itemText(prefix), prefix);
    typed_ = typed;
    const int end = static_cast<int>(itemText(prefix).size());
    lineEdit()->setSelection(end, static_cast<int>(typed.size()) - end);
}

void CompletingCombo::show(const QString& text, int index) {
    {
        // Selecting an item sets the text, and selecting none empties it, so the two change as one.
        const QSignalBlocker quiet(this);
        if (index != currentIndex())
            setCurrentIndex(index);
        if (lineEdit()->text() != text)
            fieldOf(*this).ShowWhole(text);
    }
    typed_ = text;
    noteChange();
}

void CompletingCombo::noteChange() {
    if (shownText_ == currentText() && shownIndex_ == currentIndex())
        return;
    shownText_ = currentText();
    shownIndex_ = currentIndex();
    Q_EMIT Change();
}

void CompletingCombo::Settle() {
    if (entry_ == Entry::ListOnly && currentIndex() < 0 && !currentText().isEmpty())
        show(itemText(FindPrefix(currentText())), FindPrefix(currentText()));
    if (currentIndex() == told_)
        return;
    told_ = currentIndex();
    if (told_ >= 0)
        Q_EMIT Click(told_);
}

QString CompletingCombo::cleaned(const QString& text) const {
    QString kept = text;
    return kept.removeIf([this](QChar letter) { return forbidden_.contains(letter); });
}
