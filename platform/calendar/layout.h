#pragma once

#include <vector>

#include "platform/calendar/content.h"

/// An item in the time grid: what part of the column's height and width it takes.
struct PlacedItem {
    int index = 0;  ///< 1-based.
    int column = 1;
    int start = 0;  ///< Minutes drawn, inside the grid and never shorter than the least drawn length.
    int end = 0;
    int lane = 0;  ///< 0-based lane of `lanes` that share the column's width.
    int lanes = 1;
    int span = 1;         ///< Lanes that the item takes, from `lane` on.
    bool cutTop = false;  ///< The item begins before the grid.
    bool cutBottom = false;

    friend bool operator==(const PlacedItem&, const PlacedItem&) = default;
};

/// The items of one column, as 1-based indexes where they have no place in the grid.
struct ColumnLayout {
    std::vector<PlacedItem> placed;  ///< By drawn start.
    std::vector<int> banners;
    std::vector<int> earlier;  ///< Wholly before the grid, by start.
    std::vector<int> later;    ///< Wholly after it, by start.
};

struct CalendarLayout {
    std::vector<ColumnLayout> columns;
    int bannerRows = 0;  ///< Rows under the heading: the most banners of a column, at most MaxBannerRows.
    bool hasEarlier = false;
    bool hasLater = false;

    static constexpr int MaxBannerRows = 3;

    /// The item's place in the grid, or null when it has none.
    [[nodiscard]] const PlacedItem* find(int index) const;
    /// Every shown item, column by column, each from top to bottom: the order in which Tab goes.
    [[nodiscard]] std::vector<int> readingOrder() const;

    struct Spot {
        int column = 0;
        int position = -1;
    };
    std::vector<Spot> spots;  ///< For find: by index - 1.
};

/// Places all items. Items of a column are sorted by start, those of the same start keep the order in which they were
/// added; each takes the leftmost lane that is free, and widens to the right over lanes that stay free beside it. Items
/// that follow each other through overlaps share one number of lanes. Touching items do not overlap. Nothing is drawn
/// shorter than `minMinutes`, and overlaps are those of the drawn lengths, so that no card covers another.
CalendarLayout LayOut(const CalendarContent& content, int minMinutes);
