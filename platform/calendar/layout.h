#pragma once

#include <vector>

#include "platform/calendar/content.h"

/// An item in the time grid: the part of its column's height and width that it takes.
struct PlacedItem {
    int index = 0;  ///< 1-based.
    int column = 1;
    int start = 0;  ///< The first minute drawn, inside the grid.
    int end = 0;    ///< The end, at least the shortest drawn length after `start`.
    int lane = 0;   ///< Its lane, from 0, of the `lanes` that share the column's width.
    int lanes = 1;
    int span = 1;  ///< How many lanes the item takes, from `lane` on.
    /// A cancelled item stands in a strip at the right of its column, so that its time can be booked anew beside it.
    /// Its lanes are those of the strip.
    bool aside = false;
    /// How many lanes of the other kind it stands beside: those left of the strip for an item aside, otherwise more
    /// than 0 where the strip is taken. 0 means that none does.
    int beside = 0;
    bool cutTop = false;     ///< The item begins before the grid.
    bool cutBottom = false;  ///< The item ends after the grid.

    friend bool operator==(const PlacedItem&, const PlacedItem&) = default;
};

/// The items of one column. Those without a place in the grid are given by index, from 1.
struct ColumnLayout {
    std::vector<PlacedItem> placed;  ///< In the order of their drawn start.
    std::vector<int> banners;
    std::vector<int> earlier;  ///< Items wholly before the grid, by start.
    std::vector<int> later;    ///< Items wholly after the grid, by start.
};

struct CalendarLayout {
    std::vector<ColumnLayout> columns;
    int bannerRows =
        0;  ///< Rows under the heading: as many as the column with the most banners needs, at most MaxBannerRows.
    bool hasEarlier = false;
    bool hasLater = false;

    static constexpr int MaxBannerRows = 3;

    /// Returns the item's place in the grid, or null when it has none.
    [[nodiscard]] const PlacedItem* find(int index) const;
    /// Returns every shown item, column by column and from top to bottom, in the order of Tab.
    [[nodiscard]] std::vector<int> readingOrder() const;

    struct Spot {
        int column = 0;
        int position = -1;
    };
    std::vector<Spot> spots;  ///< Used by find, at index - 1.
};

/// Whether cancelled items stand aside. On paper, where nothing is booked, they have the room of any other.
enum class CancelledItems { Aside, AmongOthers };

/// Places all items. The items of a column are sorted by start, and those with the same start keep the order in which
/// they were added. Each takes the leftmost free lane and widens to the right over lanes that stay free beside it.
/// Items that are linked by overlaps share one number of lanes. Touching items do not overlap. No item is drawn shorter
/// than `minMinutes`, and overlaps are those of the drawn lengths, so that no card covers another.
CalendarLayout LayOut(const CalendarContent& content, int minMinutes, CancelledItems cancelled = CancelledItems::Aside);
