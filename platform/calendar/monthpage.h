#pragma once

#include <QRectF>
#include <span>

#include "platform/calendar/monthlayout.h"

class QPainter;

/// The content of a month calendar as plain values.
struct MonthContent {
    std::vector<CalendarItem> items;
    MonthGrid grid;
    bool twentyFourHour = false;
};

/// Paints a month into the area, with a row for each week. It uses the first of the styles, of which there is at least
/// one, in which every item has a line. Full weeks become higher than others. Where even the last style is too large,
/// the day tells how many items it does not show ("+3 more").
void PaintMonthPage(QPainter& painter, const QRectF& area, const MonthContent& content,
                    std::span<const CalendarStyle> styles);
