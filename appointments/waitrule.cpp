#include "appointments/waitrule.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "data/minutetime.h"

namespace {

constexpr int StepMinutes = 5;

MinuteRange common(MinuteRange one, MinuteRange other) {
    return {std::max(one.start, other.start), std::min(one.end, other.end)};
}

bool isEmpty(MinuteRange range) {
    return range.start >= range.end;
}

void take(std::vector<MinuteRange>& free, MinuteRange taken) {
    std::vector<MinuteRange> left;
    for (const MinuteRange& piece : free) {
        for (const MinuteRange& rest : {MinuteRange{piece.start, std::min(piece.end, taken.start)},
                                        MinuteRange{std::max(piece.start, taken.end), piece.end}})
            if (!isEmpty(rest))
                left.push_back(rest);
    }
    free = std::move(left);
}

// A row without a length holds its minute, as it does for the conflict check.
MinuteRange atLeastAMinute(MinuteRange booked) {
    return {booked.start, std::max(booked.end, booked.start + 1)};
}

// The freed time with all open times that it meets, directly or through others.
MinuteRange offered(MinuteRange freed, const std::vector<MinuteRange>& open) {
    for (bool grows = true; std::exchange(grows, false);)
        for (const MinuteRange& next : open) {
            if (isEmpty(next) || next.end < freed.start || freed.end < next.start)
                continue;
            const MinuteRange both{std::min(freed.start, next.start), std::max(freed.end, next.end)};
            grows = grows || both != freed;
            freed = both;
        }
    return freed;
}

bool wants(const WaitEntry& entry, const FreedTime& freed) {
    return entry.providers.isEmpty() || entry.providers.contains(freed.provider, Qt::CaseInsensitive);
}

bool mayCome(const WaitEntry& entry, const FreedTime& freed) {
    const bool gaveItUp =
        !freed.patientId.isEmpty() && entry.patientId.compare(freed.patientId, Qt::CaseInsensitive) == 0;
    return !entry.closed && entry.patientActive && entry.minutes > 0 && !gaveItUp && wants(entry, freed) &&
           (entry.days & WeekdayBit(freed.date)) != 0 && (!entry.until.isValid() || freed.date <= entry.until);
}

std::optional<int> startIn(MinuteRange piece, int minutes, MinuteRange freed) {
    const int half = (minutes + 1) / 2;
    const int first = std::max(piece.start, freed.start + half - minutes);
    const int last = std::min(piece.end - minutes, freed.end - half);
    if (first > last || freed.end - freed.start < half)
        return std::nullopt;
    return std::clamp(freed.start, first, last);
}

}  // namespace

int WeekdayBit(QDate date) {
    return date.isValid() ? 1 << (date.dayOfWeek() % 7) : 0;
}

int EarliestMinute(QDate date, const QDateTime& now) {
    if (date != now.date())
        return date > now.date() ? 0 : MinutesPerDay;
    const int minute = now.time().msecsSinceStartOfDay() / 60000;
    const bool isWhole = minute * 60000 == now.time().msecsSinceStartOfDay();
    return (minute + (isWhole ? 0 : 1) + StepMinutes - 1) / StepMinutes * StepMinutes;
}

std::optional<int> StartThatFits(const WaitEntry& entry, const FreedTime& freed, const DayAround& around,
                                 const std::vector<MinuteRange>& ofPatient) {
    if (isEmpty(freed.time) || !around.providerActive || !mayCome(entry, freed))
        return std::nullopt;
    std::vector<MinuteRange> free{offered(freed.time, around.open)};
    for (const MinuteRange& booked : around.booked)
        take(free, atLeastAMinute(booked));
    for (const MinuteRange& visit : ofPatient)
        take(free, atLeastAMinute(visit));
    const MinuteRange allowed = common(common(entry.times, {around.earliest, MinutesPerDay}), {0, MinutesPerDay});
    std::optional<int> best;
    for (const MinuteRange& piece : free) {
        const std::optional<int> start = startIn(common(piece, allowed), entry.minutes, freed.time);
        if (start && (!best || std::abs(*start - freed.time.start) <= std::abs(*best - freed.time.start)))
            best = start;
    }
    return best;
}
