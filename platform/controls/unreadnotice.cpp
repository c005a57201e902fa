#include "platform/controls/unreadnotice.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/controls/formparts.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

UnreadNotice::UnreadNotice(QWidget& covered, QWidget& host)
    : QWidget(&host),
      covered_(covered),
      lblUnread_(new QLabel(tr("This could not be read. It does not mean that nothing is booked."), this)),
      lblWhy_(new QLabel(this)),
      cmdTryAgain_(FormButton(tr("Tr&y again"), "cmdTryAgain", this)) {
    setObjectName(QStringLiteral("unread"));
    hide();
    lblUnread_->setObjectName(QStringLiteral("lblUnread"));
    lblUnread_->setFont(HeadingFont(1));
    lblWhy_->setObjectName(QStringLiteral("lblWhy"));
    lblWhy_->setTextFormat(Qt::PlainText);
    auto* picture = new QLabel(this);
    picture->setPixmap(
        IconPixmap(QStringLiteral("warning"), Theme::Instance().colours().danger, Space(24), devicePixelRatioF()));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(24), Space(24), Space(24), Space(24));
    column->setSpacing(Space(12));
    column->addStretch(1);
    for (QLabel* label : {picture, lblUnread_, lblWhy_}) {
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(label != picture);
        column->addWidget(label);
    }
    column->addWidget(cmdTryAgain_, 0, Qt::AlignHCenter);
    column->addStretch(2);
    // The retry runs after the click, because it may cover this place anew or destroy it.
    connect(
        cmdTryAgain_, &QPushButton::clicked, this,
        [this] {
            if (const auto again = again_; covers_ && again)
                again();
        },
        Qt::QueuedConnection);
    covered_.installEventFilter(this);
}

void UnreadNotice::Cover(const QString& why, std::function<void()> again) {
    again_ = std::move(again);
    lblWhy_->setText(why.simplified());
    setAccessibleName(lblUnread_->text());
    cmdTryAgain_->setAccessibleDescription(lblUnread_->text() + QLatin1Char(' ') + lblWhy_->text());
    if (!std::exchange(covers_, true))
        hadFocus_ = covered_.hasFocus() || covered_.isAncestorOf(window()->focusWidget());
    covered_.setEnabled(false);
    follow();
    if (hadFocus_)
        cmdTryAgain_->setFocus();
}

void UnreadNotice::Uncover() {
    if (!std::exchange(covers_, false))
        return;
    const bool givesFocusBack = hadFocus_ || cmdTryAgain_->hasFocus();
    covered_.setEnabled(true);
    hide();
    if (givesFocusBack)
        covered_.setFocus();
}

bool UnreadNotice::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Resize:
        case QEvent::Move:
        case QEvent::ShowToParent:
        case QEvent::HideToParent:
        case QEvent::ZOrderChange:
            follow();
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

void UnreadNotice::follow() {
    if (!covers_)
        return;
    setGeometry(QRect(covered_.mapTo(parentWidget(), QPoint()), covered_.size()));
    setVisible(!covered_.isHidden());
    raise();
}

void UnreadNotice::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), palette().color(QPalette::Window));
}
