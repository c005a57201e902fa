#pragma once

#include <variant>

#include "platform/calendar/grid.h"

/// The part of an item's card that was hit. The edges resize the item.
enum class Zone { Body, TopEdge, BottomEdge };

struct NothingHit {
    friend bool operator==(const NothingHit&, const NothingHit&) = default;
};
/// An item in the grid, or a banner under the heading.
struct ItemHit {
    int index = 0;
    Zone zone = Zone::Body;
    friend bool operator==(const ItemHit&, const ItemHit&) = default;
};
/// Free time.
struct CellHit {
    int column = 1;
    int minute = 0;  ///< The exact minute, not the start of its row.
    friend bool operator==(const CellHit&, const CellHit&) = default;
};
struct HeadingHit {
    int column = 1;
    friend bool operator==(const HeadingHit&, const HeadingHit&) = default;
};
/// A marker for items that have no room of their own.
struct MarkerHit {
    enum class Kind { Earlier, Later, Banners };
    Kind kind = Kind::Later;
    int column = 1;
    friend bool operator==(const MarkerHit&, const MarkerHit&) = default;
};
using Hit = std::variant<NothingHit, ItemHit, CellHit, HeadingHit, MarkerHit>;

/// Returns the part at the point. The selected item lies above the others and is looked at first.
Hit HitTest(QPoint point, const CalendarGrid& grid, const CalendarLayout& layout, const CalendarStyle& style,
            int selectedItem);

/// Returns the card of the item as it is painted. A selected card is widened until it can be read. The result is empty
/// when the item has no place in the grid.
QRect CardRect(int index, const CalendarGrid& grid, const CalendarLayout& layout, const CalendarStyle& style,
               bool selected);

/// Returns the items for which the marker stands.
const std::vector<int>& MarkedItems(const MarkerHit& marker, const CalendarLayout& layout);

/// Returns the banner in row `row`, or 0 where the row shows none or, as the last row, counts the rest. A selected
/// banner that has no row of its own takes the last one.
int BannerInRow(const ColumnLayout& column, int row, int selectedItem);
