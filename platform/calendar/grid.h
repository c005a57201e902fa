#pragma once

#include <QRect>

#include "platform/calendar/layout.h"
#include "platform/calendar/style.h"
#include "platform/calendar/timescale.h"

/// The places of all parts of a calendar, in pixels of the widget or of the page. No other class knows about scrolling.
/// Columns count from 1, and minutes count from midnight.
struct CalendarGrid {
    QRect area;
    int gutterWidth = 0;
    int headingHeight = 0;  ///< 0 means no heading.
    int stripHeight = 0;
    int bannerRows = 0;
    bool earlierStrip = false;
    bool laterStrip = false;
    TimeScale scale;
    int columns = 0;
    double columnWidth = 0;
    int gap = 0;    ///< Free room at the right of a column, where time can be selected beside items.
    int strip = 0;  ///< Most of a column that cancelled items take at its right; what is left can be booked.
    int scrollX = 0;
    int scrollY = 0;

    /// The part that scrolls: the time grid without gutter, headings and strips.
    [[nodiscard]] QRect body() const;
    [[nodiscard]] QRect headings() const;  ///< The headings of all columns, without the corner over the gutter.
    [[nodiscard]] QRect gutter() const;    ///< The time labels beside the body.

    [[nodiscard]] int columnLeft(int column) const;
    [[nodiscard]] QRect columnRect(
        int column) const;  ///< The column's part of the body, at the current scroll position.
    [[nodiscard]] QRect headingRect(int column) const;
    [[nodiscard]] QRect bannerRect(int column, int row) const;
    [[nodiscard]] QRect earlierRect(int column) const;
    [[nodiscard]] QRect laterRect(int column) const;
    [[nodiscard]] QRect itemRect(const PlacedItem& item) const;
    [[nodiscard]] QRect timeRect(int column, int start, int end) const;  ///< The full width of the column.

    [[nodiscard]] int y(int minute) const;
    [[nodiscard]] int minuteAt(int y) const;
    [[nodiscard]] int columnAt(int x) const;  ///< The nearest column, or 0 when there are none.
    [[nodiscard]] int firstColumnIn(const QRect& clip) const;
    [[nodiscard]] int lastColumnIn(const QRect& clip) const;

    [[nodiscard]] int contentWidth() const;
    /// The width of the strip beside which so many lanes of other items stand.
    [[nodiscard]] double stripBeside(int lanes) const;
    [[nodiscard]] int contentHeight() const { return scale.height(); }

    friend bool operator==(const CalendarGrid&, const CalendarGrid&) = default;
};

/// How a grid is to be fitted into its area.
struct GridWishes {
    QRect area;
    int visibleColumns = 0;  ///< 0 means as many as fit.
    double zoom = 1;
    bool fitHeight = false;  ///< Shows the whole day without scrolling, as on paper.
};

/// Returns the grid before scrolling. Rows are at least as high as the style says (times zoom) and stretch to fill the
/// body. The grid has the strips that the layout needs. It must therefore be fitted twice: first with an empty layout,
/// to find pixelsPerMinute, and then with the result of LayOut.
CalendarGrid FitGrid(const CalendarContent& content, const CalendarLayout& layout, const CalendarStyle& style,
                     const GridWishes& wishes);

/// Returns the shortest drawn length of an item at this scale, in minutes.
int MinMinutes(const TimeScale& scale, const CalendarStyle& style);
