#pragma once

#include "platform/calendar/content.h"

/// One gesture that moves or sizes an item, in minutes and columns. It proposes a place and changes nothing itself.
class Drag {
  public:
    enum class Kind { Move, ResizeTop, ResizeBottom };

    /// Begins at the item's place. The pointer has grabbed the item at `minute`.
    Drag(Kind kind, int index, const ItemPlace& from, int minute);

    /// Moves the pointer to `minute` of `column`. A move keeps the length and snaps the start to the interval; an item
    /// that was not on the grid stays off it until it is moved. A resize snaps the edge and leaves at least one
    /// interval. The place stays inside the day.
    void move(int column, int minute, const CalendarContent& content);

    [[nodiscard]] Kind kind() const { return kind_; }
    [[nodiscard]] int index() const { return index_; }
    [[nodiscard]] const ItemPlace& from() const { return from_; }
    [[nodiscard]] const ItemPlace& place() const { return place_; }
    /// Whether a drop here would change anything.
    [[nodiscard]] bool changes() const { return !(from_ == place_); }

  private:
    Kind kind_;
    int index_;
    ItemPlace from_;
    ItemPlace place_;
    int start_;    ///< The start of `from`, brought into the day.
    int end_;      ///< The end of `from`, brought into the day.
    int grabbed_;  ///< Minutes from the item's start to the point where it was grabbed.
};

/// Returns the item's place as the control shows it.
ItemPlace PlaceOf(const CalendarItem& item, const CalendarContent& content);

/// Moves the item to the place. It sets the times and, for another column, the day (days as columns) or the column
/// number.
void PutAt(CalendarItem& item, const ItemPlace& place, const CalendarContent& content);
