#pragma once

#include <functional>
#include <QString>
#include <vector>

class QPainter;
class QRect;
struct CalendarStyle;

/// Something that a calendar draws besides the colours of its items, and what it means.
struct LegendMark {
    /// Paints it into the rectangle, as the calendar does.
    std::function<void(QPainter& painter, const QRect& rect, const CalendarStyle& style)> paint;
    QString meaning;
};

/// Returns the marks of the practice's own calendars.
[[nodiscard]] std::vector<LegendMark> AppointmentMarks();
/// Returns the marks of the companion's calendar.
[[nodiscard]] std::vector<LegendMark> CompanionMarks();
