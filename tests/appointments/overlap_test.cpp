#include "appointments/overlap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "appointments/conflicts.h"
#include "data/codes.h"
#include "tests/appointments/appointmentfixture.h"

namespace {

constexpr MinuteSpan Booked{540, 600};

struct Booking {
    MinuteSpan time;
    bool typeSlot = false;
};

/// Times of the kinds that matter, on a coarse grid so that many touch; some have no length, some end before they
/// start.
class RandomTimes {
  public:
    MinuteSpan time() {
        const int start = number(0, 96) * 15;
        switch (number(0, 9)) {
            case 0:
                return {double(start), double(start)};
            case 1:
                return {double(start), double(std::max(0, start - number(1, 60)))};
            case 2:
                return {double(start), double(std::min(1440, start + number(1, 3)))};
            default:
                return {double(start), double(std::min(1440, start + number(1, 12) * 15))};
        }
    }
    int number(int low, int high) { return std::uniform_int_distribution(low, high)(engine_); }

  private:
    std::mt19937 engine_{20260311};
};

class OverlapOnTheDatabase : public AppointmentFixture {
  protected:
    static constexpr int Bookings = 80;
    static constexpr int Proposals = 150;

    static QStringList textsOf(const std::vector<Conflict>& conflicts) {
        QStringList texts;
        for (const Conflict& conflict : conflicts)
            texts << conflict.text;
        std::sort(texts.begin(), texts.end());
        return texts;
    }
    static std::string described(MinuteSpan time) {
        return "proposed " + std::to_string(time.start) + " to " + std::to_string(time.end);
    }

    RandomTimes random;
};

}  // namespace

TEST(Overlap, TouchingTimesDoNotConflict) {
    EXPECT_FALSE(Overlaps({480, 540}, Booked));
    EXPECT_FALSE(Overlaps({600, 660}, Booked));
}

TEST(Overlap, OneMinuteInCommonConflicts) {
    EXPECT_TRUE(Overlaps({480, 541}, Booked));
    EXPECT_TRUE(Overlaps({599, 660}, Booked));
}

TEST(Overlap, ATimeWithinAndATimeAroundConflict) {
    EXPECT_TRUE(Overlaps({550, 560}, Booked));
    EXPECT_TRUE(Overlaps({500, 700}, Booked));
    EXPECT_TRUE(Overlaps(Booked, Booked));
}

TEST(Overlap, AProposalOfNoLengthConflictsFromTheFirstMinuteToTheLast) {
    EXPECT_TRUE(Overlaps({540, 540}, Booked));
    EXPECT_TRUE(Overlaps({570, 570}, Booked));
    EXPECT_TRUE(Overlaps({600, 600}, Booked));
    EXPECT_FALSE(Overlaps({539, 539}, Booked));
    EXPECT_FALSE(Overlaps({601, 601}, Booked));
}

TEST(Overlap, ABookingOfNoLengthConflictsWithATimeThatHoldsItsMinute) {
    constexpr MinuteSpan moment{540, 540};
    EXPECT_TRUE(Overlaps({480, 600}, moment));
    EXPECT_TRUE(Overlaps({540, 600}, moment));
    EXPECT_FALSE(Overlaps({480, 540}, moment));
    EXPECT_FALSE(Overlaps(moment, moment));
}

TEST(Overlap, TheMinutesInCommonAreThoseOfBothTimes) {
    EXPECT_EQ(MinutesInCommon({480, 570}, Booked), 30);
    EXPECT_EQ(MinutesInCommon({500, 700}, Booked), 60);
    EXPECT_EQ(MinutesInCommon({600, 660}, Booked), 0);
    EXPECT_EQ(MinutesInCommon({700, 760}, Booked), 0);
}

TEST_F(OverlapOnTheDatabase, TheRuleAndTheAppointmentStatementAgreeOnTwelveThousandPairs) {
    std::vector<Booking> bookings;
    for (int i = 0; i < Bookings; ++i) {
        bookings.push_back({random.time(), random.number(0, 5) == 0});
        appointment({.start = int(bookings.back().time.start),
                     .end = int(bookings.back().time.end),
                     .text = QString::number(i),
                     .kind = bookings.back().typeSlot ? ApptTypeSlot : 0});
    }
    int hits = 0;
    for (int i = 0; i < Proposals; ++i) {
        const MinuteSpan proposed = random.time();
        QStringList expected;
        for (int b = 0; b < Bookings; ++b)
            if (!bookings[size_t(b)].typeSlot && Overlaps(proposed, bookings[size_t(b)].time))
                expected << QString::number(b);
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(textsOf(FindApptConflicts(0, day, proposed.start, proposed.end, {}, QStringLiteral("REED"))),
                  expected)
            << described(proposed);
        hits += int(expected.size());
    }
    EXPECT_GT(hits, Proposals);
    EXPECT_LT(hits, Proposals * Bookings / 2);
}

TEST_F(OverlapOnTheDatabase, ARoomIsTakenExactlyWhereTheRuleSaysSo) {
    constexpr int Rooms = 40;
    std::vector<MinuteSpan> bookings;
    for (int i = 0; i < Rooms; ++i) {
        bookings.push_back(random.time());
        booking(room(QString::number(i)), int(bookings.back().start), int(bookings.back().end), QString::number(i));
    }
    int hits = 0;
    for (int i = 0; i < Proposals; ++i) {
        const MinuteSpan proposed = random.time();
        for (int r = 0; r < Rooms; ++r) {
            const bool taken = !FindRoomConflicts(0, day, proposed.start, proposed.end, r + 1, 0).empty();
            EXPECT_EQ(taken, Overlaps(proposed, bookings[size_t(r)])) << described(proposed) << " in room " << r;
            hits += int(taken);
        }
    }
    EXPECT_GT(hits, Proposals);
}
