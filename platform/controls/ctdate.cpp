#include "platform/controls/ctdate.h"

#include <algorithm>
#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QToolTip>
#include <QWheelEvent>

#include "platform/controls/dateaccess.h"
#include "platform/desktop/desktop.h"

namespace {

constexpr int WheelNotch = 120;

QDate heldByDatabases(QDate date) {
    return std::clamp(date, QDate(1753, 1, 1), QDate(9999, 12, 31));
}

}  // namespace

ctDate::ctDate(QWidget* parent) : QWidget(parent), date_(Today()) {
    grid_.month = date_;
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    // The interface is installed before the name is set, because the name's change creates the accessible object, and
    // that happens only once.
    InstallDateAccess();
    setAccessibleName(tr("Calendar"));
}

void ctDate::SetDate(QDate date) {
    if (!date.isValid())
        return;
    const QDate held = heldByDatabases(date);
    const bool moved = held != date_;
    date_ = held;
    grid_.month = held;
    update();
    if (moved)
        TellDateChanged(*this);
}

void ctDate::SetDateOrder(int order) {
    dateOrder_ = order;
    update();
}

void ctDate::SetFirstDayOfWeek(Qt::DayOfWeek day) {
    grid_.firstDayOfWeek = day;
    update();
}

void ctDate::ShowMonth(QDate month) {
    if (!month.isValid())
        return;
    grid_.month = heldByDatabases(month);
    hover_ = {};
    update();
}

QString ctDate::HeadingText() const {
    return QLocale::c().toString(grid_.month,
                                 dateOrder_ == 2 ? QStringLiteral("yyyy MMMM") : QStringLiteral("MMMM yyyy"));
}

QString ctDate::LongText(QDate date) const {
    static const QStringList formats{QStringLiteral("dddd, MMMM d, yyyy"), QStringLiteral("dddd, d MMMM yyyy"),
                                     QStringLiteral("yyyy MMMM d, dddd")};
    return QLocale::c().toString(date, formats.value(dateOrder_, formats.first()));
}

DateLayout ctDate::Layout() const {
    return {size(), height() / (MonthGrid::Weeks + 2)};
}

void ctDate::Choose(QDate date) {
    SetDate(date);
    Q_EMIT Click(date_);
}

QSize ctDate::sizeHint() const {
    const int row = fontMetrics().height() * 9 / 5;
    return {MonthGrid::Days * row * 6 / 5, row * (MonthGrid::Weeks + 2)};
}

QSize ctDate::minimumSizeHint() const {
    return {MonthGrid::Days * fontMetrics().horizontalAdvance(QStringLiteral("000")), sizeHint().height()};
}

bool ctDate::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const DateLayout::Hit hit = Layout().hit(help->pos());
    switch (hit.part) {
        case DateLayout::Hit::Part::Day:
            QToolTip::showText(help->globalPos(), LongText(grid_.dateAt(0, hit.position)), this);
            break;
        case DateLayout::Hit::Part::Previous:
            QToolTip::showText(help->globalPos(), tr("Previous Month"), this);
            break;
        case DateLayout::Hit::Part::Next:
            QToolTip::showText(help->globalPos(), tr("Next Month"), this);
            break;
        default:
            QToolTip::hideText();
    }
    return true;
}

void ctDate::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const DateLayout::Hit hit = Layout().hit(event->pos());
    if (hit.part == DateLayout::Hit::Part::Previous)
        ShowMonth(ShownMonth().addMonths(-1));
    else if (hit.part == DateLayout::Hit::Part::Next)
        ShowMonth(ShownMonth().addMonths(1));
    else if (hit.part == DateLayout::Hit::Part::Heading)
        ShowMonth(date_);
    else if (hit.part == DateLayout::Hit::Part::Day)
        Choose(grid_.dateAt(0, hit.position));
    setHover(Layout().hit(event->pos()));
}

void ctDate::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second press on an arrow turns another page. On a day, the first press has already chosen it.
    const DateLayout::Hit hit = Layout().hit(event->pos());
    if (hit.part != DateLayout::Hit::Part::Day)
        mousePressEvent(event);
    else if (event->button() == Qt::LeftButton)
        Q_EMIT DblClick(date_);
}

void ctDate::mouseMoveEvent(QMouseEvent* event) {
    setHover(Layout().hit(event->pos()));
}

void ctDate::leaveEvent(QEvent*) {
    setHover({});
}

void ctDate::wheelEvent(QWheelEvent* event) {
    wheelRest_ += event->angleDelta().y();
    const int notches = wheelRest_ / WheelNotch;
    wheelRest_ %= WheelNotch;
    if (notches != 0)
        ShowMonth(event->modifiers().testFlag(Qt::ControlModifier) ? ShownMonth().addYears(-notches)
                                                                   : ShownMonth().addMonths(-notches));
    event->accept();
}

void ctDate::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Choose(date_);
        Q_EMIT DblClick(date_);
    } else if (const std::optional<QDate> date = dateForKey(*event)) {
        Choose(*date);
    } else if (beginsDate(*event)) {
        beginTyping(event->text());
    } else {
        event->ignore();
    }
}

std::optional<QDate> ctDate::dateForKey(const QKeyEvent& event) const {
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    // Alt with an arrow belongs to the window.
    if (event.modifiers().testFlag(Qt::AltModifier))
        return std::nullopt;
    const int forward = isRightToLeft() ? -1 : 1;
    switch (event.key()) {
        case Qt::Key_Left:
            return date_.addDays(-forward);
        case Qt::Key_Right:
            return date_.addDays(forward);
        case Qt::Key_Up:
            return date_.addDays(-MonthGrid::Days);
        case Qt::Key_Down:
            return date_.addDays(MonthGrid::Days);
        case Qt::Key_PageUp:
            return control ? date_.addYears(-1) : date_.addMonths(-1);
        case Qt::Key_PageDown:
            return control ? date_.addYears(1) : date_.addMonths(1);
        case Qt::Key_Home:
            return QDate(date_.year(), date_.month(), 1);
        case Qt::Key_End:
            return QDate(date_.year(), date_.month(), date_.daysInMonth());
        default:
            return std::nullopt;
    }
}

void ctDate::setHover(const DateLayout::Hit& hit) {
    if (hit == hover_)
        return;
    hover_ = hit;
    update();
}
