#include "platform/controls/fieldnotice.h"

#include <algorithm>
#include <QAccessible>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>

FieldNotice::FieldNotice(QWidget& field) : QObject(&field), field_(field) {
    field.installEventFilter(this);
}

FieldNotice::~FieldNotice() {
    delete line_;
}

void FieldNotice::Say(const QString& text) {
    if (text.isEmpty() || !field_.isVisible())
        return takeAway();
    if (line_ == nullptr) {
        line_ = new QLabel(field_.window());
        line_->setObjectName(QStringLiteral("lblkept"));
        line_->setTextFormat(Qt::PlainText);
        line_->setAutoFillBackground(true);
        line_->setForegroundRole(QPalette::ToolTipText);
        line_->setBackgroundRole(QPalette::ToolTipBase);
        line_->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
        line_->setMargin(2);
        line_->setFocusPolicy(Qt::NoFocus);
        line_->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    line_->setText(text);
    line_->setAccessibleName(text);
    place();
    line_->show();
    line_->raise();
    QAccessibleEvent told(line_.data(), QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

// The line is deleted later, because a window that hides iterates over its children.
void FieldNotice::takeAway() {
    if (line_ == nullptr)
        return;
    line_->hide();
    line_->setObjectName({});
    line_->deleteLater();
    line_.clear();
}

QString FieldNotice::Text() const {
    return line_ == nullptr ? QString() : line_->text();
}

bool FieldNotice::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide)
        Say({});
    else if (line_ != nullptr && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        place();
    return QObject::eventFilter(watched, event);
}

// The line stands above the field where the window ends below it.
void FieldNotice::place() {
    const QWidget& window = *field_.window();
    line_->adjustSize();
    const QPoint corner = field_.mapTo(&window, QPoint(0, 0));
    const int below = corner.y() + field_.height();
    const int left = std::clamp(corner.x(), 0, std::max(0, window.width() - line_->width()));
    line_->move(left, below + line_->height() <= window.height() ? below : corner.y() - line_->height());
}

QString KeptText(int characters) {
    return QCoreApplication::translate("FieldNotice", "Kept %1 characters; more does not fit here.").arg(characters);
}
