#pragma once

#include "platform/calendar/content.h"

/// One gesture that moves or sizes an item, in minutes and columns. It proposes a place; it changes nothing.
class Drag {
  public:
    enum class Kind { Move, ResizeTop, ResizeBottom };

    /// Begins at the item's place, grabbed at `minute` of its column.
    Drag(Kind kind, int index, const ItemPlace& from, int minute);

    /// The pointer is at `minute` of `column`. A move keeps the length and its start snaps to the interval (an item
    /// that was not on the grid stays off it until it is moved); a resize snaps the edge and leaves at least one
    /// interval. The place stays inside the day.
    void move(int column, int minute, const CalendarContent& content);

    [[nodiscard]] Kind kind() const { return kind_; }
    [[nodiscard]] int index() const { return index_; }
    [[nodiscard]] const ItemPlace& from() const { return from_; }
    [[nodiscard]] const ItemPlace& place() const { return place_; }
    /// A drop here would change something.
    [[nodiscard]] bool changes() const { return !(from_ == place_); }

  private:
    Kind kind_;
    int index_;
    ItemPlace from_;
    ItemPlace place_;
    int start_;  ///< Of `from`, inside the day.
    int end_;
    int grabbed_;  ///< Minutes from the item's start to where it was grabbed.
};

/// The item's place as the control shows it.
ItemPlace PlaceOf(const CalendarItem& item, const CalendarContent& content);

/// Puts the item at the place: times, and with another column its day (days as columns) or its column number.
void PutAt(CalendarItem& item, const ItemPlace& place, const CalendarContent& content);
