#pragma once

#include <QDate>
#include <vector>

#include "platform/calendar/monthlayout.h"

class QPainter;

/// What is drawn apart from the month itself. On paper nothing of it is set.
struct MonthState {
    QDate today;
    QDate selected;
    bool focused = false;
    int hoveredItem = 0;  ///< From 1; 0 for none.
};

/// Everything that painting a month needs. The references must outlive the scene.
struct MonthScene {
    QPainter& painter;
    const std::vector<CalendarItem>& items;
    const MonthGrid& grid;
    const MonthLayout& layout;
    const CalendarStyle& style;
    bool twentyFourHour = false;
    MonthState state;
    /// The least distance between an item's time and its text. On paper widths are rounded more than on the screen, and
    /// the small margin alone would let some of them touch.
    int leastGap = 0;

    [[nodiscard]] const CalendarItem& item(int index) const { return items[static_cast<std::size_t>(index) - 1]; }
};

/// Paints the part of the month inside `clip`, at the place of its layout.
void PaintMonth(const MonthScene& scene, const QRect& clip);
