#include "platform/calendar/ctweek.h"

#include <algorithm>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QPaintEvent>
#include <QToolTip>
#include <QWheelEvent>

#include "platform/calendar/accessibility.h"
#include "platform/calendar/monthpainting.h"
#include "platform/calendar/timescale.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/text/plaintext.h"

namespace {

constexpr int WheelStep = 120;
constexpr int MostSpokenItems = 20;
constexpr int Hour = 3'600'000;  // Milliseconds.

}  // namespace

ctWeek::ctWeek(QWidget* parent) : QWidget(parent), clock_([] { return Now(); }) {
    InstallCalendarAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Month"));
    midnight_.setSingleShot(true);
    connect(&midnight_, &QTimer::timeout, this, [this] {
        update();
        waitForMidnight();
    });
}

void ctWeek::setDate(QDate date) {
    if (!date.isValid())
        return;
    content_.grid.month = date;
    selected_ = date;
    invalidate();
    AnnounceMonthSelection(*this);
}

void ctWeek::setTwentyFourHour(bool on) {
    content_.twentyFourHour = on;
    update();
}

void ctWeek::setFirstDayOfWeek(Qt::DayOfWeek day) {
    content_.grid.firstDayOfWeek = day;
    invalidate();
}

void ctWeek::setClock(std::function<QDateTime()> clock) {
    clock_ = std::move(clock);
    update();
}

void ctWeek::ClearItems() {
    content_.items.clear();
    hoveredItem_ = 0;
    invalidate();
}

int ctWeek::AddItem(CalendarItem item) {
    content_.items.push_back(std::move(item));
    invalidate();
    return ItemCount();
}

const CalendarItem& ctWeek::Item(int index) const {
    static const CalendarItem none;
    return index >= 1 && index <= ItemCount() ? content_.items[static_cast<std::size_t>(index - 1)] : none;
}

void ctWeek::invalidate() {
    dirty_ = true;
    update();
}

const MonthLayout& ctWeek::Layout() const {
    if (dirty_) {
        dirty_ = false;
        style_ = ScreenStyle(palette(), font());
        layout_ = LayOutMonth(content_.items, content_.grid, size(), style_);
    }
    return layout_;
}

QSize ctWeek::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 40};
}

QSize ctWeek::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 7 * 6, fontMetrics().height() * 14};
}

QString ctWeek::lineText(const CalendarItem& item) const {
    const QString time =
        item.ItemBanner ? QString() : ClockText(item.ItemStart, content_.twentyFourHour) + QLatin1Char(' ');
    return item.ItemTextColor == TextColor::Normal ? time + item.ItemText : time;
}

QString ctWeek::TipAt(QPoint position) const {
    return tip_ ? tip_(Layout().itemAt(position)) : QString();
}

QString ctWeek::SelectionText() const {
    QStringList said{LongDateText(selected_)};
    for (const MonthCell& cell : Layout().cells) {
        if (cell.day != selected_)
            continue;
        int more = cell.hidden;
        for (const MonthLine& line : cell.lines) {
            if (line.index > 0 && said.size() <= MostSpokenItems)
                said << lineText(Item(line.index));
            else if (line.index > 0)
                ++more;
        }
        if (more > 0)
            said << tr("%1 more").arg(more);
    }
    return said.join(QStringLiteral(", "));
}

void ctWeek::ChangeItems(const std::function<void(CalendarItem&)>& change) {
    for (CalendarItem& item : content_.items)
        change(item);
    invalidate();
    AnnounceMonthSelection(*this);
}

void ctWeek::select(QDate day) {
    if (day == selected_ || !day.isValid())
        return;
    selected_ = day;
    update();
    AnnounceMonthSelection(*this);
    Q_EMIT DaySelected(day);
}

bool ctWeek::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), TipText(TipAt(help->pos())), this);
        return true;
    }
    return QWidget::event(event);
}

void ctWeek::paintEvent(QPaintEvent* event) {
    const MonthLayout& layout = Layout();
    QPainter painter(this);
    const MonthState state{clock_().date(), selected_, hasFocus(), hoveredItem_};
    PaintMonth({painter, content_.items, content_.grid, layout, style_, content_.twentyFourHour, state}, event->rect());
}

void ctWeek::resizeEvent(QResizeEvent*) {
    invalidate();
}

void ctWeek::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange ||
        event->type() == QEvent::StyleChange)
        invalidate();
    QWidget::changeEvent(event);
}

void ctWeek::showEvent(QShowEvent*) {
    waitForMidnight();
}

void ctWeek::hideEvent(QHideEvent*) {
    midnight_.stop();
}

// Moves the mark of today when the month is left open overnight. The clock may be changed before midnight, so it is
// read every hour.
void ctWeek::waitForMidnight() {
    const QDateTime now = clock_();
    const int left = 24 * Hour - now.time().msecsSinceStartOfDay();
    midnight_.start(std::min(left + 1, Hour));
}

void ctWeek::mousePressEvent(QMouseEvent* event) {
    const int position = Layout().cellAt(event->pos());
    if (position >= 0)
        select(Layout().cells[static_cast<std::size_t>(position)].day);
}

void ctWeek::mouseDoubleClickEvent(QMouseEvent* event) {
    const int position = Layout().cellAt(event->pos());
    if (position >= 0 && event->button() == Qt::LeftButton)
        Q_EMIT DayActivated(Layout().cells[static_cast<std::size_t>(position)].day);
}

void ctWeek::mouseMoveEvent(QMouseEvent* event) {
    const int hovered = Layout().itemAt(event->pos());
    if (hovered != hoveredItem_) {
        hoveredItem_ = hovered;
        update();
    }
}

void ctWeek::leaveEvent(QEvent*) {
    hoveredItem_ = 0;
    update();
}

void ctWeek::wheelEvent(QWheelEvent* event) {
    // A touchpad sends many small turns. They are added up to the whole turn that means a month.
    wheelRest_ += event->angleDelta().y();
    const int steps = wheelRest_ / WheelStep;
    wheelRest_ %= WheelStep;
    event->accept();
    if (steps != 0)
        Q_EMIT MonthStepRequested(steps > 0 ? -1 : 1);
}

QDate ctWeek::dateForKey(const QKeyEvent& event) const {
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    switch (event.key()) {
        case Qt::Key_Left:
            return selected_.addDays(mirrored ? 1 : -1);
        case Qt::Key_Right:
            return selected_.addDays(mirrored ? -1 : 1);
        case Qt::Key_Up:
            return selected_.addDays(-MonthGrid::Days);
        case Qt::Key_Down:
            return selected_.addDays(MonthGrid::Days);
        case Qt::Key_Home:
            return {content_.grid.month.year(), content_.grid.month.month(), 1};
        case Qt::Key_End:
            return {content_.grid.month.year(), content_.grid.month.month(), content_.grid.month.daysInMonth()};
        default:
            return {};
    }
}

void ctWeek::keyPressEvent(QKeyEvent* event) {
    const bool plain = event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    if (!plain) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) {
        Q_EMIT MonthStepRequested(event->key() == Qt::Key_PageUp ? -1 : 1);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT DayActivated(selected_);
    } else if (const QDate day = dateForKey(*event); day.isValid()) {
        const bool shown = day.month() == content_.grid.month.month() && day.year() == content_.grid.month.year();
        if (shown)
            select(day);
        else
            Q_EMIT DayRequested(day);
    } else {
        QWidget::keyPressEvent(event);
    }
}
