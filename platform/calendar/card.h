#pragma once

#include <QRect>

#include "platform/calendar/colour.h"
#include "platform/calendar/item.h"
#include "platform/calendar/style.h"

class QPainter;

/// The state in which an item's card is painted.
struct CardState {
    bool selected = false;
    bool hovered = false;
    bool focused = false;    ///< Selected, while the calendar has the keyboard.
    bool cutTop = false;     ///< The item begins before the grid.
    bool cutBottom = false;  ///< The item ends after the grid.
    bool ghost = false;      ///< The place of a drop, framed like a focused card.
    bool twentyFourHour = false;
    int start = 0;  ///< The times that the card shows, in minutes since midnight.
    int end = 0;
};

/// Paints the card of an item: its edge, tint, text with time and place as far as there is room, and glyphs. The name
/// comes before all else and takes two lines where it needs them. The glyphs take what it leaves of its line, or else
/// the end of the last line; the location pin stands by the place that is written. A low or narrow card shows less, but
/// never half a line.
void PaintCard(QPainter& painter, const QRect& rect, const CalendarItem& item, const CardState& state,
               const CalendarStyle& style);

/// Paints a banner: one line for an item that has no place in the grid.
void PaintBanner(QPainter& painter, const QRect& rect, const CalendarItem& item, const CardState& state,
                 const CalendarStyle& style);

/// Returns the words for an item that is put aside to be moved (ItemShelved).
QString ShelvedText();

/// Returns a text as one line for painting, no longer than a screen can hold.
QString PaintedLine(const QString& text);
