#include "platform/calendar/ctmday.h"

#include <algorithm>

ctMDay::ctMDay(QWidget* parent) : QWidget(parent) {
    setDayColumns(1);
}

ctMDay::~ctMDay() = default;

void ctMDay::setDate(QDate date) {
    CommitEdit();
    content_.date = date;
    for (std::size_t i = 0; i < content_.columns.size(); ++i)
        content_.columns[i].day = content_.dayColumns ? date.addDays(static_cast<qint64>(i)) : date;
    update();
}

void ctMDay::setFirstTime(int minute) {
    content_.firstTime = minute;
    update();
}
void ctMDay::setLastTime(int minute) {
    content_.lastTime = minute;
    update();
}
void ctMDay::setPrimeStart(int minute) {
    content_.primeStart = minute;
    update();
}
void ctMDay::setPrimeEnd(int minute) {
    content_.primeEnd = minute;
    update();
}
void ctMDay::setTopTime(int minute) {
    topTime_ = minute;
    update();
}
void ctMDay::setTimeInterval(int minutes) {
    content_.timeInterval = std::clamp(minutes, 5, 60);
    update();
}
void ctMDay::setTwentyFourHour(bool on) {
    content_.twentyFourHour = on;
    update();
}
void ctMDay::setDayBackColor(int color) {
    content_.dayBackColor = color;
    update();
}
void ctMDay::setDayHeaderColor(int color) {
    content_.dayHeaderColor = color;
    update();
}
void ctMDay::setHolidayFlag(bool on) {
    content_.holidayFlag = on;
    update();
}
void ctMDay::setReadOnly(bool on) {
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
    content_.items.clear();
    setSelectedItem(0);
    update();
}

int ctMDay::AddItem(int start, int end, QDate day, const QString& text, const QString& key) {
    CalendarItem item;
    item.ItemKey = key;
    item.ItemText = text;
    item.ItemStart = start;
    item.ItemEnd = end;
    item.ItemDay = day;
    content_.items.push_back(item);
    update();
    return ItemCount();
}

void ctMDay::RemoveItem(int index) {
    if (index < 1 || index > ItemCount())
        return;
    CommitEdit();
    const bool wasSelected = index == selectedItem_;
    content_.items.erase(content_.items.begin() + (index - 1));
    if (wasSelected)
        setSelectedItem(0);
    else if (selectedItem_ > index)
        --selectedItem_;
    update();
}

CalendarItem& ctMDay::Item(int index) {
    update();
    if (index >= 1 && index <= ItemCount())
        return content_.items[static_cast<std::size_t>(index) - 1];
    noItem_ = CalendarItem();
    return noItem_;
}

const CalendarItem& ctMDay::Item(int index) const {
    static const CalendarItem none;
    return index >= 1 && index <= ItemCount() ? content_.items[static_cast<std::size_t>(index) - 1] : none;
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
    update();
}

void ctMDay::AddTimeRange(int start, int end, int color, QDate day) {
    content_.ranges.push_back({start, end, color, 0, day});
    update();
}

void ctMDay::ClearTimeRanges() {
    content_.ranges.clear();
    update();
}

void ctMDay::ClearColumns() {
    content_.columns.clear();
    content_.dayColumns = false;
    update();
}

int ctMDay::AddColumn(const QString& title) {
    if (content_.dayColumns)
        ClearColumns();
    content_.columns.push_back({title, content_.date});
    update();
    return ColumnCount();
}

void ctMDay::setDayColumns(int count) {
    content_.dayColumns = true;
    content_.columns.assign(static_cast<std::size_t>(std::max(count, 1)), {});
    setDate(content_.date);
}

void ctMDay::setVisibleColumns(int count) {
    visibleColumns_ = std::max(count, 0);
    update();
}
void ctMDay::setHeadingFormat(const QString& format) {
    content_.headingFormat = format;
    update();
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
    return index >= 1 && index <= ItemCount() ? content_.columnOf(Item(index)) : 0;
}

void ctMDay::setSelectedItem(int index) {
    const int wanted = index >= 1 && index <= ItemCount() ? index : 0;
    if (wanted != 0)
        range_.reset();
    if (wanted == selectedItem_)
        return;
    selectedItem_ = wanted;
    update();
    Q_EMIT ItemSelected(wanted);
}

void ctMDay::selectRange(int column, int start, int end) {
    if (column < 1 || column > ColumnCount() || start >= end)
        return;
    setSelectedItem(0);
    range_ = Range{column, start, end};
    update();
}

void ctMDay::clearSelection() {
    range_.reset();
    setSelectedItem(0);
    update();
}

int ctMDay::SelectedItem() const {
    return selectedItem_;
}
int ctMDay::SelectedRange() const {
    return range_ ? range_->column - 1 : -1;
}
int ctMDay::SelStart() const {
    return range_ ? range_->start : 0;
}
int ctMDay::SelEnd() const {
    return range_ ? range_->end : 0;
}
int ctMDay::SelColumn() const {
    return range_ ? range_->column : 0;
}
void ctMDay::ScrollToItem(int index) {
    setTopTime(Item(index).ItemStart);
}
void ctMDay::EditItem(int) {}
void ctMDay::CommitEdit() {}
bool ctMDay::IsEditing() const {
    return false;
}
void ctMDay::setClock(std::function<QDateTime()>) {}
void ctMDay::setNow(const QDateTime&) {}
void ctMDay::paint(QPainter&, const QRectF&, int, int, const CalendarStyle&) const {}
QRect ctMDay::ItemRect(int) const {
    return {};
}
QRect ctMDay::CellRect(int, int) const {
    return {};
}
QSize ctMDay::sizeHint() const {
    return {480, 600};
}
QSize ctMDay::minimumSizeHint() const {
    return {160, 120};
}
