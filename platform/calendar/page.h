#pragma once

#include <QRectF>

#include "platform/calendar/content.h"
#include "platform/calendar/style.h"

class QPainter;

/// Paints columns firstColumn (1-based) to firstColumn + columnCount - 1 of a calendar into the area, the whole day
/// without scrolling; the hours widen so that no item is left out, and where so many overlap that their cards could not
/// be read, the rest is listed below. The style decides fonts and colours (PrintStyle).
void PaintPage(QPainter& painter, const QRectF& area, const CalendarContent& content, int firstColumn, int columnCount,
               const CalendarStyle& style);
