#pragma once

#include <QRectF>
#include <vector>

#include "platform/calendar/item.h"

class QColor;
class QPainter;

/// The small pictures of a calendar, drawn as outlines in one colour so that they fit every palette and size.
enum class Glyph {
    Pending,
    Tentative,
    CheckedIn,
    Kept,
    Missed,
    Cancelled,
    Group,
    Activity,
    Unavailable,
    TypeSlot,
    Location,
    Reminder,
    Note,
    SessionNote,
    Series,
    Bound,
    Charged,
    MessageLeft,
    NoAnswer,
    Declined,
    Confirmed,
    Holiday
};

/// Paints the glyph into the square.
void PaintGlyph(QPainter& painter, const QRectF& square, Glyph glyph, const QColor& color);

/// Returns the glyphs of an item, each once and the most important first: status, courtesy call, then the rest.
std::vector<Glyph> GlyphsOf(const CalendarItem& item);

/// Returns the words for a status or courtesy call picture, or an empty text for none.
QString StatusIconText(int statusIcon);
