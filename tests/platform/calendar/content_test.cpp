// What a calendar shows, as values: the hours of its grid, the columns of its items and the pages of paper.

#include "platform/calendar/content.h"

#include <gtest/gtest.h>

namespace {

const QDate Day(2026, 3, 11);

CalendarContent week(int days) {
    CalendarContent content;
    content.date = Day;
    for (int i = 0; i < days; ++i)
        content.columns.push_back({{}, Day.addDays(i)});
    return content;
}

CalendarContent providers(int count) {
    CalendarContent content;
    content.date = Day;
    content.dayColumns = false;
    for (int i = 1; i <= count; ++i)
        content.columns.push_back({QStringLiteral("Provider %1").arg(i), Day});
    return content;
}

CalendarItem itemIn(int column, int start, int end, const char* text = "") {
    CalendarItem item;
    item.ItemColumn = column;
    item.ItemStart = start;
    item.ItemEnd = end;
    item.ItemText = QString::fromLatin1(text);
    return item;
}

QStringList textsOf(const CalendarContent& content) {
    QStringList texts;
    for (const CalendarItem& item : content.items)
        texts << QStringLiteral("%1 in %2").arg(item.ItemText).arg(item.ItemColumn);
    return texts;
}

}  // namespace

TEST(CalendarContent, TheGridIsBroughtIntoTheDayAndHasAtLeastOneRow) {
    const struct {
        const char* what;
        int first, last, interval, start, end;
    } grids[] = {
        {"a working day", 480, 1079, 15, 480, 1080},     {"the whole day", 0, 1439, 15, 0, 1440},
        {"beyond midnight", 480, 1500, 15, 480, 1440},   {"before midnight", -100, 1079, 15, 0, 1080},
        {"no time at all", 600, 599, 30, 600, 630},      {"one minute", 600, 600, 5, 600, 605},
        {"exactly a row", 600, 614, 15, 600, 615},       {"the wrong way round", 1000, 200, 60, 1000, 1060},
        {"the last minute", 1439, 1439, 60, 1380, 1440}, {"after the day", 5000, 6000, 10, 1430, 1440},
        {"before the day", -900, -600, 10, 0, 10},
    };
    for (const auto& grid : grids) {
        CalendarContent content;
        content.firstTime = grid.first;
        content.lastTime = grid.last;
        content.timeInterval = grid.interval;
        EXPECT_EQ(content.gridStart(), grid.start) << grid.what;
        EXPECT_EQ(content.gridEnd(), grid.end) << grid.what;
    }
}

TEST(CalendarContent, AnItemStandsInTheColumnOfItsDay) {
    const CalendarContent content = week(5);
    const std::pair<QDate, int> days[] = {
        {Day, 1}, {Day.addDays(1), 2}, {Day.addDays(4), 5}, {Day.addDays(5), 0}, {Day.addDays(-1), 0}, {QDate(), 1}};
    for (const auto& [day, column] : days) {
        CalendarItem item;
        item.ItemDay = day;
        EXPECT_EQ(content.columnOf(item), column) << day.toString(Qt::ISODate).toStdString();
    }
}

TEST(CalendarContent, ItsOwnColumnGoesBeforeItsDay) {
    const CalendarContent content = week(3);
    for (const auto& [wanted, column] : {std::pair{1, 1}, {3, 3}, {4, 0}, {99, 0}, {0, 2}, {-1, 2}}) {
        CalendarItem item;
        item.ItemDay = Day.addDays(1);
        item.ItemColumn = wanted;
        EXPECT_EQ(content.columnOf(item), column) << wanted;
    }
}

TEST(CalendarContent, AmongProvidersAnItemOfTheDayWithoutAColumnStandsInTheFirst) {
    const CalendarContent content = providers(3);
    CalendarItem item;
    EXPECT_EQ(content.columnOf(item), 1);
    item.ItemDay = Day;
    EXPECT_EQ(content.columnOf(item), 1);
    item.ItemDay = Day.addDays(1);
    EXPECT_EQ(content.columnOf(item), 0) << "another day is not shown";
    item.ItemColumn = 3;
    EXPECT_EQ(content.columnOf(item), 3);
}

TEST(CalendarContent, WithoutColumnsOrADateItemsStandNowhereOrFirst) {
    CalendarContent nothing = providers(0);
    EXPECT_EQ(nothing.columnOf(CalendarItem()), 0);
    EXPECT_EQ(nothing.columnOf(itemIn(1, 0, 60)), 0);
    CalendarContent undated = week(2);
    undated.date = QDate();
    CalendarItem item;
    item.ItemDay = Day.addDays(1);
    EXPECT_EQ(undated.columnOf(item), 1);
}

