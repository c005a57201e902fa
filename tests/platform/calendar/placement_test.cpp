// Where exactly the words and the shapes of a calendar stand.

#include <cmath>

#include "platform/calendar/colour.h"
#include "tests/platform/calendar/calendarlook.h"
#include "tests/platform/calendar/monthunderhand.h"
#include "tests/platform/calendar/words.h"

namespace {

class Placement : public testing::Test {
  protected:
    Placement() : style(ScreenStyle(hand.calendar.palette(), hand.calendar.font())) {}

    [[nodiscard]] Word word(const QString& text) { return WordWith(WordDevice::of(hand.calendar), text); }
    [[nodiscard]] int gutterRight() const { return hand.calendar.HeadingRect(1).left() - 1; }
    [[nodiscard]] static double widthOf(const QFont& font, const QString& text) {
        return QFontMetrics(font).horizontalAdvance(text);
    }
    /// How far the middle of the word is from that of the rectangle, on the axis where it is further.
    [[nodiscard]] static double offCentre(const Word& word, const QRectF& rect) {
        const QPointF off = word.place.center() - rect.center();
        return std::max(std::abs(off.x()), std::abs(off.y()));
    }

    CalendarUnderHand hand;
    CalendarStyle style;
};

class PlacementLook : public CalendarLook {};

INSTANTIATE_TEST_SUITE_P(EachLook, PlacementLook, testing::ValuesIn(Looks), NameOfLook);

constexpr double Near = 0.6;  // Widths of words are rounded to whole pixels.

}  // namespace

TEST_F(Placement, AnHourStandsAMarginUnderItsLineAndItsHalfIsAlignedWithItsTop) {
    const int line = hand.calendar.CellRect(1, 600).top();
    const Word hour = word(QStringLiteral("10"));
    const Word half = word(QStringLiteral("AM"));
    const Word minutes = word(QStringLiteral(":15"));
    const QFontMetricsF big(style.hour);
    const QFontMetricsF little(style.minute);
    EXPECT_NEAR(hour.place.top(), line + style.margin, Near);
    const auto topOfCapitals = [](const Word& said, const QFontMetricsF& metrics) {
        return said.place.top() + metrics.ascent() - metrics.capHeight();
    };
    const std::vector<Word> all = WordDevice::of(hand.calendar);
    const auto atTen = std::find_if(all.begin(), all.end(), [&](const Word& each) {
        return each.text == QLatin1String("AM") && std::abs(each.place.top() - hour.place.top()) < hour.place.height();
    });
    ASSERT_NE(atTen, all.end());
    EXPECT_NEAR(topOfCapitals(*atTen, little), topOfCapitals(hour, big), 1.1);
    const double right = gutterRight() - 2 * style.margin;
    EXPECT_NEAR(half.place.right(), right, Near);
    EXPECT_NEAR(minutes.place.right(), right, Near);
    EXPECT_NEAR(hour.place.right(), half.place.left() - style.margin / 2, 1);
    const int row = hand.calendar.CellRect(1, 495).top();
    EXPECT_NEAR(minutes.place.top(), row + style.margin / 2, Near);
    EXPECT_EQ(hour.colour, style.ink);
    EXPECT_EQ(half.colour, style.dimInk);
    EXPECT_EQ(minutes.colour, style.dimInk);
}

