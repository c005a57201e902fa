#pragma once

#include <optional>
#include <QDateTime>

#include "platform/calendar/grid.h"

class QPainter;

/// A selected range of time.
struct SelectedTime {
    int column = 1;  ///< 1-based.
    int start = 0;
    int end = 0;

    friend bool operator==(const SelectedTime&, const SelectedTime&) = default;
};

/// What of a calendar changes while it is used; a printed one has none of it.
struct CalendarState {
    int selectedItem = 0;
    int hoveredItem = 0;
    int hoveredHeading = 0;
    std::optional<SelectedTime> range;
    int draggedItem = 0;
    std::optional<ItemPlace> ghost;  ///< Where the dragged item would be dropped.
    bool focused = false;
    QDateTime now;  ///< The present; null: it is not marked.

    friend bool operator==(const CalendarState&, const CalendarState&) = default;
};

/// All that painting a calendar needs.
struct CalendarScene {
    QPainter& painter;
    const CalendarContent& content;
    const CalendarLayout& layout;
    const CalendarGrid& grid;
    const CalendarState& state;
    const CalendarStyle& style;

    [[nodiscard]] const CalendarItem& item(int index) const;           ///< 1-based.
    [[nodiscard]] const CalendarColumn& column(int column) const;      ///< 1-based.
    [[nodiscard]] const ColumnLayout& columnLayout(int column) const;  ///< 1-based.
};

/// Paints a calendar, on screen, paper or a test's image alike: only what the clip shows.
void PaintCalendar(const CalendarScene& scene, const QRect& clip);

// Its steps.
void PaintHeadings(const CalendarScene& scene, const QRect& clip);  ///< With banners, and the strips above and below.
void PaintGutter(const CalendarScene& scene, const QRect& clip);
void PaintColumn(const CalendarScene& scene, int column, const QRect& clip);

/// A pill of text in the small font.
void PaintBubble(const CalendarScene& scene, const QRect& rect, const QString& text, const QColor& back,
                 const QColor& ink);
