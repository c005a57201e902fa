#include "platform/calendar/drag.h"

#include <algorithm>
#include <cstdlib>

namespace {

int Snapped(int minute, int interval) {
    return (minute + interval / 2) / interval * interval;
}

}  // namespace

Drag::Drag(Kind kind, int index, const ItemPlace& from, int minute)
    : kind_(kind),
      index_(index),
      from_(from),
      place_(from),
      start_(std::clamp(from.start, 0, 1440)),
      end_(std::clamp(from.end, 0, 1440)),
      grabbed_(minute - start_) {}

void Drag::move(int column, int minute, const CalendarContent& content) {
    const int interval = content.timeInterval;
    const int at = std::clamp(minute, -1440, 2 * 1440);
    if (kind_ == Kind::ResizeTop) {
        place_.start = std::clamp(Snapped(at, interval), 0, std::max(end_ - interval, 0));
        return;
    }
    if (kind_ == Kind::ResizeBottom) {
        place_.end = std::clamp(Snapped(at, interval), std::min(start_ + interval, 1440), 1440);
        return;
    }
    const int length = std::max(end_ - start_, 0);
    const int wanted = std::max(at - grabbed_, 0);
    // An item that is dragged by less than half a row keeps its own minute.
    const bool stays = 2 * std::abs(wanted - start_) < interval;
    place_.start = std::clamp(stays ? start_ : Snapped(wanted, interval), 0, 1440 - length);
    place_.end = place_.start + length;
    place_.column = std::clamp(column, 1, std::max(static_cast<int>(content.columns.size()), 1));
    if (static_cast<std::size_t>(place_.column) <= content.columns.size())
        place_.day = content.columns[static_cast<std::size_t>(place_.column) - 1].day;
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