TEST_F(Placement, ThePartsOfAHeadingFollowEachOtherByOneGap) {
    hand.calendar.setDate(QDate(2026, 3, 25));
    const QRectF heading = hand.calendar.HeadingRect(1);
    const QRectF before = word(QStringLiteral("Wednesday")).place;
    const QRectF number = word(QStringLiteral("25")).place;
    const QRectF after = word(QStringLiteral("March 2026")).place;
    const double disc = QFontMetrics(style.dayNumber).height() + 2 * style.margin;
    const double gap = 4 * style.margin;
    EXPECT_NEAR(number.center().x() - before.right(), gap / 2 + disc / 2, 1);
    EXPECT_NEAR(after.left() - number.center().x(), gap / 2 + disc / 2, 1);
    EXPECT_NEAR(before.left() - heading.left(), heading.right() - after.right(), 2);
    for (const QRectF& part : {before, number, after})
        EXPECT_NEAR(part.center().y(), heading.center().y(), 0.75);
    EXPECT_EQ(word(QStringLiteral("25")).font.pointSizeF(), style.dayNumber.pointSizeF());
    EXPECT_EQ(word(QStringLiteral("March 2026")).font.pointSizeF(), style.heading.pointSizeF());
}

TEST_F(Placement, ATitleStandsInTheMiddleInTheFontOfHeadings) {
    hand.calendar.AddColumn(QStringLiteral("Adams"));
    hand.calendar.AddColumn(QStringLiteral("Brown"));
    for (int column = 1; column <= 2; ++column) {
        const Word title = word(hand.calendar.ColumnTitle(column));
        EXPECT_LE(offCentre(title, hand.calendar.HeadingRect(column)), 0.75);
        EXPECT_EQ(title.font.pointSizeF(), style.heading.pointSizeF());
        EXPECT_EQ(title.colour, style.ink);
    }
}

TEST_F(Placement, AMarkerIsSaidInTheSmallFontInTheMiddle) {
    hand.add(1200, 1230);
    hand.add(60, 90);
    for (int item = 1; item <= 2; ++item) {
        const Word said = word(item == 1 ? QStringLiteral("▼ 1 later") : QStringLiteral("▲ 1 earlier"));
        EXPECT_EQ(said.font.pointSizeF(), style.small.pointSizeF());
        EXPECT_EQ(said.colour, style.ink);
        EXPECT_LE(offCentre(said, hand.calendar.ItemRect(item)), 1.5);
    }
}

TEST_F(Placement, ASelectedRangeSaysItsTimesInItsUpperLeftCorner) {
    hand.calendar.selectRange(1, 600, 660);
    const Word said = word(QStringLiteral("10:00 – 11:00 AM"));
    const QRect cell = hand.calendar.CellRect(1, 600);
    EXPECT_NEAR(said.place.left(), cell.left() + 1 + 2 * style.margin, Near);
    EXPECT_NEAR(said.place.top(), cell.top() + 1, Near);
    EXPECT_EQ(said.font.pointSizeF(), style.small.pointSizeF());
    EXPECT_EQ(said.colour, style.ink);
}

TEST_F(Placement, TheBubbleOfADragEndsAboveTheRightEndOfTheGhost) {
    const int item = hand.add(600, 660);
    hand.press(hand.middleOf(item));
    hand.moveTo(hand.middleOf(item) + QPoint(0, 4 * hand.rowHeight()));
    // The card says its times as well, before the bubble.
    const std::vector<Word> all = WordDevice::of(hand.calendar);
    const auto last = std::find_if(all.rbegin(), all.rend(),
                                   [](const Word& each) { return each.text == QStringLiteral("11:00 AM – 12:00 PM"); });
    ASSERT_NE(last, all.rend());
    const Word said = *last;
    const QRect cell = hand.calendar.CellRect(1, 660);
    const int card = hand.calendar.ItemRect(item).right();
    const double width = widthOf(style.small, said.text) + 4 * style.margin;
    EXPECT_NEAR(said.place.center().x(), card - 1 - (width - 1) / 2, 1.5);
    EXPECT_NEAR(said.place.center().y(), cell.top() - (style.smallLine + style.margin) / 2.0, 1.5);
    EXPECT_EQ(said.colour, style.accentInk);
    EXPECT_EQ(said.font.pointSizeF(), style.small.pointSizeF());
}