TEST(CalendarPage, HasItsColumnsWithTheirItemsCountedFromOne) {
    CalendarContent content = providers(5);
    content.items = {itemIn(1, 540, 600, "A"), itemIn(2, 540, 600, "B"),       itemIn(3, 540, 600, "C"),
                     itemIn(4, 540, 600, "D"), itemIn(9, 540, 600, "nowhere"), itemIn(3, 600, 660, "E")};
    const CalendarContent page = content.pageOf(2, 2);
    ASSERT_EQ(page.columns.size(), 2U);
    EXPECT_EQ(page.columns[0].title, "Provider 2");
    EXPECT_EQ(page.columns[1].title, "Provider 3");
    EXPECT_EQ(textsOf(page), (QStringList{"B in 1", "C in 2", "E in 2"}));
    EXPECT_EQ(textsOf(content.pageOf(1, 1)), QStringList{"A in 1"});
    EXPECT_EQ(textsOf(content.pageOf(5, 1)), QStringList());
}

TEST(CalendarPage, OfDaysBeginsAtItsOwnDate) {
    CalendarContent content = week(7);
    for (int i = 0; i < 7; ++i) {
        CalendarItem item;
        item.ItemDay = Day.addDays(i);
        item.ItemText = QStringLiteral("Day %1").arg(i + 1);
        content.items.push_back(item);
    }
    const CalendarContent page = content.pageOf(4, 3);
    EXPECT_EQ(page.date, Day.addDays(3));
    EXPECT_EQ(textsOf(page), (QStringList{"Day 4 in 1", "Day 5 in 2", "Day 6 in 3"}));
}

TEST(CalendarPage, WidensItsHoursToWholeOnesSoThatNothingIsLeftOut) {
    const struct {
        const char* what;
        int start, end, first, last;
    } pages[] = {
        {"inside", 540, 600, 480, 1079},
        {"at the edges", 480, 1080, 480, 1079},
        {"before", 435, 500, 420, 1079},
        {"at midnight", 0, 30, 0, 1079},
        {"after", 1000, 1081, 480, 1139},
        {"until the hour", 1000, 1140, 480, 1139},
        {"until midnight", 1400, 1440, 480, 1439},
        {"beyond midnight", 1439, 3000, 480, 1439},
        {"at the midnight that ends the day", 1440, 1440, 480, 1439},
        {"without a length", 1100, 1100, 480, 1139},
        {"backwards", 1100, 300, 480, 1139},
        {"before the day", -30, 60, 480, 1079},
    };
    for (const auto& row : pages) {
        CalendarContent content = providers(1);
        content.items = {itemIn(1, row.start, row.end)};
        const CalendarContent page = content.pageOf(1, 1);
        EXPECT_EQ(page.firstTime, row.first) << row.what;
        EXPECT_EQ(page.lastTime, row.last) << row.what;
    }
}

TEST(CalendarPage, IsNotWidenedByBannersOrByOtherPages) {
    CalendarContent content = providers(2);
    content.items = {itemIn(1, 0, 1440), itemIn(2, 60, 120)};
    content.items[0].ItemBanner = true;
    EXPECT_EQ(content.pageOf(1, 1).firstTime, 480);
    EXPECT_EQ(content.pageOf(1, 1).lastTime, 1079);
    EXPECT_EQ(content.pageOf(2, 1).firstTime, 60);
    EXPECT_EQ(content.pageOf(1, 2).firstTime, 60);
}

TEST(CalendarPage, TakesItsRangesWithIt) {
    CalendarContent content = providers(4);
    content.ranges = {{1, 2, 0, 0, {}}, {3, 4, 0, 1, {}},  {5, 6, 0, 2, {}},
                      {7, 8, 0, 3, {}}, {9, 10, 0, 4, {}}, {11, 12, 0, 0, Day}};
    std::vector<std::pair<int, int>> shown;
    for (const TimeRange& range : content.pageOf(2, 2).ranges)
        shown.emplace_back(range.start, range.column);
    EXPECT_EQ(shown, (std::vector<std::pair<int, int>>{{1, 0}, {5, 1}, {7, 2}, {11, 0}}));
    EXPECT_EQ(content.pageOf(1, 1).ranges.size(), 3U);
    EXPECT_EQ(content.pageOf(4, 1).ranges[1].start, 9);
    EXPECT_EQ(content.pageOf(4, 1).ranges[1].column, 1);
}
