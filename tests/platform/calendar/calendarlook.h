#pragma once

#include "platform/calendar/style.h"
#include "tests/platform/calendar/calendarunderhand.h"
#include "tests/platform/calendar/picture.h"

/// A calendar as it is painted in each look.
class CalendarLook : public testing::TestWithParam<Look> {
  protected:
    CalendarLook() {
        hand.calendar.setPalette(PaletteOf(ColoursOf(GetParam().mode)));
        style = ScreenStyle(hand.calendar.palette(), hand.calendar.font());
        hand.settle();
    }

    [[nodiscard]] Picture seen() {
        hand.settle();
        return Picture::of(hand.calendar, GetParam().ratio);
    }
    /// The place of the minutes from start to end in the column.
    [[nodiscard]] QRect timeAt(int start, int end, int column = 1) const {
        return hand.calendar.CellRect(column, start) | hand.calendar.CellRect(column, end - 1);
    }
    /// The inside of the row at its right, where neither a line nor a word stands.
    [[nodiscard]] QRect insideOf(int minute, int column = 1) const {
        const QRect row = hand.calendar.CellRect(column, minute);
        return {row.center().x(), row.top() + 3, row.width() / 2 - 10, row.height() - 6};
    }

    CalendarUnderHand hand;
    CalendarStyle style;
};
