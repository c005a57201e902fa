#include "appointments/waitrule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace {

const QDate Wednesday(2026, 3, 11);

WaitEntry waiting(int minutes) {
    WaitEntry entry;
    entry.patientId = QStringLiteral("P1");
    entry.minutes = minutes;
    return entry;
}

FreedTime freedHour() {
    return {QStringLiteral("REED"), Wednesday, {600, 660}, QStringLiteral("P9")};
}

/// The rule once more, in the slowest way: each minute of the day is looked at, and each place is tried.
class EveryMinute {
  public:
    EveryMinute(const WaitEntry& entry, const FreedTime& freed, const DayAround& around,
                const std::vector<MinuteRange>& ofPatient)
        : entry_(entry), freed_(freed) {
        std::array<bool, 1440> reached{};
        mark(reached, freed.time, true);
        for (bool grows = true; grows;) {
            grows = false;
            for (const MinuteRange& open : around.open)
                if (touches(reached, open) && !isMarked(reached, open)) {
                    mark(reached, open, true);
                    grows = true;
                }
        }
        free_ = reached;
        for (const MinuteRange& taken : around.booked)
            mark(free_, {taken.start, std::max(taken.end, taken.start + 1)}, false);
        for (const MinuteRange& taken : ofPatient)
            mark(free_, {taken.start, std::max(taken.end, taken.start + 1)}, false);
        mark(free_, {0, entry.times.start}, false);
        mark(free_, {entry.times.end, 1440}, false);
        mark(free_, {0, around.earliest}, false);
    }

    [[nodiscard]] std::optional<int> start() const {
        std::optional<int> best;
        for (int start = 0; start + entry_.minutes <= 1440; ++start) {
            const auto first = free_.begin() + start;
            const bool isFree = std::all_of(first, first + entry_.minutes, [](bool free) { return free; });
            int ofIt = 0;
            for (int minute = start; minute < start + entry_.minutes; ++minute)
                ofIt += freed_.time.start <= minute && minute < freed_.time.end ? 1 : 0;
            const auto distance = [this](int minute) { return std::abs(minute - freed_.time.start); };
            if (isFree && 2 * ofIt >= entry_.minutes && (!best || distance(start) <= distance(*best)))
                best = start;
        }
        return best;
    }

  private:
    using Minutes = std::array<bool, 1440>;
    static void mark(Minutes& minutes, MinuteRange range, bool value) {
        for (int minute = std::max(range.start, 0); minute < std::min(range.end, 1440); ++minute)
            minutes[static_cast<std::size_t>(minute)] = value;
    }
    static bool isMarked(const Minutes& minutes, MinuteRange range) {
        for (int minute = range.start; minute < range.end; ++minute)
            if (!minutes[static_cast<std::size_t>(minute)])
                return false;
        return true;
    }
    static bool touches(const Minutes& minutes, MinuteRange range) {
        if (range.start >= range.end)
            return false;
        for (int minute = std::max(range.start - 1, 0); minute < std::min(range.end + 1, 1440); ++minute)
            if (minutes[static_cast<std::size_t>(minute)])
                return true;
        return false;
    }

    const WaitEntry& entry_;
    const FreedTime& freed_;
    Minutes free_{};
};

class RandomCase {
  public:
    explicit RandomCase(unsigned seed) : engine_(seed) {
        freed = {number(0, 3) == 0 ? QStringLiteral("reed") : QStringLiteral("LANE"), Wednesday.addDays(number(0, 6)),
                 range(2), number(0, 20) == 0 ? QStringLiteral("p1") : QString()};
        entry.patientId = QStringLiteral("P1");
        entry.patientActive = number(0, 30) > 0;
        entry.closed = number(0, 30) == 0;
        entry.minutes = number(0, 40) == 0 ? 0 : number(1, 12) * 5 + (number(0, 3) == 0 ? number(0, 4) : 0);
        if (number(0, 3) == 0)
            entry.providers = QStringList{QStringLiteral("REED"), QStringLiteral("Lane")}.mid(number(0, 1), 1);
        entry.days = number(0, 4) == 0 ? number(0, 127) : EveryDay;
        if (number(0, 2) == 0)
            entry.times = range(8);
        if (number(0, 4) == 0)
            entry.until = Wednesday.addDays(number(0, 6));
        around.providerActive = number(0, 30) > 0;
        for (int i = number(0, 3); i > 0; --i)
            around.booked.push_back(range(2));
        for (int i = number(0, 3); i > 0; --i)
            around.open.push_back(range(4));
        for (int i = number(0, 2); i > 0; --i)
            ofPatient.push_back(range(2));
        around.earliest = number(0, 3) == 0 ? number(540, 720) : 0;
    }

    /// All that does not depend on the time of the day.
    [[nodiscard]] bool isWanted() const {
        const bool provider =
            entry.providers.isEmpty() || entry.providers.front().toLower() == freed.provider.toLower();
        const bool day = ((entry.days >> (freed.date.dayOfWeek() == 7 ? 0 : freed.date.dayOfWeek())) & 1) == 1;
        return entry.patientActive && !entry.closed && entry.minutes > 0 && around.providerActive && provider && day &&
               (entry.until.isNull() || freed.date <= entry.until) && freed.patientId.isEmpty();
    }

    WaitEntry entry;
    FreedTime freed;
    DayAround around;
    std::vector<MinuteRange> ofPatient;

