#include "platform/controls/datepopup.h"

#include <algorithm>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"

DatePopup::DatePopup(QWidget& field) : QFrame(&field, Qt::Popup), field_(field), calendar_(new ctDate(this)) {
    // The click that closes the calendar must not open it again through the field's button.
    setAttribute(Qt::WA_NoMouseReplay);
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(tr("Calendar"));
    auto* today = new QPushButton(tr("&Today"), this);
    today->setAutoDefault(false);
    auto* column = new QVBoxLayout(this);
    const int margin = Space(8);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(Space(4));
    column->addWidget(calendar_);
    column->addWidget(today, 0, Qt::AlignRight);
    calendar_->installEventFilter(this);
    connect(calendar_, &ctDate::DblClick, this, &DatePopup::choose);
    connect(today, &QPushButton::clicked, this, [this] { choose(Today()); });
}

void DatePopup::drop(QDate date, int dateOrder) {
    calendar_->SetDateOrder(dateOrder);
    calendar_->SetDate(date.isValid() ? date : Today());
    dayPressed_ = false;
    adjustSize();
    const bool rightToLeft = field_.isRightToLeft();
    QPoint place = field_.mapToGlobal(QPoint(rightToLeft ? field_.width() - width() : 0, field_.height() + 2));
    const QRect screen = field_.screen()->availableGeometry();
    if (place.y() + height() > screen.bottom())
        place.setY(field_.mapToGlobal(QPoint(0, 0)).y() - height() - 2);
    place.setX(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - width() + 1)));
    move(place);
    show();
    calendar_->setFocus(Qt::PopupFocusReason);
}

bool DatePopup::eventFilter(QObject* watched, QEvent* event) {
    const bool press = event->type() == QEvent::MouseButtonPress;
    if (press || event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const bool onDay = mouse->button() == Qt::LeftButton &&
                           calendar_->Layout().hit(mouse->pos()).part == DateLayout::Hit::Part::Day;
        if (!press && dayPressed_ && onDay)
            choose(calendar_->Date());
        dayPressed_ = press && onDay;
    }
    return QFrame::eventFilter(watched, event);
}

void DatePopup::choose(QDate date) {
    if (!isVisible())
        return;
    close();
    Q_EMIT Chosen(date);
}
