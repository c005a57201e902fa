#include "platform/controls/datelayout.h"

QDate MonthGrid::firstDate() const {
    const QDate first(month.year(), month.month(), 1);
    const int before = (first.dayOfWeek() - firstDayOfWeek + Days) % Days;
    return first.addDays(-before);
}

std::optional<int> MonthGrid::positionOf(QDate date) const {
    const qint64 position = firstDate().daysTo(date);
    if (!date.isValid() || position < 0 || position >= qint64{Weeks} * Days)
        return std::nullopt;
    return static_cast<int>(position);
}

Qt::DayOfWeek MonthGrid::dayOfWeekAt(int day) const {
    return static_cast<Qt::DayOfWeek>((firstDayOfWeek - 1 + day) % Days + 1);
}

DateLayout::Hit DateLayout::hit(QPoint point) const {
    if (previous().contains(point))
        return {Hit::Part::Previous};
    if (next().contains(point))
        return {Hit::Part::Next};
    if (heading().contains(point))
        return {Hit::Part::Heading};
    for (int position = 0; position < MonthGrid::Weeks * MonthGrid::Days; ++position)
        if (dayAt(position).contains(point))
            return {Hit::Part::Day, position};
    return {};
}

QRect DateLayout::cell(int week, int day) const {
    // Each edge is rounded on its own, so that the columns of a narrow pane may differ by a pixel but leave no gap.
    const int left = size.width() * day / MonthGrid::Days;
    const int right = size.width() * (day + 1) / MonthGrid::Days;
    return {left, rowHeight * (week + 2), right - left, rowHeight};
}
