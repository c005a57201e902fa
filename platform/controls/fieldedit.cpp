#include "platform/controls/fieldedit.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <QToolTip>
#include <QValidator>
#include <QWheelEvent>

#include "platform/controls/fieldflag.h"
#include "platform/text/plaintext.h"

namespace {

/// How much wider a QLineEdit's button is than its icon.
constexpr int SignPadding = 6;

/// Accepts any text in one line. The text is read when the field is left.
class LineGuard : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override {
        cursor = static_cast<int>(OneLine(text.left(cursor)).size());
        text = OneLine(text);
        return Acceptable;
    }
};

}  // namespace

FieldEdit::FieldEdit(QWidget* parent) : QAbstractSpinBox(parent), flag_(new FieldFlag(*this, *lineEdit())) {
    setFocusPolicy(Qt::StrongFocus);
    lineEdit()->setValidator(new LineGuard(this));
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, flag_, &FieldFlag::clear);
    connect(lineEdit(), &QLineEdit::textChanged, this, &FieldEdit::Change);
}

void FieldEdit::setText(const QString& text) {
    const std::optional<QString> shown = normalised(text);
    if (shown || text.trimmed().isEmpty())
        flag_->clear();
    else
        flag_->mark(complaint());
    lineEdit()->setText(shown.value_or(text));
}

QString FieldEdit::ErrorTip() const {
    return flag_->complaint();
}

QSize FieldEdit::sizeHint() const {
    ensurePolished();
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const int sign = style()->pixelMetric(QStyle::PM_LineEditIconSize, nullptr, this) +
                     style()->pixelMetric(QStyle::PM_LineEditIconMargin, nullptr, this) + SignPadding;
    const int room = fontMetrics().horizontalAdvance(widestText() + QLatin1Char(' ')) + (1 + signCount()) * sign;
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, {room, lineEdit()->sizeHint().height()}, this);
}

void FieldEdit::leave() {
    if (IsEmpty() || IsValid())
        return setText(text());
    flag_->complain(complaint());
    Q_EMIT EditError(complaint());
}

void FieldEdit::showStepped(const QString& text) {
    setText(text);
    selectAll();
    QAccessibleValueChangeEvent told(this, text);
    QAccessible::updateAccessibility(&told);
}

bool FieldEdit::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QAbstractSpinBox::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       TipText(flag_->isUp() ? flag_->complaint() : hint()), this);
    return true;
}

bool FieldEdit::eventFilter(QObject* watched, QEvent* event) {
    // A click that enters the field would place the cursor and lose the selection. A click that draws a selection keeps
    // it.
    if (event->type() == QEvent::MouseButtonRelease && selectOnRelease_) {
        selectOnRelease_ = false;
        if (!lineEdit()->hasSelectedText())
            selectAll();
    }
    return QAbstractSpinBox::eventFilter(watched, event);
}

void FieldEdit::focusInEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusInEvent(event);
    if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
        return;
    selectOnRelease_ = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void FieldEdit::focusOutEvent(QFocusEvent* event) {
    // Another window or the field's own calendar came to the front, and the user will come back.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason && !isReadOnly())
        leave();
    QAbstractSpinBox::focusOutEvent(event);
}

void FieldEdit::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !isReadOnly())
        leave();
    QAbstractSpinBox::keyPressEvent(event);
}

void FieldEdit::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void FieldEdit::paintEvent(QPaintEvent* event) {
    QAbstractSpinBox::paintEvent(event);
    flag_->paintBorder();
}
