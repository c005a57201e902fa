#pragma once

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "platform/calendar/ctweek.h"

inline CalendarItem itemOn(QDate day, int start, const char* text, int color = 0xFF0000) {
    CalendarItem item;
    item.ItemDay = day;
    item.ItemStart = start;
    item.ItemEnd = start + 50;
    item.ItemText = QString::fromUtf8(text);
    item.ItemColor = color;
    return item;
}

/// March 2026 from Sunday on, with the 11th as the day that is selected and today, shown.
class MonthUnderHand {
  public:
    MonthUnderHand() {
        month.setFirstDayOfWeek(Qt::Sunday);
        month.setClock([] { return QDateTime(QDate(2026, 3, 11), QTime(12, 0)); });
        month.setDate(day);
        month.resize(1000, 700);
        month.show();
        month.activateWindow();
        month.setFocus();
        QCoreApplication::processEvents();
    }

    [[nodiscard]] const MonthCell& cell(QDate date) const {
        for (const MonthCell& candidate : month.Layout().cells)
            if (candidate.day == date)
                return candidate;
        ADD_FAILURE() << "That day is not shown.";
        return month.Layout().cells.front();
    }
    [[nodiscard]] QStringList texts(QDate date) const {
        QStringList shown;
        for (const MonthLine& line : cell(date).lines)
            shown << (line.index > 0 ? month.Item(line.index).ItemText : QStringLiteral("more"));
        return shown;
    }

    QDate day{2026, 3, 11};
    ctWeek month;
};

class MonthCalendar : public testing::Test, public MonthUnderHand {};
