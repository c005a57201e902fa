// The hours beside the grid, and the present.

#include "platform/calendar/colour.h"
#include "tests/platform/calendar/calendarlook.h"
#include "tests/platform/calendar/words.h"

namespace {

class Gutter : public testing::Test {
  protected:
    [[nodiscard]] QRect place() const {
        const QRect heading = hand.calendar.HeadingRect(1);
        return {0, heading.bottom() + 1, heading.left(), 760};
    }
    [[nodiscard]] std::vector<Word> words() { return WordDevice::of(hand.calendar); }
    [[nodiscard]] QStringList labels() { return TextsIn(words(), place()); }
    /// The labels of the row that begins at the minute, from left to right.
    [[nodiscard]] QStringList labelsAt(int minute) {
        std::vector<Word> row;
        const QRect cell = hand.calendar.CellRect(1, minute);
        for (const Word& word : words())
            if (QRectF(0, cell.top() - 3, place().width(), cell.height()).contains(word.place.center()))
                row.push_back(word);
        std::sort(row.begin(), row.end(), [](const Word& a, const Word& b) { return a.place.left() < b.place.left(); });
        return TextsOf(row);
    }

    CalendarUnderHand hand;
};

class GutterLook : public CalendarLook {};

INSTANTIATE_TEST_SUITE_P(EachLook, GutterLook, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_F(Gutter, TellsTheHoursInTheClockOfTheDesk) {
    hand.calendar.setFirstTime(0);
    hand.calendar.setLastTime(1439);
    hand.calendar.resize(600, 2400);
    const struct {
        int minute;
        QStringList twelve;
        QStringList wholeDay;
    } rows[] = {{0, {"12", "AM"}, {"00", "00"}},   {60, {"1", "AM"}, {"01", "00"}},  {660, {"11", "AM"}, {"11", "00"}},
                {720, {"12", "PM"}, {"12", "00"}}, {780, {"1", "PM"}, {"13", "00"}}, {1380, {"11", "PM"}, {"23", "00"}},
                {615, {":15"}, {":15"}},           {1425, {":45"}, {":45"}}};
    for (const bool wholeDay : {false, true, false}) {
        hand.calendar.setTwentyFourHour(wholeDay);
        for (const auto& row : rows)
            EXPECT_EQ(labelsAt(row.minute), wholeDay ? row.wholeDay : row.twelve) << row.minute;
    }
}

TEST_F(Gutter, EveryRowHasItsMinutesWhereThereIsRoom) {
    const struct {
        int interval;
        QStringList ofTen;
    } rows[] = {{15, {"10", "AM", ":15", ":30", ":45"}},
                {30, {"10", "AM", ":30"}},
                {60, {"10", "AM"}},
                {20, {"10", "AM", ":20", ":40"}}};
    for (const auto& row : rows) {
        hand.calendar.setTimeInterval(row.interval);
        QStringList labels;
        for (int minute = 600; minute < 660; minute += row.interval)
            labels << labelsAt(minute);
        EXPECT_EQ(labels, row.ofTen) << row.interval;
    }
}

TEST_F(Gutter, EveryHourIsToldAlsoWhereNoRowBeginsWithIt) {
    hand.calendar.resize(600, 1600);
    for (const int interval : {45, 25, 50}) {
        hand.calendar.setTimeInterval(interval);
        const QStringList labels = TextsIn(words(), place());
        for (const char* hour : {"9", "10", "11", "12"})
            EXPECT_TRUE(labels.contains(QLatin1String(hour))) << hour << " by " << interval;
        std::vector<QRectF> places;
        for (const Word& word : words())
            if (place().contains(word.place.center().toPoint()))
                places.push_back(word.place.adjusted(1, 3, -1, -3));
        for (std::size_t one = 0; one < places.size(); ++one)
            for (std::size_t other = 0; other < one; ++other)
                EXPECT_FALSE(places[one].intersects(places[other])) << interval << " at " << places[one].top();
    }
}

TEST_F(Gutter, SmallRowsLeaveOutWhatWouldStandUnderTheHour) {
    hand.calendar.setTimeInterval(5);
    hand.calendar.setTopTime(600);
    EXPECT_EQ(labelsAt(600), (QStringList{"10", "AM"}));
    EXPECT_EQ(labelsAt(605), QStringList()) << "the hour's own digits reach there";
    EXPECT_EQ(labelsAt(630), QStringList{":30"});
    EXPECT_EQ(labelsAt(655), QStringList{":55"});
}

TEST_F(Gutter, AFirstRowWithinAnHourSaysItsMinutes) {
    hand.calendar.setFirstTime(510);
    EXPECT_EQ(labelsAt(510), QStringList{":30"});
    hand.calendar.setFirstTime(487);
    EXPECT_EQ(labelsAt(487).first(), QStringLiteral(":07"));
}

TEST_F(Gutter, LabelsEndAtOneEdgeAndHoursAreLarger) {
    const std::vector<Word> all = words();
    const Word hour = WordWith(all, QStringLiteral("10"));
    const Word half = WordWith(all, QStringLiteral("AM"));
    const Word minutes = WordWith(all, QStringLiteral(":15"));
    EXPECT_GT(hour.font.pointSizeF(), minutes.font.pointSizeF());
    EXPECT_EQ(half.font.pointSizeF(), minutes.font.pointSizeF());
    EXPECT_NE(hour.colour, minutes.colour);
    EXPECT_EQ(half.colour, minutes.colour);
    EXPECT_NEAR(half.place.right(), minutes.place.right(), 1);
    EXPECT_LT(minutes.place.right(), place().right());
    EXPECT_GT(hour.place.left(), 0);
}

TEST_F(Gutter, ScrolledItKeepsTheLabelOfTheHourThatHasBegun) {
    hand.calendar.resize(600, 300);
    hand.calendar.setTopTime(600);
    const QStringList labels = TextsIn(words(), place());
    EXPECT_EQ(labels.front(), QStringLiteral("AM"));
    EXPECT_TRUE(labels.contains(QStringLiteral("10")));
    EXPECT_FALSE(labels.contains(QStringLiteral("8")));
}

TEST_F(Gutter, ThePresentIsTimedInABubble) {
    const QStringList twelve{QStringLiteral("1:05")};
    const QStringList wholeDay{QStringLiteral("13:05")};
    hand.calendar.setNow(QDateTime(hand.day, QTime(13, 5)));
    EXPECT_TRUE(labels().contains(twelve.first()));
    EXPECT_FALSE(labels().contains(wholeDay.first()));
    hand.calendar.setTwentyFourHour(true);
    EXPECT_TRUE(labels().contains(wholeDay.first()));
    const Word bubble = WordWith(words(), wholeDay.first());
    EXPECT_NEAR(bubble.place.center().y(), hand.calendar.CellRect(1, 780).top() + 5 * hand.rowHeight() / 15.0, 2);
    hand.calendar.setNow(QDateTime(hand.day.addDays(1), QTime(13, 5)));
    EXPECT_FALSE(labels().contains(wholeDay.first())) << "tomorrow is not shown";
    hand.calendar.setDayColumns(2);
    EXPECT_TRUE(labels().contains(wholeDay.first())) << "in the second column it is";
    for (const QTime outside : {QTime(7, 59), QTime(18, 1)}) {
        hand.calendar.setNow(QDateTime(hand.day, outside));
        EXPECT_FALSE(TextsOf(words()).contains(outside.toString(QStringLiteral("HH:mm"))));
    }
    hand.calendar.setNow(QDateTime());
    EXPECT_FALSE(labels().contains(wholeDay.first()));
}

TEST_P(GutterLook, ThePresentIsALineAcrossItsOwnDayOnlyWithAMarkAtItsEdge) {
    hand.calendar.setDayColumns(3);
    hand.calendar.setNow(QDateTime(hand.day.addDays(1), QTime(10, 20)));
    const Picture picture = seen();
    for (int column = 1; column <= 3; ++column) {
        const QRect row = hand.calendar.CellRect(column, 615);
        const int y = row.top() + row.height() / 3;
        const QRect line(row.left() + 20, y - 2, row.width() - 24, 5);
        const double share = picture.share(line, style.present, 60);
        if (column == 2)
            EXPECT_NEAR(share, 0.3, 0.15);
        else
            EXPECT_EQ(share, 0) << column;
        const QRect mark(row.left(), y - 3, 3, 7);
        const double more =
            picture.share(mark, style.present, 60) - picture.share(mark.translated(60, 0), style.present, 60);
        EXPECT_EQ(more > 0.15, column == 2) << column << " has " << more;
    }
}

TEST_P(GutterLook, ThePresentRunsUnderTheCardsAndItsMarkOverThem) {
    hand.add(600, 660);
    hand.calendar.setNow(QDateTime(hand.day, QTime(10, 40)));
    const Picture picture = seen();
    const QRect row = hand.calendar.CellRect(1, 630);
    EXPECT_FALSE(picture.shows({row.left() + 60, row.top(), 300, row.height()}, style.present, 60));
    EXPECT_TRUE(picture.shows({row.left(), row.top() + 5, 6, row.height()}, style.present, 60));
}

TEST_P(GutterLook, HoursAndRowsHaveTheirTicks) {
    const Picture picture = seen();
    const int left = hand.calendar.CellRect(1, 540).left();
    const int hour = hand.calendar.CellRect(1, 540).top();
    const int row = hand.calendar.CellRect(1, 555).top();
    EXPECT_NEAR(picture.share({style.margin + 1, hour - 1, left - style.margin - 3, 2}, style.hourLine, 6), 0.5, 0.02);
    EXPECT_NEAR(picture.share({left - style.margin, row - 1, style.margin - 1, 2}, style.rowLine, 6), 0.5, 0.1);
    EXPECT_FALSE(picture.shows({style.margin, row - 1, left - 3 * style.margin, 2}, style.rowLine, 6));
    EXPECT_EQ(picture.share({0, hour + 2, 2, 60}, style.window), 1);
}
