#pragma once

/// A time on one day in minutes since midnight. The end is not included.
struct MinuteSpan {
    double start = 0;
    double end = 0;
    friend bool operator==(const MinuteSpan&, const MinuteSpan&) = default;
};

/// Whether a proposed time conflicts with a booked one, by the same rule as the conflict statements of the database:
/// the proposed start lies in the booked time, or the proposed end does, or the booked start lies in the proposed time.
/// The bounds are kept apart by a tenth of a minute, so that times that only touch do not conflict. A proposed time of
/// no length conflicts with a booked one that holds it, also at its first and last minute. A booked time of no length
/// conflicts with a proposed one that holds its minute, the end not included. A time that ends before it starts is
/// tested in the same way.
[[nodiscard]] bool Overlaps(MinuteSpan proposed, MinuteSpan booked);

/// Returns the number of minutes that both times have in common; 0 when there are none.
[[nodiscard]] double MinutesInCommon(MinuteSpan one, MinuteSpan other);
