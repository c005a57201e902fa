#include "platform/calendar/monthlayout.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace {

/// Lays items out in a month whose days are so high that exactly so many lines fit.
class LayingOutAMonth : public testing::Test {
  protected:
    LayingOutAMonth() {
        style.textLine = 16;
        style.smallLine = 10;
        style.margin = 4;
        grid.month = QDate(2026, 3, 1);
        grid.firstDayOfWeek = Qt::Sunday;
    }

    /// A line takes 12 pixels and 2 between them; above them stand the number, and below a margin.
    void roomFor(int lines) { size.setHeight(head() + 5 * (3 + disc() + 2 + 14 * lines - 2 + 3)); }
    [[nodiscard]] int head() const { return style.textLine + 2 * style.margin; }
    [[nodiscard]] int disc() const { return style.textLine + 2 * style.margin; }
    void add(int start, int end, int day = 11, bool banner = false) {
        CalendarItem item;
        item.ItemDay = QDate(2026, 3, day);
        item.ItemStart = start;
        item.ItemEnd = end;
        item.ItemBanner = banner;
        items.push_back(item);
    }
    [[nodiscard]] MonthLayout layout() const { return LayOutMonth(items, grid, size, style); }
    [[nodiscard]] MonthCell cell(int day = 11) const {
        for (const MonthCell& each : layout().cells)
            if (each.day == QDate(2026, 3, day))
                return each;
        return {};
    }
    /// The lines of a day: numbers of items, "+2" for the line that counts two more.
    [[nodiscard]] std::string lines(int day = 11) const {
        const MonthCell that = cell(day);
        QStringList shown;
        for (const MonthLine& line : that.lines)
            shown << (line.index > 0 ? QString::number(line.index) : QStringLiteral("+%1").arg(that.hidden));
        return shown.join(QLatin1Char(' ')).toStdString();
    }

    std::vector<CalendarItem> items;
    MonthGrid grid;
    QSize size{700, 600};
    CalendarStyle style;
};

}  // namespace

TEST_F(LayingOutAMonth, BannersGoFirstThenStartsThenEndsThenTheOrderOfAdding) {
    roomFor(9);
    add(600, 700);
    add(540, 660);
    add(600, 650);
    add(0, 1439, 11, true);
    add(540, 660);
    add(480, 1439, 11, true);
    EXPECT_EQ(lines(), "4 6 2 5 3 1");
}

TEST_F(LayingOutAMonth, WhatHasNoRoomIsCountedInTheLastLine) {
    for (int count = 1; count <= 5; ++count) {
        items.clear();
        for (int i = 0; i < count; ++i)
            add(540, 600);
        const char* byRoom[4][5] = {{"", "", "", "", ""},
                                    {"1", "+2", "+3", "+4", "+5"},
                                    {"1", "1 2", "1 +2", "1 +3", "1 +4"},
                                    {"1", "1 2", "1 2 3", "1 2 +2", "1 2 +3"}};
        for (int room = 0; room < 4; ++room) {
            roomFor(room);
            EXPECT_EQ(lines(), byRoom[room][count - 1]) << count << " in " << room;
            EXPECT_TRUE(room > 0 || cell().hidden == count);
        }
    }
}

TEST_F(LayingOutAMonth, APixelLessIsALineLess) {
    for (int i = 0; i < 9; ++i)
        add(540, 600);
    roomFor(3);
    EXPECT_EQ(cell().lines.size(), 3U);
    size.rheight() -= 5;
    EXPECT_EQ(cell().lines.size(), 2U);
}

TEST_F(LayingOutAMonth, LinesStandUnderTheNumberInsideTheDay) {
    roomFor(3);
    for (int i = 0; i < 9; ++i)
        add(540, 600);
    const MonthCell day = cell();
    EXPECT_EQ(day.number.topLeft(), day.rect.topLeft() + QPoint(style.margin, style.margin / 2 + 1));
    EXPECT_EQ(day.number.size(), QSize(disc(), disc()));
    int before = day.number.bottom();
    for (const MonthLine& line : day.lines) {
        EXPECT_EQ(line.rect.top() - before, 3) << "two pixels are free";
        EXPECT_EQ(line.rect.height(), 12);
        EXPECT_EQ(line.rect.left(), day.rect.left() + style.margin);
        EXPECT_EQ(line.rect.right(), day.rect.right() - style.margin);
        EXPECT_TRUE(day.rect.contains(line.rect));
        before = line.rect.bottom();
    }
}

