#pragma once

#include <QRect>

#include "platform/calendar/layout.h"
#include "platform/calendar/style.h"
#include "platform/calendar/timescale.h"

/// Where everything of a calendar stands, in pixels of the widget or of the page. It alone knows scrolling; columns are
/// 1-based, minutes count from midnight.
struct CalendarGrid {
    QRect area;
    int gutterWidth = 0;
    int headingHeight = 0;  ///< 0: no heading.
    int stripHeight = 0;
    int bannerRows = 0;
    bool earlierStrip = false;
    bool laterStrip = false;
    TimeScale scale;
    int columns = 0;
    double columnWidth = 0;
    int gap = 0;  ///< Left free at the right of a column, where its time can be selected beside items.
    int scrollX = 0;
    int scrollY = 0;

    /// The scrolled part: the time grid without gutter, headings and strips.
    [[nodiscard]] QRect body() const;
    [[nodiscard]] QRect headings() const;  ///< Headings of all columns, without the gutter's corner.
    [[nodiscard]] QRect gutter() const;    ///< The time labels beside the body.

    [[nodiscard]] int columnLeft(int column) const;
    [[nodiscard]] QRect columnRect(int column) const;  ///< The column's part of the body, as far as it is scrolled to.
    [[nodiscard]] QRect headingRect(int column) const;
    [[nodiscard]] QRect bannerRect(int column, int row) const;
    [[nodiscard]] QRect earlierRect(int column) const;
    [[nodiscard]] QRect laterRect(int column) const;
    [[nodiscard]] QRect itemRect(const PlacedItem& item) const;
    [[nodiscard]] QRect timeRect(int column, int start, int end) const;  ///< Full width of the column.

    [[nodiscard]] int y(int minute) const;
    [[nodiscard]] int minuteAt(int y) const;
    [[nodiscard]] int columnAt(int x) const;  ///< The nearest column; 0 when there are none.
    [[nodiscard]] int firstColumnIn(const QRect& clip) const;
    [[nodiscard]] int lastColumnIn(const QRect& clip) const;

    [[nodiscard]] int contentWidth() const;
    [[nodiscard]] int contentHeight() const { return scale.height(); }

    friend bool operator==(const CalendarGrid&, const CalendarGrid&) = default;
};

/// How a grid is fitted into its area.
struct GridWishes {
    QRect area;
    int visibleColumns = 0;  ///< 0: as many as fit.
    double zoom = 1;
    bool fitHeight = false;  ///< The whole day without scrolling, as on paper.
};

/// The grid before scrolling. Rows are at least as high as the style says (times zoom), and stretch so that the body is
/// filled; the strips are those that the layout needs, so fit twice: first with an empty layout to know
/// pixelsPerMinute, then with what LayOut gives.
CalendarGrid FitGrid(const CalendarContent& content, const CalendarLayout& layout, const CalendarStyle& style,
                     const GridWishes& wishes);

/// The least drawn length of an item in minutes at this scale.
int MinMinutes(const TimeScale& scale, const CalendarStyle& style);
