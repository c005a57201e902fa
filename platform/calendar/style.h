#pragma once

#include <QColor>
#include <QFont>

class QPalette;

/// Fonts, colours and measures for painting a calendar. Measures are pixels and follow from the fonts, so that large
/// fonts and fine screens need nothing of their own.
struct CalendarStyle {
    QFont text;
    QFont small;      ///< For second lines, short items and chips.
    QFont hour;       ///< For hour labels.
    QFont minute;     ///< For minute labels and AM/PM.
    QFont heading;    ///< For column headings.
    QFont dayNumber;  ///< For the number of a day in its heading.

    int textLine = 0;
    int smallLine = 0;
    int margin = 0;         ///< The small distance between all parts.
    int edgeWidth = 0;      ///< The width of a card's strong bar.
    int radius = 0;         ///< The radius of a card's corners.
    int icon = 0;           ///< The side of a glyph.
    int minItemHeight = 0;  ///< No card is lower, however short its item.
    int gutterWidth = 0;
    int headingHeight = 0;
    int stripHeight = 0;     ///< Height of a banner and of the strips that count earlier and later items.
    int minColumnWidth = 0;  ///< Applies when as many columns as fit share the width.
    int grip = 0;            ///< Height of the zones at a card's edges that resize it.

    QColor window;
    QColor base;
    QColor shade;  ///< The ground of hours outside the prime hours.
    QColor hourLine;
    QColor rowLine;
    QColor columnLine;
    QColor ink;     ///< For text.
    QColor dimInk;  ///< For quiet text.
    QColor accent;  ///< For selection, focus and today.
    QColor accentInk;
    QColor present;  ///< The line of the present time.

    /// Returns the height of one row of the grid at zoom 1.
    [[nodiscard]] int rowHeight(int intervalMinutes) const;

    friend bool operator==(const CalendarStyle&, const CalendarStyle&) = default;
};

CalendarStyle ScreenStyle(const QPalette& palette, const QFont& font);

/// Returns black on white for paper laid out at 96 dots to the inch; point sizes keep their size on paper. `time` is
/// the font of the time column.
CalendarStyle PrintStyle(const QFont& font, const QFont& time);
