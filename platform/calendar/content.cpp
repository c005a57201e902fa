#include "platform/calendar/content.h"

#include <algorithm>

int CalendarContent::gridStart() const {
    return std::clamp(firstTime, 0, 1440 - timeInterval);
}

int CalendarContent::gridEnd() const {
    return std::clamp(lastTime + 1, gridStart() + timeInterval, 1440);
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
