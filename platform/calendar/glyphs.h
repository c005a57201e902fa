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

/// The glyphs of an item, the most telling first and none twice: status, courtesy call, then the rest.
std::vector<Glyph> GlyphsOf(const CalendarItem& item);

/// What a courtesy call or status picture says in words; empty for none.
QString StatusIconText(int statusIcon);
