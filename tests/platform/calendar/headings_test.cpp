// What stands above the grid: the heading of each column, its banners, and the markers that count what has no room.

#include "platform/calendar/colour.h"
#include "tests/platform/calendar/calendarlook.h"
#include "tests/platform/calendar/words.h"

namespace {

class Headings : public testing::Test {
  protected:
    [[nodiscard]] QStringList heading(int column) {
        return TextsIn(WordDevice::of(hand.calendar), hand.calendar.HeadingRect(column));
    }
    [[nodiscard]] QStringList marker(int item) {
        return TextsIn(WordDevice::of(hand.calendar), hand.calendar.ItemRect(item));
    }
    int banner(const QString& text, QDate day) {
        const int index = hand.calendar.AddItem(0, 1439, day, text, text);
        hand.calendar.Item(index).ItemBanner = true;
        return index;
    }

    CalendarUnderHand hand;
};

class HeadingLook : public CalendarLook {};

INSTANTIATE_TEST_SUITE_P(EachLook, HeadingLook, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_F(Headings, ADayIsToldAsLongAsThereIsRoom) {
    const struct {
        int width;
        QStringList shown;
    } days[] = {
        {600, {"Wednesday", "11", "March 2026"}}, {190, {"Wednesday", "11"}}, {110, {"Wed", "11"}}, {80, {"11"}}};
    for (const auto& day : days) {
        hand.calendar.resize(day.width, 800);
        EXPECT_EQ(heading(1), day.shown) << day.width;
    }
}

TEST_F(Headings, SeveralDaysLeaveOutTheMonth) {
    hand.calendar.setDayColumns(2);
    EXPECT_EQ(heading(1), (QStringList{"Wednesday", "11"}));
    EXPECT_EQ(heading(2), (QStringList{"Thursday", "12"}));
    hand.calendar.setDate(QDate(2026, 2, 28));
    EXPECT_EQ(heading(1), (QStringList{"Saturday", "28"}));
    EXPECT_EQ(heading(2), (QStringList{"Sunday", "1"}));
}

TEST_F(Headings, TheWholeDayStandsInTheMiddle) {
    hand.calendar.setDate(QDate(2026, 3, 25));
    const std::vector<Word> words = WordDevice::of(hand.calendar);
    const QRect rect = hand.calendar.HeadingRect(1);
    const QRectF before = WordWith(words, QStringLiteral("Wednesday")).place;
    const QRectF number = WordWith(words, QStringLiteral("25")).place;
    const QRectF after = WordWith(words, QStringLiteral("March 2026")).place;
    EXPECT_LT(before.right(), number.left());
    EXPECT_LT(number.right(), after.left());
    EXPECT_NEAR((before.left() + after.right()) / 2, rect.center().x(), 2);
    EXPECT_NEAR(before.center().y(), rect.center().y(), 3);
    EXPECT_NEAR(number.center().y(), rect.center().y(), 3);
    EXPECT_GT(WordWith(words, QStringLiteral("Wednesday")).font.pointSizeF(), 8);
}

TEST_F(Headings, AProvidersTitleIsOneLineShortenedToItsColumn) {
    hand.calendar.AddColumn(QStringLiteral("Adams\nAnna"));
    hand.calendar.AddColumn(QString(400, QLatin1Char('x')));
    EXPECT_EQ(heading(1), QStringList{QStringLiteral("Adams Anna")});
    ASSERT_EQ(heading(2).size(), 1);
    EXPECT_TRUE(heading(2).first().endsWith(QChar(0x2026)));
    EXPECT_LT(heading(2).first().size(), 100);
}

TEST_F(Headings, WithoutADateNothingIsSaid) {
    hand.calendar.setDate(QDate());
    EXPECT_EQ(heading(1), QStringList());
}

TEST_F(Headings, AMarkerCountsAndNamesTheSelectedOne) {
    const int first = hand.add(1200, 1230, QStringLiteral("Lou"));
    EXPECT_EQ(marker(first), QStringList{QStringLiteral("▼ 1 later")});
    const int second = hand.add(1260, 1290, QStringLiteral("Mia"));
    const int early = hand.add(60, 120, QStringLiteral("Eve"));
    EXPECT_EQ(marker(first), QStringList{QStringLiteral("▼ 2 later")});
    EXPECT_EQ(marker(early), QStringList{QStringLiteral("▲ 1 earlier")});
    hand.calendar.setSelectedItem(second);
    EXPECT_EQ(marker(first), QStringList{QStringLiteral("▼ 9:00 PM Mia (2)")});
    EXPECT_EQ(marker(early), QStringList{QStringLiteral("▲ 1 earlier")});
    hand.calendar.setSelectedItem(early);
    EXPECT_EQ(marker(early), QStringList{QStringLiteral("▲ 1:00 AM Eve")});
    hand.calendar.setTwentyFourHour(true);
    EXPECT_EQ(marker(early), QStringList{QStringLiteral("▲ 01:00 Eve")});
    hand.calendar.Item(early).ItemTextColor = TextColor::SameAsBackground;
    EXPECT_EQ(marker(early), QStringList{QStringLiteral("▲ 01:00")}) << "a hidden name";
    hand.calendar.clearSelection();
    EXPECT_EQ(marker(first), QStringList{QStringLiteral("▼ 2 later")});
}

TEST_F(Headings, EachColumnCountsItsOwn) {
    hand.calendar.setDayColumns(3);
    const int first = hand.calendar.AddItem(1200, 1230, hand.day, "Lou", "1");
    hand.calendar.AddItem(1200, 1230, hand.day, "Mia", "2");
    const int third = hand.calendar.AddItem(1200, 1230, hand.day.addDays(2), "Noa", "3");
    EXPECT_EQ(marker(first), QStringList{QStringLiteral("▼ 2 later")});
    EXPECT_EQ(marker(third), QStringList{QStringLiteral("▼ 1 later")});
    EXPECT_TRUE(hand.calendar.CellRect(2, 480).right() < hand.calendar.ItemRect(third).left());
}

TEST_F(Headings, AMarkerInANarrowColumnIsShortened) {
    hand.calendar.resize(90, 400);
    const int late = hand.add(1200, 1230, QStringLiteral("Wilhelmina O'Brien"));
    hand.calendar.setSelectedItem(late);
    ASSERT_EQ(marker(late).size(), 1);
    EXPECT_TRUE(marker(late).first().endsWith(QChar(0x2026)));
}

TEST_F(Headings, ThreeBannersHaveRowsAndMoreAreCountedInTheLast) {
    for (int i = 1; i <= 3; ++i)
        banner(QStringLiteral("Day %1").arg(i), hand.day);
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(marker(i), QStringList{QStringLiteral("Day %1").arg(i)});
    for (int i = 2; i <= 3; ++i)
        EXPECT_GT(hand.calendar.ItemRect(i).top(), hand.calendar.ItemRect(i - 1).bottom());
    const int fourth = banner(QStringLiteral("Day 4"), hand.day);
    const int fifth = banner(QStringLiteral("Day 5"), hand.day);
    EXPECT_EQ(marker(2), QStringList{QStringLiteral("Day 2")});
    EXPECT_EQ(marker(fourth), QStringList{QStringLiteral("+3 more")});
    EXPECT_EQ(hand.calendar.ItemRect(fourth), hand.calendar.ItemRect(fifth));
    hand.calendar.setSelectedItem(fifth);
    EXPECT_EQ(marker(fifth), QStringList{QStringLiteral("Day 5")}) << "the selected one takes the last row";
    hand.calendar.setSelectedItem(1);
    EXPECT_EQ(marker(fifth), QStringList{QStringLiteral("+3 more")});
}

TEST_F(Headings, BannersOfOneDayPushTheHoursOfAllDown) {
    hand.calendar.setDayColumns(2);
    const int before = hand.calendar.CellRect(1, 480).top();
    const int holiday = banner(QStringLiteral("Founders' Day"), hand.day.addDays(1));
    EXPECT_EQ(hand.calendar.CellRect(1, 480).top(), hand.calendar.CellRect(2, 480).top());
    EXPECT_GT(hand.calendar.CellRect(1, 480).top(), before);
    QRect beside = hand.calendar.ItemRect(holiday);
    beside.moveRight(hand.calendar.CellRect(1, 480).right());
    EXPECT_EQ(TextsIn(WordDevice::of(hand.calendar), beside), QStringList());
    hand.calendar.RemoveItem(holiday);
    EXPECT_EQ(hand.calendar.CellRect(1, 480).top(), before);
}

TEST_P(HeadingLook, TodaysNumberStandsInADisc) {
    hand.calendar.setDayColumns(3);
    hand.calendar.setDate(QDate(2026, 3, 25));
    EXPECT_FALSE(seen().shows(hand.calendar.HeadingRect(2).adjusted(0, 0, 0, -3), style.accent));
    hand.calendar.setNow(QDateTime(QDate(2026, 3, 26), QTime(10, 0)));
    const Picture picture = seen();
    const QRectF number = WordWith(WordDevice::of(hand.calendar), QStringLiteral("26")).place;
    const int radius = static_cast<int>(number.height() / 2) - 1;
    const QPoint middle = number.center().toPoint();
    EXPECT_GT(picture.share({middle.x() - radius / 2, middle.y() - radius, radius, 3}, style.accent, 30), 0.8);
    for (const int column : {1, 3})
        EXPECT_FALSE(picture.shows(hand.calendar.HeadingRect(column).adjusted(0, 0, 0, -3), style.accent));
    const std::vector<Word> words = WordDevice::of(hand.calendar);
    EXPECT_EQ(WordWith(words, QStringLiteral("26")).colour, style.accentInk);
    EXPECT_EQ(WordWith(words, QStringLiteral("25")).colour, style.ink);
}

TEST_P(HeadingLook, AHolidayColoursItsHeadingAndItsDayOnly) {
    const QColor green(0, 0xC0, 0);
    const QColor holiday = Mixed(style.window, green, 0.16);
    const auto backOf = [&](int column) {
        return seen().at(hand.calendar.HeadingRect(column).topLeft() + QPoint(3, 3));
    };
    hand.calendar.setDayHeaderColor(0x00C000);
    EXPECT_EQ(backOf(1), holiday) << "the one day that is shown";
    hand.calendar.setDayColumns(2);
    EXPECT_EQ(backOf(1), style.window);
    EXPECT_EQ(backOf(2), style.window);
    const int banner = hand.calendar.AddItem(0, 1439, hand.day.addDays(1), "Founders' Day", "1");
    hand.calendar.Item(banner).ItemBanner = true;
    EXPECT_EQ(backOf(1), style.window);
    EXPECT_EQ(backOf(2), holiday);
    hand.calendar.setDayHeaderColor(SystemInfoColor);
    EXPECT_EQ(backOf(2), style.window);
}

TEST_P(HeadingLook, AHolidayHasAFlagAtTheRightEndOfItsHeading) {
    const auto flag = [&] {
        const QRect rect = hand.calendar.HeadingRect(1);
        const QRect place(rect.right() - 2 * style.margin - style.icon, rect.center().y() - style.icon / 2, style.icon,
                          style.icon);
        return seen().share(place, style.ink, 60) > 0.1;
    };
    EXPECT_FALSE(flag());
    hand.calendar.setHolidayFlag(true);
    EXPECT_TRUE(flag());
    hand.calendar.setDate(QDate(2026, 3, 25));
    hand.settle();
    const std::vector<Word> words = WordDevice::of(hand.calendar);
    const double middle = (WordWith(words, QStringLiteral("Wednesday")).place.left() +
                           WordWith(words, QStringLiteral("March 2026")).place.right()) /
                          2;
    EXPECT_NEAR(hand.calendar.HeadingRect(1).center().x() - middle, (style.icon + style.margin) / 2.0, 1.5)
        << "the day stands in the middle of what is left";
    hand.calendar.resize(style.gutterWidth + style.icon * 4, 800);
    EXPECT_FALSE(flag()) << "without room the day goes first";
    hand.calendar.resize(600, 800);
    hand.calendar.setDayColumns(2);
    EXPECT_FALSE(flag()) << "only holidays have it";
}

TEST_P(HeadingLook, UnderThePointerAHeadingIsLit) {
    hand.calendar.setDayColumns(2);
    const auto backOf = [&](int column) {
        return seen().at(hand.calendar.HeadingRect(column).topLeft() + QPoint(3, 3));
    };
    for (int time = 0; time < 2; ++time) {
        hand.hover(hand.calendar.HeadingRect(2).center());
        EXPECT_EQ(backOf(2), Mixed(style.window, style.ink, 0.06));
        EXPECT_EQ(backOf(1), style.window);
        hand.hover(hand.freeAt(600));
        EXPECT_EQ(backOf(2), style.window);
    }
}

TEST_P(HeadingLook, HeadingsArePartedByALine) {
    hand.calendar.setDayColumns(3);
    const Picture picture = seen();
    for (int column = 2; column <= 3; ++column) {
        const QRect rect = hand.calendar.HeadingRect(column);
        EXPECT_NEAR(picture.share({rect.left() - 1, rect.center().y(), 2, 6}, style.columnLine, 6), 0.5, 0.01);
        EXPECT_FALSE(picture.shows({rect.left() - 1, rect.top(), 2, style.margin}, style.columnLine, 6));
    }
}

TEST_P(HeadingLook, AMarkerIsAPillInTheMiddleOfItsStrip) {
    const int late = hand.add(1200, 1230, QStringLiteral("Lou"));
    const QRect strip = hand.calendar.ItemRect(late);
    const Picture picture = seen();
    const QRect left(strip.left() + 5, strip.top() + 2, 100, strip.height() - 4);
    EXPECT_EQ(picture.share(left, style.window), 1) << "beside it is the window's ground";
    const QRectF words = WordWith(WordDevice::of(hand.calendar), QStringLiteral("▼ 1 later")).place;
    EXPECT_NEAR(words.center().x(), strip.center().x(), 2);
    const QRect before(static_cast<int>(words.left()) - style.margin, strip.center().y() - 1, style.margin - 1, 3);
    EXPECT_EQ(picture.share(before, style.base), 1);
    EXPECT_TRUE(picture.shows(strip, style.hourLine, 20)) << "its outline";
}
