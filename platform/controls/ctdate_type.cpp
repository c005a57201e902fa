#include <QKeyEvent>
#include <QLineEdit>

#include "platform/controls/ctdate.h"
#include "platform/controls/datefield.h"
#include "platform/controls/fieldflag.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/desktop.h"

// Typing a date: the first key opens a field over the heading.

bool ctDate::beginsDate(const QKeyEvent& event) {
    const QString text = event.text();
    const bool plain = (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    return plain && text.size() == 1 && (text[0].isLetterOrNumber() || text[0] == u'+' || text[0] == u'-');
}

void ctDate::beginTyping(const QString& text) {
    typed_ = new TextField(this);
    typed_->setObjectName(QStringLiteral("txtgoto"));
    typed_->setAccessibleName(tr("Go to date"));
    typed_->setGeometry(0, 0, width(), Layout().rowHeight);
    flag_ = new FieldFlag(*typed_, *typed_);
    typed_->installEventFilter(this);
    connect(typed_, &QLineEdit::textEdited, this, [this] { flag_->clear(); });
    typed_->setText(text);
    typed_->show();
    typed_->setFocus();
}

void ctDate::goToTyped() {
    const std::optional<QDate> date = ReadDate(typed_->text(), static_cast<DateOrder>(dateOrder_), Today());
    if (!date) {
        flag_->complain(tr("This is no date. %1, today and +2w are dates.")
                            .arg(DateFieldText(Today(), static_cast<DateOrder>(dateOrder_))));
        return;
    }
    endTyping();
    Choose(*date);
}

void ctDate::endTyping() {
    if (typed_ == nullptr)
        return;
    QLineEdit* field = std::exchange(typed_, nullptr);
    const bool hadFocus = field->hasFocus();
    field->hide();
    field->deleteLater();
    if (hadFocus)
        setFocus();
}

// Enter is taken here, because otherwise the calendar below would also handle it.
bool ctDate::eventFilter(QObject* watched, QEvent* event) {
    if (watched != typed_)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        const int key = dynamic_cast<QKeyEvent&>(*event).key();
        const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (isEnter)
            goToTyped();
        else if (key == Qt::Key_Escape)
            endTyping();
        if (isEnter || key == Qt::Key_Escape)
            return true;
    }
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = dynamic_cast<QFocusEvent&>(*event).reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            endTyping();
    }
    return QWidget::eventFilter(watched, event);
}