TEST_F(LayingOutAMonth, WeeksAreAsManyAsTheMonthTouches) {
    const struct {
        const char* what;
        QDate month;
        Qt::DayOfWeek first;
        int weeks;
        QDate firstDay;
    } months[] = {
        {"four whole weeks", QDate(2026, 2, 10), Qt::Sunday, 4, QDate(2026, 2, 1)},
        {"the same from Monday", QDate(2026, 2, 10), Qt::Monday, 5, QDate(2026, 1, 26)},
        {"five", QDate(2026, 3, 31), Qt::Sunday, 5, QDate(2026, 3, 1)},
        {"six", QDate(2026, 8, 1), Qt::Sunday, 6, QDate(2026, 7, 26)},
        {"six from Monday", QDate(2026, 3, 1), Qt::Monday, 6, QDate(2026, 2, 23)},
        {"a leap February", QDate(2028, 2, 29), Qt::Sunday, 5, QDate(2028, 1, 30)},
        {"over the turn of the year", QDate(2026, 12, 1), Qt::Saturday, 5, QDate(2026, 11, 28)},
    };
    for (const auto& row : months) {
        grid.month = row.month;
        grid.firstDayOfWeek = row.first;
        const MonthLayout shown = layout();
        EXPECT_EQ(shown.weeks(), row.weeks) << row.what;
        EXPECT_EQ(shown.cells.front().day, row.firstDay) << row.what;
        for (std::size_t i = 0; i < shown.cells.size(); ++i) {
            const MonthCell& each = shown.cells[i];
            EXPECT_EQ(each.day, row.firstDay.addDays(static_cast<int>(i))) << row.what;
            EXPECT_EQ(each.inMonth, each.day.month() == row.month.month()) << row.what;
        }
    }
}

TEST_F(LayingOutAMonth, DaysOfOtherMonthsHaveTheirItemsToo) {
    roomFor(3);
    grid.month = QDate(2026, 4, 1);
    add(540, 600, 30);
    EXPECT_EQ(lines(30), "1");
    EXPECT_FALSE(cell(30).inMonth);
}

TEST_F(LayingOutAMonth, ItemsOfNoDayOrOfWeeksThatAreNotShownAreLeftOut) {
    roomFor(3);
    add(540, 600);
    for (const QDate day : {QDate(), QDate(2026, 2, 28), QDate(2026, 4, 5), QDate(2027, 3, 11), QDate(2025, 3, 11)}) {
        items.push_back(items.front());
        items.back().ItemDay = day;
    }
    std::size_t shown = 0;
    for (const MonthCell& each : layout().cells)
        shown += each.lines.size();
    EXPECT_EQ(shown, 1U);
}

TEST_F(LayingOutAMonth, DaysShareTheSizeWithoutGapsAndWithoutOverlaps) {
    for (const QSize each : {QSize(700, 524), QSize(701, 523), QSize(13, 40), QSize(1, 1)}) {
        size = each;
        const MonthLayout month = layout();
        EXPECT_EQ(month.headings, QRect(0, 0, size.width(), head()));
        for (std::size_t i = 0; i < month.cells.size(); ++i) {
            const QRect& rect = month.cells[i].rect;
            const bool first = i % 7 == 0;
            EXPECT_EQ(rect.left(), first ? 0 : month.cells[i - 1].rect.right() + 1);
            EXPECT_EQ(rect.top(), i < 7 ? head() : month.cells[i - 7].rect.bottom() + 1);
            EXPECT_TRUE(i % 7 != 6 || rect.right() == size.width() - 1);
        }
        EXPECT_EQ(month.cells.back().rect.bottom(), size.height() - 1);
    }
}

