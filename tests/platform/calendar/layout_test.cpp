#include "platform/calendar/layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

namespace {

const QDate Day(2026, 3, 11);

struct Times {
    int start;
    int end;
};

CalendarContent DayWith(const std::vector<Times>& times) {
    CalendarContent content;
    content.date = Day;
    content.columns = {{{}, Day}};
    content.firstTime = 480;
    content.lastTime = 1079;
    for (const Times& time : times) {
        CalendarItem item;
        item.ItemStart = time.start;
        item.ItemEnd = time.end;
        item.ItemDay = Day;
        content.items.push_back(item);
    }
    return content;
}

/// The first column as a drawing: a line for every 15 minutes from 8:00, a letter for every lane of the item that was
/// added first (A), second (B) ...; '.' is free. Lines end with the last item.
std::string Drawn(const CalendarContent& content, int minMinutes = 1) {
    const CalendarLayout layout = LayOut(content, minMinutes);
    const auto& placed = layout.columns.front().placed;
    int lanes = 1;
    int end = 480;
    for (const PlacedItem& item : placed) {
        lanes = std::max(lanes, item.lanes);
        end = std::max(end, item.end);
    }
    std::string drawing;
    for (int minute = 480; minute < end; minute += 15) {
        std::string line(static_cast<std::size_t>(lanes), '.');
        for (const PlacedItem& item : placed) {
            if (item.start >= minute + 15 || item.end <= minute)
                continue;
            for (int lane = item.lane; lane < item.lane + item.span; ++lane) {
                char& cell = line[static_cast<std::size_t>(lane)];
                cell = cell == '.' ? static_cast<char>('A' + item.index - 1) : '#';
            }
        }
        drawing += line + "\n";
    }
    return drawing;
}

}  // namespace

TEST(CalendarLayout, AnItemAloneHasTheWholeWidth) {
    EXPECT_EQ(Drawn(DayWith({{480, 525}})),
              "A\n"
              "A\n"
              "A\n");
}

TEST(CalendarLayout, TouchingItemsDoNotShareTheWidth) {
    EXPECT_EQ(Drawn(DayWith({{480, 510}, {510, 540}})),
              "A\n"
              "A\n"
              "B\n"
              "B\n");
}

TEST(CalendarLayout, OverlappingItemsStandSideBySide) {
    EXPECT_EQ(Drawn(DayWith({{480, 540}, {495, 525}})),
              "A.\n"
              "AB\n"
              "AB\n"
              "A.\n");
}

TEST(CalendarLayout, ItemsOfTheSameStartKeepTheOrderInWhichTheyWereAdded) {
    EXPECT_EQ(Drawn(DayWith({{480, 495}, {480, 540}, {480, 510}})),
              "ABC\n"
              ".BC\n"
              ".B.\n"
              ".B.\n");
}

TEST(CalendarLayout, TheEarlierItemStandsLeftWhateverTheOrderOfAdding) {
    EXPECT_EQ(Drawn(DayWith({{495, 525}, {480, 540}})),
              "B.\n"
              "BA\n"
              "BA\n"
              "B.\n");
}

TEST(CalendarLayout, AFreedLaneIsUsedAgain) {
    EXPECT_EQ(Drawn(DayWith({{480, 540}, {480, 495}, {510, 540}})),
              "AB\n"
              "A.\n"
              "AC\n"
              "AC\n");
}

TEST(CalendarLayout, AnItemWidensOverLanesThatStayFreeBesideIt) {
    EXPECT_EQ(Drawn(DayWith({{480, 540}, {480, 495}, {480, 495}, {510, 540}})),
              "ABC\n"
              "A..\n"
              "ADD\n"
              "ADD\n");
}

TEST(CalendarLayout, AChainOfOverlapsSharesOneNumberOfLanesAndTheNextBeginsAnew) {
    EXPECT_EQ(Drawn(DayWith({{480, 510}, {495, 525}, {510, 540}, {540, 570}})),
              "A.\n"
              "AB\n"
              "CB\n"
              "C.\n"
              "D.\n"
              "D.\n");
    const CalendarLayout layout = LayOut(DayWith({{480, 510}, {495, 525}, {510, 540}, {540, 570}}), 1);
    EXPECT_EQ(layout.find(3)->lanes, 2);
    EXPECT_EQ(layout.find(4)->lanes, 1);
}

