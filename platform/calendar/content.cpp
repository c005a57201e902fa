#include "platform/calendar/content.h"

#include <algorithm>

int CalendarContent::gridStart() const {
    return std::clamp(firstTime, 0, 1440 - timeInterval);
}

int CalendarContent::gridEnd() const {
    return std::clamp(std::clamp(lastTime, 0, 1439) + 1, gridStart() + timeInterval, 1440);
}

int CalendarContent::columnOf(const CalendarItem& item) const {
    const int count = static_cast<int>(columns.size());
    if (item.ItemColumn > 0)
        return item.ItemColumn <= count ? item.ItemColumn : 0;
    if (count == 0)
        return 0;
    if (!item.ItemDay.isValid() || !date.isValid())
        return 1;
    const qint64 offset = date.daysTo(item.ItemDay);
    if (!dayColumns)
        return offset == 0 ? 1 : 0;
    return offset >= 0 && offset < count ? static_cast<int>(offset) + 1 : 0;
}

CalendarContent CalendarContent::pageOf(int first, int count) const {
    CalendarContent page = *this;
    page.items.clear();
    page.ranges.clear();
    page.columns.assign(columns.begin() + (first - 1), columns.begin() + (first - 1 + count));
    page.date = page.columns.front().day;
    for (const CalendarItem& item : items) {
        const int column = columnOf(item) - first + 1;
        if (column < 1 || column > count)
            continue;
        page.items.push_back(item);
        page.items.back().ItemColumn = column;
        // An item that begins before 0 has no known time.
        if (item.ItemBanner || item.ItemStart < 0)
            continue;
        const int start = std::clamp(item.ItemStart, 0, 1439);
        const int end = std::clamp(item.ItemEnd, start + 1, 1440);
        page.firstTime = std::min(page.firstTime, start / 60 * 60);
        page.lastTime = std::max(page.lastTime, (end + 59) / 60 * 60 - 1);
    }
    for (TimeRange range : ranges) {
        if (range.column > 0 && (range.column < first || range.column >= first + count))
            continue;
        if (range.column > 0)
            range.column -= first - 1;
        page.ranges.push_back(range);
    }
    return page;
}
