#pragma once

#include <variant>

#include "platform/calendar/grid.h"

/// What part of an item's card was hit: the edges resize it.
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
    int minute = 0;  ///< The very minute, not yet the row's.
    friend bool operator==(const CellHit&, const CellHit&) = default;
};
struct HeadingHit {
    int column = 1;
    friend bool operator==(const HeadingHit&, const HeadingHit&) = default;
};
/// A marker that stands for items that have no room of their own.
struct MarkerHit {
    enum class Kind { Earlier, Later, Banners };
    Kind kind = Kind::Later;
    int column = 1;
    friend bool operator==(const MarkerHit&, const MarkerHit&) = default;
};
using Hit = std::variant<NothingHit, ItemHit, CellHit, HeadingHit, MarkerHit>;

/// What stands at the point. The selected item lies above the others and is asked first.
Hit HitTest(QPoint point, const CalendarGrid& grid, const CalendarLayout& layout, const CalendarStyle& style,
            int selectedItem);

/// The card of the item as it is painted; the selected one is brought to a legible width. Empty when the item has no
/// place in the grid.
QRect CardRect(int index, const CalendarGrid& grid, const CalendarLayout& layout, const CalendarStyle& style,
               bool selected);

/// The items that the marker stands for.
const std::vector<int>& MarkedItems(const MarkerHit& marker, const CalendarLayout& layout);

/// The banner that row `row` shows; 0 where it shows none or, in the last row, counts the rest. A selected banner that
/// has no row of its own takes the last one.
int BannerInRow(const ColumnLayout& column, int row, int selectedItem);