TEST(CalendarLayout, AShortItemIsDrawnLongEnoughAndPushesItsNeighbourAside) {
    const CalendarContent content = DayWith({{480, 485}, {490, 520}});
    EXPECT_EQ(LayOut(content, 1).find(2)->lanes, 1);
    const CalendarLayout layout = LayOut(content, 15);
    EXPECT_EQ(layout.find(1)->end, 495);
    EXPECT_EQ(layout.find(2)->lanes, 2);
}

TEST(CalendarLayout, AShortItemAtTheEndOfTheDayStaysInsideTheGrid) {
    const CalendarLayout layout = LayOut(DayWith({{1078, 1079}}), 15);
    EXPECT_EQ(layout.find(1)->start, 1065);
    EXPECT_EQ(layout.find(1)->end, 1080);
}

TEST(CalendarLayout, ItemsOutsideTheHoursAreCountedAndNotLost) {
    const CalendarLayout layout =
        LayOut(DayWith({{1200, 1260}, {400, 470}, {1080, 1100}, {450, 490}, {1070, 1200}}), 1);
    EXPECT_EQ(layout.columns[0].later, (std::vector<int>{3, 1}));
    EXPECT_EQ(layout.columns[0].earlier, (std::vector<int>{2}));
    EXPECT_TRUE(layout.find(4)->cutTop);
    EXPECT_FALSE(layout.find(4)->cutBottom);
    EXPECT_TRUE(layout.find(5)->cutBottom);
    EXPECT_EQ(layout.find(5)->end, 1080);
    EXPECT_EQ(layout.find(1), nullptr);
    EXPECT_EQ(layout.readingOrder(), (std::vector<int>{2, 4, 5, 3, 1}));
}

TEST(CalendarLayout, BannersStandUnderTheHeadingAndCoverNothing) {
    CalendarContent content = DayWith({{0, 1439}, {480, 540}});
    content.items[0].ItemBanner = true;
    const CalendarLayout layout = LayOut(content, 1);
    EXPECT_EQ(layout.columns[0].banners, (std::vector<int>{1}));
    EXPECT_EQ(layout.bannerRows, 1);
    EXPECT_EQ(layout.find(2)->lanes, 1);
}

TEST(CalendarLayout, DaysAsColumnsTakeItemsByDateAndLeaveOutOtherDays) {
    CalendarContent content = DayWith({{480, 540}, {480, 540}, {480, 540}});
    content.columns = {{{}, Day}, {{}, Day.addDays(1)}};
    content.items[1].ItemDay = Day.addDays(1);
    content.items[2].ItemDay = Day.addDays(2);
    const CalendarLayout layout = LayOut(content, 1);
    EXPECT_EQ(layout.find(1)->column, 1);
    EXPECT_EQ(layout.find(2)->column, 2);
    EXPECT_EQ(layout.find(3), nullptr);
    EXPECT_EQ(layout.readingOrder(), (std::vector<int>{1, 2}));
}

TEST(CalendarLayout, ProviderColumnsTakeItemsByNumberAndUnplacedOnesFirst) {
    CalendarContent content = DayWith({{480, 540}, {480, 540}, {480, 540}});
    content.dayColumns = false;
    content.columns = {{"Adams", Day}, {"Baker", Day}};
    content.items[0].ItemColumn = 2;
    content.items[1].ItemColumn = -1;
    content.items[2].ItemColumn = 3;
    const CalendarLayout layout = LayOut(content, 1);
    EXPECT_EQ(layout.find(1)->column, 2);
    EXPECT_EQ(layout.find(2)->column, 1);
    EXPECT_EQ(layout.find(3), nullptr);
}

TEST(CalendarLayout, NoColumnsMeansNoPlaces) {
    CalendarContent content = DayWith({{480, 540}});
    content.columns.clear();
    const CalendarLayout layout = LayOut(content, 1);
    EXPECT_EQ(layout.find(1), nullptr);
    EXPECT_TRUE(layout.readingOrder().empty());
}