TEST_F(LayingOutAMonth, APointHitsItsDayAndItsLine) {
    roomFor(3);
    add(540, 600, 1);
    add(600, 660, 1);
    for (int i = 0; i < 9; ++i)
        add(540, 600, 31);
    const MonthLayout month = layout();
    EXPECT_EQ(month.cellAt(month.cells[0].rect.topLeft()), 0);
    EXPECT_EQ(month.cellAt(month.cells[8].rect.bottomRight()), 8);
    EXPECT_EQ(month.cellAt({3, 3}), -1) << "the names of the days";
    EXPECT_EQ(month.cellAt({-1, 100}), -1);
    EXPECT_EQ(month.cellAt({3, size.height()}), -1);
    EXPECT_EQ(month.itemAt(cell(1).lines[0].rect.center()), 1);
    EXPECT_EQ(month.itemAt(cell(1).lines[1].rect.center()), 2);
    EXPECT_EQ(month.itemAt(cell(1).number.center()), 0);
    EXPECT_EQ(month.itemAt(cell(1).lines[1].rect.center() + QPoint(0, 30)), 0);
    EXPECT_EQ(month.itemAt(cell(31).lines[0].rect.center()), 3);
    EXPECT_EQ(month.itemAt(cell(31).lines[2].rect.center()), 0) << "the line that counts";
    EXPECT_EQ(month.itemAt({3, 3}), 0);
}

TEST_F(LayingOutAMonth, WithoutADateThereAreNoDays) {
    grid.month = QDate();
    add(540, 600);
    EXPECT_TRUE(layout().cells.empty());
    EXPECT_EQ(layout().weeks(), 0);
    EXPECT_EQ(layout().cellAt({300, 300}), -1);
    EXPECT_EQ(layout().itemAt({300, 300}), 0);
    EXPECT_EQ(layout().headings.height(), head());
}

TEST_F(LayingOutAMonth, OnPaperAFullWeekTakesTheHeightThatOthersDoNotNeed) {
    roomFor(3);
    for (int i = 0; i < 9; ++i)
        add(540 + i, 600);
    EXPECT_EQ(lines(), "1 2 +7");
    const MonthLayout paper = LayOutMonth(items, grid, size, style, MonthRows::AsHighAsNeeded);
    ASSERT_EQ(paper.weeks(), 5);
    EXPECT_EQ(paper.cells[10].day, QDate(2026, 3, 11));
    EXPECT_EQ(paper.cells[10].hidden, 0);
    EXPECT_EQ(paper.cells[10].lines.size(), 9U);
    EXPECT_GT(paper.cells[10].rect.height(), paper.cells[0].rect.height());
    for (std::size_t week = 1; week < 5; ++week)
        EXPECT_EQ(paper.cells[week * 7].rect.top(), paper.cells[week * 7 - 7].rect.bottom() + 1) << week;
    EXPECT_EQ(paper.cells.front().rect.top(), head());
    EXPECT_EQ(paper.cells.back().rect.bottom(), size.height() - 1);
}

TEST_F(LayingOutAMonth, OnPaperWeeksWithRoomEnoughAreEquallyHigh) {
    roomFor(3);
    add(540, 600);
    const MonthLayout paper = LayOutMonth(items, grid, size, style, MonthRows::AsHighAsNeeded);
    const MonthLayout screen = layout();
    for (std::size_t cell = 0; cell < screen.cells.size(); ++cell)
        EXPECT_EQ(paper.cells[cell].rect, screen.cells[cell].rect) << cell;
}

TEST_F(LayingOutAMonth, OnPaperThatIsTooLowEachFullWeekHasItsShareAndCountsTheRest) {
    roomFor(2);
    for (const int day : {4, 11, 18, 25, 31})
        for (int i = 0; i < 20; ++i)
            add(540 + i, 600, day);
    const MonthLayout paper = LayOutMonth(items, grid, size, style, MonthRows::AsHighAsNeeded);
    int shown = 0;
    int hidden = 0;
    for (const MonthCell& cell : paper.cells) {
        for (const MonthLine& line : cell.lines)
            shown += line.index > 0 ? 1 : 0;
        hidden += cell.hidden;
    }
    EXPECT_EQ(shown + hidden, 100);
    EXPECT_GT(hidden, 0);
    EXPECT_EQ(paper.cells.back().rect.bottom(), size.height() - 1);
}
