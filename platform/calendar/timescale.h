#pragma once

#include <QString>

/// The vertical axis of a calendar. It maps minutes of the day to pixels, and back.
struct TimeScale {
    int first = 0;      ///< The minute at pixel 0.
    int last = 1440;    ///< The minute at which the axis ends.
    int interval = 15;  ///< Minutes of a row. Rows begin at its multiples, counted from midnight.
    double pixelsPerMinute = 1;

    /// Returns the pixel at which the minute begins. A minute outside the axis is brought to its end.
    [[nodiscard]] int y(int minute) const;
    /// Returns the last minute that begins at or above the pixel. A pixel outside the axis is brought to its end. It is
    /// the inverse of y where each minute has a pixel of its own. At every scale, a pixel further down never gives an
    /// earlier minute.
    [[nodiscard]] int minuteAt(int pixel) const;
    [[nodiscard]] int height() const { return y(last); }

    /// Returns the start of the row that contains the minute.
    [[nodiscard]] int rowStart(int minute) const;
    [[nodiscard]] int rowEnd(int minute) const;

    friend bool operator==(const TimeScale&, const TimeScale&) = default;
};

/// Returns "9:05 AM", "12:00 PM", or "09:05" with the 24-hour clock. The midnight that ends the day is "12:00 AM" like
/// the one that begins it, or "24:00" with the 24-hour clock. A minute outside the day is brought into it.
QString ClockText(int minute, bool twentyFourHour);
/// Returns "9:00 AM – 9:50 AM", or "9:00 – 9:50 AM" when both times are in the same half of the day.
QString ClockSpan(int start, int end, bool twentyFourHour);
