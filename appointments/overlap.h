#pragma once

/// A time on one day in minutes since midnight, its end not included.
struct MinuteSpan {
    double start = 0;
    double end = 0;
    friend bool operator==(const MinuteSpan&, const MinuteSpan&) = default;
};

/// Whether a proposed time conflicts with one that is booked, as the conflict statements ask the database: the proposed
/// start lies in the booked time, or the proposed end does, or the booked start lies in the proposed time. The bounds
/// are kept apart by a tenth of a minute, so times that only touch do not conflict. Times of no length: a proposed one
/// conflicts with a booked one that holds it, at its first and last minute too; a booked one conflicts with a proposed
/// one that holds its minute, the end not included. Ends before starts are allowed and tested the same way.
[[nodiscard]] bool Overlaps(MinuteSpan proposed, MinuteSpan booked);

/// The minutes that both times have in common, 0 where there are none.
[[nodiscard]] double MinutesInCommon(MinuteSpan one, MinuteSpan other);