TEST(CalendarLayout, ABadRowIsASmallCardInsideTheDay) {
    const CalendarLayout layout = LayOut(DayWith({{600, 540}, {600, 600}, {-500, 500}, {1000, 9000}}), 10);
    EXPECT_EQ(layout.find(1)->start, 600);
    EXPECT_EQ(layout.find(1)->end, 610);
    EXPECT_EQ(layout.find(2)->end, 610);
    EXPECT_EQ(layout.find(3)->start, 480);
    EXPECT_EQ(layout.find(3)->end, 500);
    EXPECT_EQ(layout.find(4)->end, 1080);
}

TEST(CalendarLayout, AnItemAtTheMidnightThatEndsAWholeDayIsShown) {
    CalendarContent content = DayWith({{1440, 1440}, {0, 0}});
    content.firstTime = 0;
    content.lastTime = 1439;
    const CalendarLayout layout = LayOut(content, 15);
    ASSERT_NE(layout.find(1), nullptr);
    EXPECT_EQ(layout.find(1)->start, 1425);
    ASSERT_NE(layout.find(2), nullptr);
    EXPECT_EQ(layout.find(2)->end, 15);
}

TEST(CalendarLayout, HoursTheWrongWayRoundStillMakeAGrid) {
    CalendarContent content = DayWith({{600, 660}});
    content.firstTime = 1100;
    content.lastTime = 300;
    EXPECT_EQ(content.gridStart(), 1100);
    EXPECT_EQ(content.gridEnd(), 1115);
    content.firstTime = 9999;
    content.lastTime = -9999;
    EXPECT_EQ(content.gridStart(), 1425);
    EXPECT_EQ(content.gridEnd(), 1440);
    EXPECT_EQ(LayOut(content, 100).columns[0].earlier.size(), 1U);
}

TEST(CalendarLayout, NoTwoCardsOfARandomDayCoverEachOther) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> start(400, 1150);
    std::uniform_int_distribution<int> length(-10, 120);
    for (int round = 0; round < 60; ++round) {
        std::vector<Times> times;
        for (int i = 0; i < 40; ++i) {
            const int from = start(random);
            times.push_back({from, from + length(random)});
        }
        const CalendarLayout layout = LayOut(DayWith(times), 9);
        const auto& placed = layout.columns[0].placed;
        for (const PlacedItem& one : placed) {
            ASSERT_LE(one.lane + one.span, one.lanes);
            ASSERT_GE(one.end - one.start, 9);
            for (const PlacedItem& other : placed) {
                const bool sameTime = one.start < other.end && other.start < one.end;
                const bool sameLane = one.lane < other.lane + other.span && other.lane < one.lane + one.span;
                ASSERT_FALSE(one.index != other.index && sameTime && sameLane) << "round " << round;
                ASSERT_TRUE(!sameTime || one.lanes == other.lanes);
            }
        }
        ASSERT_EQ(layout.readingOrder().size(), times.size());
    }
}

TEST(CalendarLayout, TenThousandItemsAtTheSameTimeAllHaveAPlace) {
    const CalendarLayout layout = LayOut(DayWith(std::vector<Times>(10'000, Times{540, 600})), 10);
    EXPECT_EQ(layout.columns[0].placed.size(), 10'000U);
    EXPECT_EQ(layout.find(10'000)->lane, 9'999);
}

TEST(CalendarLayout, BesideSixtyFourLanesAnItemStillWidensAndBesideMoreItDoesNot) {
    for (const int lanes : {2, 63, 64, 65, 80}) {
        std::vector<Times> times(static_cast<std::size_t>(lanes) - 1, {540, 600});
        times.push_back({540, 700});
        times.push_back({600, 660});
        const CalendarLayout layout = LayOut(DayWith(times), 1);
        const PlacedItem* below = layout.find(lanes + 1);
        ASSERT_NE(below, nullptr);
        EXPECT_EQ(below->lanes, lanes);
        EXPECT_EQ(below->lane, 0);
        EXPECT_EQ(below->span, lanes <= 64 ? lanes - 1 : 1) << lanes;
    }
}
