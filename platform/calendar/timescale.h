#pragma once

#include <QString>

/// The vertical axis of a calendar: minutes of the day on pixels, and back.
struct TimeScale {
    int first = 0;      ///< The minute at pixel 0.
    int last = 1440;    ///< The minute at which the axis ends.
    int interval = 15;  ///< Minutes of a row; rows begin at multiples of it, counted from midnight.
    double pixelsPerMinute = 1;

    /// Pixel at which the minute begins. Minutes outside are brought to the ends.
    [[nodiscard]] int y(int minute) const;
    /// The last minute that begins at or above the pixel; pixels outside are brought to the ends. It undoes y where
    /// minutes have pixels of their own, and at every scale pixels never run backwards.
    [[nodiscard]] int minuteAt(int pixel) const;
    [[nodiscard]] int height() const { return y(last); }

    /// Start of the row in which the minute stands.
    [[nodiscard]] int rowStart(int minute) const;
    [[nodiscard]] int rowEnd(int minute) const;
    /// The nearest row boundary.
    [[nodiscard]] int snapped(int minute) const;

    friend bool operator==(const TimeScale&, const TimeScale&) = default;
};

/// "9:05 AM", "12:00 PM", or "09:05" in 24 hours. The midnight that ends the day reads like the one that begins it in
/// 12 hours, and "24:00" in 24. Minutes outside the day are brought into it.
QString ClockText(int minute, bool twentyFourHour);
/// "9:00 AM – 9:50 AM"; shortened to "9:00 – 9:50 AM" when both are in the same half of the day.
QString ClockSpan(int start, int end, bool twentyFourHour);
