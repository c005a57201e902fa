#pragma once

#include <QRectF>

#include "platform/calendar/content.h"
#include "platform/calendar/pagenotes.h"
#include "platform/calendar/style.h"

class QPainter;

/// Paints columns firstColumn (from 1) to firstColumn + columnCount - 1 of a calendar into the area. It paints the
/// whole day without scrolling, and widens the hours so that no item is left out. Where so many items overlap that
/// their cards could not be read, the rest is listed below the grid. The style decides fonts and colours (PrintStyle).
/// The notes stand in the headings and at the foot.
void PaintPage(QPainter& painter, const QRectF& area, const CalendarContent& content, int firstColumn, int columnCount,
               const CalendarStyle& style, const PageNotes& notes = {});
