#include "appointments/overlap.h"

#include <algorithm>

namespace {

// Shorter than any time that can be booked, so that the bounds of Between can be kept apart.
constexpr double TenthOfAMinute = 0.1;

bool between(double value, double low, double high) {
    return low <= value && value <= high;
}

}  // namespace

bool Overlaps(MinuteSpan proposed, MinuteSpan booked) {
    return between(proposed.start, booked.start, booked.end - TenthOfAMinute) ||
           between(proposed.end, booked.start + TenthOfAMinute, booked.end) ||
           between(booked.start + TenthOfAMinute, proposed.start, proposed.end);
}

double MinutesInCommon(MinuteSpan one, MinuteSpan other) {
    return std::max(0.0, std::min(one.end, other.end) - std::max(one.start, other.start));
}
