#include "platform/controls/ctmedit.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QToolTip>

#include "platform/controls/fieldflag.h"
#include "platform/controls/maskedtext.h"
#include "platform/text/plaintext.h"

ctMEdit::ctMEdit(QWidget* parent) : TextField(parent), flag_(new FieldFlag(*this, *this)) {
    connect(this, &QLineEdit::textChanged, this, &ctMEdit::putIntoForm);
}

void ctMEdit::setMask(const QString& mask, const QString& extension) {
    const QString raw = Raw();
    mask_ = mask.trimmed();
    extension_ = mask_.isEmpty() ? QString() : extension;
    setPlaceholderText(mask::Hint(mask_));
    setText(raw);
    putIntoForm();
    updateGeometry();
}

QString ctMEdit::Raw() const {
    return mask_.isEmpty() ? text() : mask::Raw(wholeMask(), text()).value_or(text());
}

bool ctMEdit::IsFilled() const {
    if (mask_.isEmpty())
        return !IsEmpty();
    const std::optional<QString> raw = mask::Raw(wholeMask(), text());
    return raw && raw->size() >= mask::Places(mask_);
}

QString ctMEdit::ErrorTip() const {
    return flag_->complaint();
}

QSize ctMEdit::sizeHint() const {
    QSize size = TextField::sizeHint();
    if (!mask_.isEmpty()) {
        QString widest = wholeMask();
        widest.replace(QLatin1Char('#'), QLatin1Char('0'));
        size.setWidth(fontMetrics().horizontalAdvance(widest) + 2 * size.height());
    }
    return size;
}

QString ctMEdit::complaint() const {
    return tr("This does not fill the form %1.").arg(mask::Hint(mask_));
}

void ctMEdit::putIntoForm() {
    flag_->clear();
    if (!mask_.isEmpty()) {
        const std::optional<QString> raw = mask::Raw(wholeMask(), text());
        const QString shown = raw ? mask::Form(wholeMask(), *raw) : text();
        if (shown != text()) {
            const QString before = mask::Raw(wholeMask(), text().left(cursorPosition())).value_or(*raw);
            const auto cursor = static_cast<int>(mask::Form(wholeMask(), before).size());
            setText(shown);
            setCursorPosition(cursor);
            return;
        }
        if (!raw)
            flag_->mark(complaint());
    }
    Q_EMIT Change();
}

void ctMEdit::leave() {
    if (mask_.isEmpty() || isReadOnly() || IsEmpty() || IsFilled())
        return;
    flag_->complain(complaint());
    Q_EMIT EditError(complaint());
}

bool ctMEdit::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !flag_->isUp())
        return TextField::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), TipText(flag_->complaint()), this);
    return true;
}

void ctMEdit::focusInEvent(QFocusEvent* event) {
    TextField::focusInEvent(event);
    if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
        return;
    selectOnRelease_ = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void ctMEdit::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        leave();
    TextField::focusOutEvent(event);
}

void ctMEdit::keyPressEvent(QKeyEvent* event) {
    // Delete in front of a sign of the mask removes the character after it, because the sign itself would come back at
    // once.
    if (event->key() == Qt::Key_Delete && !hasSelectedText() && !mask_.isEmpty())
        while (cursorPosition() < text().size() && !text().at(cursorPosition()).isLetterOrNumber())
            setCursorPosition(cursorPosition() + 1);
    TextField::keyPressEvent(event);
}

void ctMEdit::mouseReleaseEvent(QMouseEvent* event) {
    TextField::mouseReleaseEvent(event);
    if (selectOnRelease_ && !hasSelectedText())
        selectAll();
    selectOnRelease_ = false;
}

void ctMEdit::paintEvent(QPaintEvent* event) {
    TextField::paintEvent(event);
    flag_->paintBorder();
}