TEST_P(PlacementLook, TheTimeOfThePresentStandsInABubbleOfItsSize) {
    hand.calendar.setNow(QDateTime(hand.day, QTime(13, 5)));
    const Picture picture = seen();
    const Word said = WordWith(WordDevice::of(hand.calendar), QStringLiteral("1:05"));
    const int right = hand.calendar.HeadingRect(1).left() - 1 - style.margin;
    const double width = QFontMetrics(style.small).horizontalAdvance(said.text) + 3 * style.margin;
    const double middle = hand.calendar.CellRect(1, 780).top() + 5 * hand.rowHeight() / 15.0;
    const QRect place(0, static_cast<int>(middle) - 40, right + style.margin, 80);
    const QRect bubble = picture.bounds(place, style.present, 20);
    EXPECT_NEAR(bubble.right(), right, 1);
    EXPECT_NEAR(bubble.width(), width, 2);
    EXPECT_NEAR(bubble.height(), style.smallLine, 2);
    EXPECT_NEAR(bubble.center().y(), middle, 1.5);
    EXPECT_NEAR(said.place.center().x(), right - width / 2 + 0.5, 1);
}

TEST_P(PlacementLook, ThePresentIsALineWithAPointedMark) {
    hand.calendar.setNow(QDateTime(hand.day, QTime(10, 0)));
    const Picture picture = seen();
    const QRect cell = hand.calendar.CellRect(1, 600);
    const QRect column(cell.left(), cell.top() - 20, cell.width(), 40);
    const QRect line = picture.bounds(column.adjusted(40, 0, -10, 0), style.present, 90);
    EXPECT_NEAR(line.height(), std::max(style.margin / 2.0, 1.5), 1);
    EXPECT_NEAR(line.center().y(), cell.top(), 1);
    EXPECT_EQ(line.width(), column.width() - 50) << "it crosses the whole column";
    const double size = style.margin * 1.4;
    const QRect mark = picture.bounds({column.left(), column.top(), 2, 40}, style.present, 90);
    EXPECT_NEAR(mark.height(), 2 * size, 2.5);
    EXPECT_NEAR(mark.center().y(), cell.top(), 1);
    const int tip = static_cast<int>(column.left() + 1.6 * size);
    EXPECT_GT(picture.share({column.left() + 1, cell.top() - 1, static_cast<int>(size / 2), 3}, style.present, 90),
              0.9);
    const QRect above(tip + 3, cell.top() - 4, 10, 2);
    EXPECT_FALSE(picture.shows(above, style.present, 90)) << "it ends at its point";
}

TEST_P(PlacementLook, AMarkerIsAPillAroundItsWords) {
    const int late = hand.add(1200, 1230);
    hand.calendar.setSelectedItem(late);
    const Picture picture = seen();
    const QRect strip = hand.calendar.ItemRect(late);
    const QString said = QStringLiteral("▼ 8:00 PM Anna O'Brien");
    const double width = QFontMetrics(style.small).horizontalAdvance(said) + 4 * style.margin;
    const QRect pill = picture.bounds(strip, style.accent, 60);
    EXPECT_NEAR(pill.width(), width + 2, 3);
    EXPECT_NEAR(pill.height(), strip.height() - 3 + 2, 2);
    EXPECT_NEAR(pill.center().x(), strip.center().x(), 1);
    EXPECT_NEAR(pill.center().y(), strip.center().y(), 1);
}

TEST_P(PlacementLook, TodaysDiscIsRoundAndHoldsTheNumber) {
    hand.calendar.setDate(QDate(2026, 3, 25));
    hand.calendar.setNow(QDateTime(QDate(2026, 3, 25), QTime(7, 0)));
    const QRect heading = hand.calendar.HeadingRect(1).adjusted(0, 0, 0, -3);
    const QRect disc = seen().bounds(heading, style.accent, 60);
    const int side = QFontMetrics(style.dayNumber).height() + 2 * style.margin;
    const Word number = WordWith(WordDevice::of(hand.calendar), QStringLiteral("25"));
    EXPECT_NEAR(disc.width(), side, 1.5);
    EXPECT_NEAR(disc.height(), side, 1.5);
    EXPECT_NEAR(disc.center().x(), number.place.center().x(), 1);
    EXPECT_NEAR(disc.center().y(), hand.calendar.HeadingRect(1).center().y(), 1);
}

