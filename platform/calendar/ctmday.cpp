#include "platform/calendar/ctmday.h"

#include <algorithm>
#include <QScrollBar>

#include "platform/calendar/accessibility.h"
#include "platform/desktop/desktop.h"

ctMDay::ctMDay(QWidget* parent) : QWidget(parent), clock_([] { return Now(); }) {
    InstallCalendarAccessibility();  // Must come before anything is told to a screen reader.
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAccessibleName(tr("Calendar"));
    vertical_ = new QScrollBar(Qt::Vertical, this);
    horizontal_ = new QScrollBar(Qt::Horizontal, this);
    for (QScrollBar* bar : {vertical_, horizontal_}) {
        bar->hide();
        bar->setCursor(Qt::ArrowCursor);
        connect(bar, &QScrollBar::valueChanged, this, &ctMDay::scrolled);
    }
    presentTimer_.setSingleShot(true);
    editTimer_.setSingleShot(true);
    textTimer_.setSingleShot(true);
    scrollTimer_.setInterval(40);
    connect(&presentTimer_, &QTimer::timeout, this, &ctMDay::tick);
    connect(&scrollTimer_, &QTimer::timeout, this, &ctMDay::autoScroll);
    connect(&editTimer_, &QTimer::timeout, this, [this] { EditItem(state_.selectedItem); });
    connect(&textTimer_, &QTimer::timeout, this, &ctMDay::deliverReports);
    setDayColumns(1);
}

ctMDay::~ctMDay() = default;

void ctMDay::setDate(QDate date) {
    CommitEdit();
    if (date != content_.date)
        state_.range.reset();
    content_.date = date;
    for (std::size_t i = 0; i < content_.columns.size(); ++i)
        content_.columns[i].day = content_.dayColumns ? date.addDays(static_cast<qint64>(i)) : date;
    invalidate();
}

void ctMDay::setFirstTime(int minute) {
    content_.firstTime = minute;
    invalidate();
}

void ctMDay::setLastTime(int minute) {
    content_.lastTime = minute;
    invalidate();
}

void ctMDay::setPrimeStart(int minute) {
    content_.primeStart = minute;
    invalidate();
}

void ctMDay::setPrimeEnd(int minute) {
    content_.primeEnd = minute;
    invalidate();
}

void ctMDay::setTopTime(int minute) {
    topTime_ = minute;
    invalidate();
}

void ctMDay::setTimeInterval(int minutes) {
    content_.timeInterval = std::clamp(minutes, 5, 60);
    invalidate();
}

void ctMDay::setTwentyFourHour(bool on) {
    content_.twentyFourHour = on;
    invalidate();
}

void ctMDay::setDayBackColor(int color) {
    content_.dayBackColor = color;
    invalidate();
}

void ctMDay::setDayHeaderColor(int color) {
    content_.dayHeaderColor = color;
    invalidate();
}

void ctMDay::setHolidayFlag(bool on) {
    content_.holidayFlag = on;
    invalidate();
}

void ctMDay::setReadOnly(bool on) {
    CommitEdit();
    cancelGesture();
    readOnly_ = on;
}

QDate ctMDay::Date() const {
    return content_.date;
}

int ctMDay::FirstTime() const {
    return content_.firstTime;
}

int ctMDay::LastTime() const {
    return content_.lastTime;
}

int ctMDay::PrimeStart() const {
    return content_.primeStart;
}

int ctMDay::PrimeEnd() const {
    return content_.primeEnd;
}

int ctMDay::TopTime() const {
    return topTime_;
}

int ctMDay::TimeInterval() const {
    return content_.timeInterval;
}

bool ctMDay::TwentyFourHour() const {
    return content_.twentyFourHour;
}

int ctMDay::DayBackColor() const {
    return content_.dayBackColor;
}

int ctMDay::DayHeaderColor() const {
    return content_.dayHeaderColor;
}

bool ctMDay::HolidayFlag() const {
    return content_.holidayFlag;
}

bool ctMDay::ReadOnly() const {
    return readOnly_;
}

void ctMDay::ClearItems() {
    CommitEdit();
    cancelGesture();
    ++generation_;
    content_.items.clear();
    state_.hoveredItem = 0;
    setSelectedItem(0);
    invalidate();
}

int ctMDay::AddItem(int start, int end, QDate day, const QString& text, const QString& key) {
    CalendarItem item;
    item.ItemKey = key;
    item.ItemText = text;
    item.ItemStart = start;
    item.ItemEnd = end;
    item.ItemDay = day;
    content_.items.push_back(item);
    invalidate();
    return ItemCount();
}

void ctMDay::RemoveItem(int index) {
    if (!hasItem(index))
        return;
    CommitEdit();
    if (!hasItem(index))
        return;
    cancelGesture();
    ++generation_;
    content_.items.erase(content_.items.begin() + (index - 1));
    state_.hoveredItem = 0;
    invalidate();
    if (state_.selectedItem > index)
        --state_.selectedItem;
    else if (state_.selectedItem == index)
        setSelectedItem(0);
}

CalendarItem& ctMDay::Item(int index) {
    invalidate();
    if (hasItem(index))
        return content_.items[static_cast<std::size_t>(index) - 1];
    noItem_ = CalendarItem();
    return noItem_;
}

const CalendarItem& ctMDay::Item(int index) const {
    static const CalendarItem none;
    return hasItem(index) ? content_.items[static_cast<std::size_t>(index) - 1] : none;
}

int ctMDay::ItemCount() const {
    return static_cast<int>(content_.items.size());
}

int ctMDay::IndexOfKey(const QString& key) const {
    const auto found = std::find_if(content_.items.begin(), content_.items.end(),
                                    [&](const CalendarItem& item) { return item.ItemKey == key; });
    return found == content_.items.end() ? 0 : static_cast<int>(found - content_.items.begin()) + 1;
}

void ctMDay::AddTimeRange(int start, int end, int color, int column) {
    content_.ranges.push_back({start, end, color, column, {}});
    invalidate();
}

void ctMDay::AddTimeRange(int start, int end, int color, QDate day) {
    content_.ranges.push_back({start, end, color, 0, day});
    invalidate();
}

void ctMDay::ClearTimeRanges() {
    content_.ranges.clear();
    invalidate();
}

void ctMDay::ClearColumns() {
    content_.columns.clear();
    content_.dayColumns = false;
    state_.range.reset();
    invalidate();
}

int ctMDay::AddColumn(const QString& title) {
    if (content_.dayColumns)
        ClearColumns();
    content_.columns.push_back({title, content_.date});
    invalidate();
    return ColumnCount();
}

void ctMDay::setDayColumns(int count) {
    content_.dayColumns = true;
    content_.columns.assign(static_cast<std::size_t>(std::clamp(count, 1, 400)), {});
    state_.range.reset();
    setDate(content_.date);
}

void ctMDay::setVisibleColumns(int count) {
    visibleColumns_ = std::max(count, 0);
    invalidate();
}

int ctMDay::ColumnCount() const {
    return static_cast<int>(content_.columns.size());
}

QString ctMDay::ColumnTitle(int column) const {
    return column >= 1 && column <= ColumnCount() ? content_.columns[static_cast<std::size_t>(column) - 1].title
                                                  : QString();
}

int ctMDay::VisibleColumns() const {
    return visibleColumns_;
}

int ctMDay::ColumnOfItem(int index) const {
    return hasItem(index) ? content_.columnOf(Item(index)) : 0;
}
