#include <algorithm>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <QTouchEvent>

#include "platform/calendar/ctmday.h"
#include "platform/controls/textfield.h"
#include "platform/text/plaintext.h"

namespace {

constexpr int MostTextCharacters = 100;

}  // namespace

bool ctMDay::mayEdit(int index) {
    const int generation = generation_;
    Q_EMIT BeforeItemWork(index);
    if (generation != generation_ || !hasItem(index) || readOnly_)
        return false;
    const CalendarItem& item = std::as_const(*this).Item(index);
    return !item.ItemTextLocked && item.ItemTextColor == TextColor::Normal;
}

void ctMDay::EditItem(int index, const QString& typed) {
    editTimer_.stop();
    if (!hasItem(index) || ColumnOfItem(index) == 0)
        return;
    closeEditor(true);
    setSelectedItem(index);
    if (!hasItem(index) || !mayEdit(index))
        return;
    ScrollToItem(index);
    editedItem_ = index;
    auto* editor = new TextField(this);
    editor->SetMost(MostTextCharacters);
    editor->ShowWhole(std::as_const(*this).Item(index).ItemText);
    editor_ = editor;
    editor_->setAccessibleName(tr("Text of the item"));
    editor_->setFont(style_.text);
    editor_->installEventFilter(this);
    placeEditor();
    editor_->selectAll();
    if (!typed.isEmpty())
        editor_->insert(typed);
    editor_->show();
    editor_->setFocus();
}

void ctMDay::placeEditor() const {
    if (editor_ == nullptr)
        return;
    const PlacedItem* placed = layout_.find(editedItem_);
    QRect rect = placed != nullptr ? CardRect(editedItem_, grid_, layout_, style_, true) : ItemRect(editedItem_);
    const int needed = editor_->sizeHint().height();
    rect.setHeight(needed);
    rect.setWidth(std::max(rect.width(), style_.minColumnWidth));
    rect.moveRight(std::min(rect.right(), grid_.area.right()));
    rect.moveBottom(std::min(rect.bottom(), grid_.area.bottom()));
    editor_->setGeometry(rect);
}

bool ctMDay::IsEditing() const {
    return editor_ != nullptr;
}

void ctMDay::CommitEdit() {
    closeEditor(true);
    deliverTexts();
}

void ctMDay::closeEditor(bool commit) {
    if (editor_ == nullptr)
        return;
    auto* editor = static_cast<TextField*>(editor_);
    editor_ = nullptr;
    editor->removeEventFilter(this);
    const bool hadFocus = editor->hasFocus();
    editor->hide();
    editor->deleteLater();
    if (hadFocus)
        setFocus();
    state_.focused = hasFocus();
    update();
    if (!commit || !hasItem(editedItem_))
        return;
    CalendarItem& item = Item(editedItem_);
    const QString old = item.ItemText;
    // A text longer than the limit is cut only when the user has changed it.
    const QString text = editor->text() == OneLine(old) ? old : editor->Stored();
    if (old == text)
        return;
    item.ItemText = text;
    reportText(editedItem_, old);
}

bool ctMDay::eventFilter(QObject* watched, QEvent* event) {
    if (watched != editor_)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusOut) {
        // The line edit's own popup takes the focus and gives it back later.
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
            closeEditor(true);
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Escape:
            closeEditor(false);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            closeEditor(true);
            return true;
        default:
            return QWidget::eventFilter(watched, event);
    }
}

bool ctMDay::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress && editor_ == nullptr && !drag_) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool control = key->modifiers().testFlag(Qt::ControlModifier);
        const bool back =
            key->key() == Qt::Key_Backtab || (key->key() == Qt::Key_Tab && key->modifiers() & Qt::ShiftModifier);
        if (!control && (key->key() == Qt::Key_Tab || back) && stepItem(back ? -1 : 1)) {
            key->accept();
            return true;
        }
        if (control && (key->key() == Qt::Key_Tab || back))
            return focusNextPrevChild(!back);
    }
    if (event->type() == QEvent::ShortcutOverride && (drag_ || editor_ != nullptr) &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::TouchBegin || event->type() == QEvent::TouchUpdate ||
        event->type() == QEvent::TouchEnd || event->type() == QEvent::TouchCancel)
        return readTouch(static_cast<QTouchEvent&>(*event));
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const Hit hit = hitAt(help->pos());
        const auto* item = std::get_if<ItemHit>(&hit);
        if (item != nullptr && !drag_)
            QToolTip::showText(help->globalPos(), ToolTipOf(item->index), this, ItemRect(item->index));
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}