TEST_P(PlacementLook, TheLineUnderTheHeadingsIsTwoPixelsOfTheAccentOrOneOfAColumn) {
    const QRect heading = hand.calendar.HeadingRect(1);
    const QRect lower(heading.left() + 20, heading.bottom() - 9, heading.width() - 40, 14);
    EXPECT_EQ(seen().bounds(lower, style.accent, 6), QRect(lower.left(), heading.bottom() - 1, lower.width(), 2));
    hand.calendar.clearFocus();
    const Picture quiet = seen();
    EXPECT_FALSE(quiet.shows(lower, style.accent, 6));
    EXPECT_EQ(quiet.share({lower.left(), heading.bottom(), lower.width(), 1}, style.columnLine, 3), 1);
    EXPECT_EQ(quiet.share({lower.left(), heading.bottom() - 1, lower.width(), 1}, style.window, 3), 1);
}

TEST_F(MonthCalendar, WordsStandInTheMiddleOfTheirPlaces) {
    const CalendarStyle style = ScreenStyle(month.palette(), month.font());
    const std::vector<Word> words = WordDevice::of(month);
    for (std::size_t i = 0; i < 7; ++i) {
        const QRect below = month.Layout().cells[i].rect;
        const QRectF place(below.left(), 0, below.width(), month.Layout().headings.height());
        EXPECT_NEAR(words[i].place.center().x(), place.center().x(), 0.3);
        EXPECT_NEAR(words[i].place.center().y(), place.center().y(), 0.3);
        EXPECT_EQ(words[i].font.pointSizeF(), style.heading.pointSizeF());
        EXPECT_EQ(words[i].colour, i == 0 || i == 6 ? style.dimInk : style.ink) << "weekends are quiet";
    }
    for (const MonthCell& each : month.Layout().cells) {
        const auto found = std::find_if(words.begin(), words.end(), [&](const Word& word) {
            return QRectF(each.rect).contains(word.place.center());
        });
        ASSERT_NE(found, words.end());
        EXPECT_NEAR(found->place.center().x(), QRectF(each.number).center().x(), 0.3);
        EXPECT_NEAR(found->place.center().y(), QRectF(each.number).center().y(), 0.3);
        EXPECT_EQ(found->font.pointSizeF(), style.text.pointSizeF());
    }
}

TEST_F(MonthCalendar, ALineOfADayHasItsTimeAndTextByTheirMargins) {
    month.resize(1600, 700);
    month.AddItem(itemOn(day, 780, "Anna"));
    const CalendarStyle style = ScreenStyle(month.palette(), month.font());
    const std::vector<Word> words = WordDevice::of(month);
    const QRectF line = cell(day).lines[0].rect;
    const Word time = WordWith(words, QStringLiteral("1:00 PM"));
    const Word text = WordWith(words, QStringLiteral("Anna"));
    const int edge = std::max(style.edgeWidth - 1, 3);
    EXPECT_NEAR(time.place.left(), line.left() + edge + style.margin, 0.3);
    EXPECT_NEAR(text.place.left(),
                time.place.left() + QFontMetrics(style.small).horizontalAdvance(time.text) + style.margin, 0.3);
    for (const Word& said : {time, text}) {
        EXPECT_NEAR(said.place.center().y(), line.center().y(), 0.3);
        EXPECT_EQ(said.font.pointSizeF(), style.small.pointSizeF());
    }
    const CardColors colours = CardColorsFor(month.Item(1), style.base, style.ink);
    EXPECT_EQ(time.colour, colours.dimText);
    EXPECT_EQ(text.colour, colours.text);
}
