#include "platform/calendar/drag.h"

#include <algorithm>

namespace {

int Snapped(int minute, int interval) {
    return (minute + interval / 2) / interval * interval;
}

}  // namespace

Drag::Drag(Kind kind, int index, const ItemPlace& from, int minute)
    : kind_(kind), index_(index), from_(from), place_(from), grabbed_(minute - from.start) {}

void Drag::move(int column, int minute, const CalendarContent& content) {
    const int interval = content.timeInterval;
    if (kind_ == Kind::Move) {
        const int length = std::clamp(from_.end - from_.start, 0, 1440);
        const int wanted = std::max(minute - grabbed_, 0);
        // Within half a row of where it was, the item keeps its own minute.
        const bool stays = 2 * std::abs(wanted - from_.start) < interval;
        place_.start = std::clamp(stays ? from_.start : Snapped(wanted, interval), 0, 1440 - length);
        place_.end = place_.start + length;
        place_.column = std::clamp(column, 1, std::max(static_cast<int>(content.columns.size()), 1));
        if (static_cast<std::size_t>(place_.column) <= content.columns.size())
            place_.day = content.columns[static_cast<std::size_t>(place_.column) - 1].day;
        return;
    }
    if (kind_ == Kind::ResizeTop)
        place_.start = std::clamp(Snapped(minute, interval), 0, std::max(from_.end - interval, 0));
    else
        place_.end = std::clamp(Snapped(minute, interval), std::min(from_.start + interval, 1440), 1440);
}

ItemPlace PlaceOf(const CalendarItem& item, const CalendarContent& content) {
    ItemPlace place;
    place.column = content.columnOf(item);
    place.start = item.ItemStart;
    place.end = item.ItemEnd;
    const bool shown = place.column >= 1 && static_cast<std::size_t>(place.column) <= content.columns.size();
    place.day = shown ? content.columns[static_cast<std::size_t>(place.column) - 1].day : item.ItemDay;
    return place;
}

void PutAt(CalendarItem& item, const ItemPlace& place, const CalendarContent& content) {
    item.ItemStart = place.start;
    item.ItemEnd = place.end;
    if (place.column == content.columnOf(item))
        return;
    if (content.dayColumns)
        item.ItemDay = place.day;
    if (!content.dayColumns || item.ItemColumn > 0)
        item.ItemColumn = place.column;
}