  private:
    int number(int low, int high) { return std::uniform_int_distribution(low, high)(engine_); }
    /// Around ten o'clock, mostly on a grid so that many touch; some have no length.
    MinuteRange range(int quarters) {
        const int start = 540 + number(0, 12) * 15 + (number(0, 5) == 0 ? number(0, 14) : 0);
        return {start, start + (number(0, 12) == 0 ? 0 : number(1, 4 * quarters) * 5)};
    }

    std::mt19937 engine_;
};

}  // namespace

TEST(WaitRule, AgreesWithEveryMinuteTriedOnManyRandomCases) {
    int fitting = 0;
    for (unsigned seed = 0; seed < 40000; ++seed) {
        const RandomCase one(seed);
        const bool isTime = one.freed.time.start < one.freed.time.end;
        const std::optional<int> expected = one.isWanted() && isTime
                                                ? EveryMinute(one.entry, one.freed, one.around, one.ofPatient).start()
                                                : std::nullopt;
        EXPECT_EQ(StartThatFits(one.entry, one.freed, one.around, one.ofPatient), expected) << "seed " << seed;
        fitting += expected ? 1 : 0;
    }
    EXPECT_GT(fitting, 4000) << "The cases must hold enough who fit, or they say nothing.";
    EXPECT_LT(fitting, 36000);
}

TEST(WaitRule, AVisitOfTheSameLengthBeginsWithTheFreedHour) {
    EXPECT_EQ(StartThatFits(waiting(60), freedHour(), {}, {}), 600);
    EXPECT_EQ(StartThatFits(waiting(45), freedHour(), {}, {}), 600);
    EXPECT_EQ(StartThatFits(waiting(61), freedHour(), {}, {}), std::nullopt);
}

TEST(WaitRule, AFreedHourThatIsPartlyTakenOffersWhatIsLeft) {
    DayAround around;
    around.booked = {{600, 615}, {650, 700}};
    EXPECT_EQ(StartThatFits(waiting(35), freedHour(), around, {}), 615);
    EXPECT_EQ(StartThatFits(waiting(36), freedHour(), around, {}), std::nullopt);
}

TEST(WaitRule, AFreeQuarterOfTheWorkingHoursBesideTheFreedHourBelongsToIt) {
    DayAround around;
    around.open = {{540, 720}};
    around.booked = {{540, 600}, {675, 720}};
    EXPECT_EQ(StartThatFits(waiting(75), freedHour(), around, {}), 600);
    around.booked = {{540, 585}, {660, 720}};
    EXPECT_EQ(StartThatFits(waiting(75), freedHour(), around, {}), 585);
    around.open = {{700, 720}};
    EXPECT_EQ(StartThatFits(waiting(75), freedHour(), around, {}), std::nullopt) << "Hours that do not meet it do not.";
}

TEST(WaitRule, AVisitOfWhichLittleWouldLieInTheFreedHourIsNoneForIt) {
    DayAround around;
    around.open = {{480, 1080}};
    around.booked = {{620, 660}};
    EXPECT_EQ(StartThatFits(waiting(40), freedHour(), around, {}), 580);
    EXPECT_EQ(StartThatFits(waiting(41), freedHour(), around, {}), std::nullopt);
}

TEST(WaitRule, PastTimeIsOfferedToNobody) {
    EXPECT_EQ(EarliestMinute(Wednesday, QDateTime(Wednesday, QTime(10, 20, 0))), 620);
    EXPECT_EQ(EarliestMinute(Wednesday, QDateTime(Wednesday, QTime(10, 20, 1))), 625);
    EXPECT_EQ(EarliestMinute(Wednesday, QDateTime(Wednesday.addDays(-1), QTime(23, 59))), 0);
    EXPECT_EQ(EarliestMinute(Wednesday, QDateTime(Wednesday.addDays(1), QTime(0, 0))), 1440);
    DayAround around;
    around.earliest = 620;
    EXPECT_EQ(StartThatFits(waiting(40), freedHour(), around, {}), 620);
    EXPECT_EQ(StartThatFits(waiting(45), freedHour(), around, {}), std::nullopt);
    around.earliest = 1440;
    EXPECT_EQ(StartThatFits(waiting(1), freedHour(), around, {}), std::nullopt);
}

TEST(WaitRule, WhoGaveTheHourUpIsNotOfferedIt) {
    WaitEntry entry = waiting(30);
    entry.patientId = QStringLiteral("p9");
    EXPECT_EQ(StartThatFits(entry, freedHour(), {}, {}), std::nullopt);
}

TEST(WaitRule, AnotherVisitOfThePatientAtThatTimeIsInTheWay) {
    EXPECT_EQ(StartThatFits(waiting(30), freedHour(), {}, {{600, 630}}), 630);
    EXPECT_EQ(StartThatFits(waiting(30), freedHour(), {}, {{615, 645}}), std::nullopt);
    EXPECT_EQ(StartThatFits(waiting(30), freedHour(), {}, {{900, 950}}), 600) << "A visit later that day is not.";
}

TEST(WaitRule, TheDaysCountFromSunday) {
    EXPECT_EQ(WeekdayBit(QDate(2026, 3, 8)), 1);
    EXPECT_EQ(WeekdayBit(Wednesday), 8);
    EXPECT_EQ(WeekdayBit(QDate(2026, 3, 14)), 64);
    EXPECT_EQ(WeekdayBit(QDate()), 0);
    WaitEntry entry = waiting(30);
    entry.days = EveryDay & ~8;
    EXPECT_EQ(StartThatFits(entry, freedHour(), {}, {}), std::nullopt);
}
