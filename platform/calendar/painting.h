#pragma once

#include <optional>
#include <QDateTime>

#include "platform/calendar/grid.h"

class QPainter;

/// A selected range of time.
struct SelectedTime {
    int column = 1;  ///< From 1.
    int start = 0;
    int end = 0;

    friend bool operator==(const SelectedTime&, const SelectedTime&) = default;
};

/// The state of a calendar that changes while it is used. A printed calendar has none.
struct CalendarState {
    int selectedItem = 0;
    int hoveredItem = 0;
    int hoveredHeading = 0;
    std::optional<SelectedTime> range;
    int draggedItem = 0;
    std::optional<ItemPlace> ghost;        ///< The place where the dragged item would be dropped.
    std::optional<CalendarItem> incoming;  ///< The dragged item when it comes from outside the calendar.
    bool focused = false;
    QDateTime now;  ///< The present; it is not marked where this is null.

    friend bool operator==(const CalendarState&, const CalendarState&) = default;
};

/// Everything that painting a calendar needs.
struct CalendarScene {
    QPainter& painter;
    const CalendarContent& content;
    const CalendarLayout& layout;
    const CalendarGrid& grid;
    const CalendarState& state;
    const CalendarStyle& style;

    [[nodiscard]] const CalendarItem& item(int index) const;           ///< By index, from 1.
    [[nodiscard]] const CalendarColumn& column(int column) const;      ///< By number, from 1.
    [[nodiscard]] const ColumnLayout& columnLayout(int column) const;  ///< By number, from 1.
};

/// Paints a calendar on screen, on paper or into a test's image. It paints only the part inside the clip.
void PaintCalendar(const CalendarScene& scene, const QRect& clip);

// The steps of PaintCalendar.
void PaintHeadings(const CalendarScene& scene, const QRect& clip);  ///< Also banners, and the strips above and below.
void PaintGutter(const CalendarScene& scene, const QRect& clip);
void PaintColumn(const CalendarScene& scene, int column, const QRect& clip);

/// Paints a text in the small font on a rounded background.
void PaintBubble(const CalendarScene& scene, const QRect& rect, const QString& text, const QColor& back,
                 const QColor& ink);
