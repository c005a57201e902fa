#pragma once

#include <QColor>
#include <QFont>

class QPalette;

/// Fonts, colours and measures with which a calendar is painted. Measures are pixels and follow from the fonts, so that
/// large fonts and fine screens need nothing of their own.
struct CalendarStyle {
    QFont text;
    QFont small;      ///< Second lines, short items, chips.
    QFont hour;       ///< Hour labels.
    QFont minute;     ///< Minute labels and AM/PM.
    QFont heading;    ///< Column headings.
    QFont dayNumber;  ///< The number of a day in its heading.

    int textLine = 0;
    int smallLine = 0;
    int margin = 0;         ///< The small distance that everything keeps.
    int edgeWidth = 0;      ///< Strong bar of a card.
    int radius = 0;         ///< Corners of a card.
    int icon = 0;           ///< Side of a glyph.
    int minItemHeight = 0;  ///< No card is lower, however short the item.
    int gutterWidth = 0;
    int headingHeight = 0;
    int stripHeight = 0;     ///< A banner, and the strips that count earlier and later items.
    int minColumnWidth = 0;  ///< When as many columns as fit share the width.
    int grip = 0;            ///< Height of the zones at a card's edges that resize it.

    QColor window;
    QColor base;
    QColor shade;  ///< Hours outside the prime hours.
    QColor hourLine;
    QColor rowLine;
    QColor columnLine;
    QColor ink;     ///< Text.
    QColor dimInk;  ///< Quiet text.
    QColor accent;  ///< Selection, focus, today.
    QColor accentInk;
    QColor present;  ///< The line of the present time.

    /// Height of one row of the grid at zoom 1.
    [[nodiscard]] int rowHeight(int intervalMinutes) const;

    friend bool operator==(const CalendarStyle&, const CalendarStyle&) = default;
};

CalendarStyle ScreenStyle(const QPalette& palette, const QFont& font);

/// Black on white for paper laid out at 96 dots to the inch; point sizes keep their size on paper. `time` is the font
/// of the time column.
CalendarStyle PrintStyle(const QFont& font, const QFont& time);
