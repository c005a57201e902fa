#pragma once

#include <QRect>

#include "platform/calendar/colour.h"
#include "platform/calendar/item.h"
#include "platform/calendar/style.h"

class QPainter;

/// How an item's card is painted, besides what the item says.
struct CardState {
    bool selected = false;
    bool hovered = false;
    bool focused = false;  ///< Selected, and the calendar has the keyboard.
    bool cutTop = false;   ///< Goes on before the grid.
    bool cutBottom = false;
    bool ghost = false;  ///< Where a drag would drop it: framed like the focused one.
    bool twentyFourHour = false;
    int start = 0;  ///< The times it shows.
    int end = 0;
};

/// Paints the card of an item: edge, tint, text with time and place as far as there is room, glyphs at the right. A low
/// or narrow card shows less, never half a line.
void PaintCard(QPainter& painter, const QRect& rect, const CalendarItem& item, const CardState& state,
               const CalendarStyle& style);

/// Paints one line for an item that has no place in the grid: a banner.
void PaintBanner(QPainter& painter, const QRect& rect, const CalendarItem& item, const CardState& state,
                 const CalendarStyle& style);

/// One line of text for painting, no longer than a screen can hold.
QString PaintedLine(const QString& text);
