// Round and slanted shapes have smooth edges, and straight lines are sharp.

#include <functional>

#include "platform/calendar/card.h"
#include "tests/platform/calendar/calendarlook.h"
#include "tests/platform/calendar/monthunderhand.h"

namespace {

/// Whether some pixel there has a colour between those that are painted.
bool isSmooth(const Picture& picture, const QRect& where, const std::vector<QColor>& painted) {
    for (int y = where.top(); y <= where.bottom(); ++y) {
        for (int x = where.left(); x <= where.right(); ++x) {
            const QColor seen = picture.at({x, y});
            const auto isSeen = [&](const QColor& colour) { return Picture::Distance(seen, colour) <= 6; };
            if (std::none_of(painted.begin(), painted.end(), isSeen))
                return true;
        }
    }
    return false;
}

/// Whether that place shows the line and its ground and nothing between them.
bool isSharp(const Picture& picture, const QRect& where, const QColor& line, const QColor& ground) {
    return picture.shows(where, line) && picture.shows(where, ground) && !isSmooth(picture, where, {line, ground});
}

QRect topLeftOf(const QRect& shape, int side) {
    return {shape.topLeft(), QSize(side, side)};
}

class Smoothness : public CalendarLook {
  protected:
    Smoothness() {
        hand.calendar.setTimeInterval(60);  // No line and no label disturbs the middle of an hour.
    }
};

class MonthSmoothness : public testing::TestWithParam<Look>, public MonthUnderHand {
  protected:
    MonthSmoothness() {
        month.setPalette(PaletteOf(ColoursOf(GetParam().mode)));
        style = ScreenStyle(month.palette(), month.font());
    }
    [[nodiscard]] Picture seen() {
        QCoreApplication::processEvents();
        return Picture::of(month, GetParam().ratio);
    }

    CalendarStyle style;
};

INSTANTIATE_TEST_SUITE_P(EachLook, Smoothness, testing::ValuesIn(Looks), NameOfLook);
INSTANTIATE_TEST_SUITE_P(EachLook, MonthSmoothness, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_P(Smoothness, OfTheMarkersOfEarlierAndLaterItems) {
    const int earlier = hand.add(300, 360);
    const int later = hand.add(1200, 1260);
    for (const int item : {earlier, later}) {
        const Picture picture = seen();
        const QRect pill = picture.bounds(hand.calendar.ItemRect(item), style.base);
        EXPECT_TRUE(
            isSmooth(picture, topLeftOf(pill.adjusted(-1, -1, 0, 0), 4), {style.window, style.base, style.hourLine}));
    }
}

TEST_P(Smoothness, LeavesThePillOfAMarkerRoundAtItsEnds) {
    const QRect strip = hand.calendar.ItemRect(hand.add(1200, 1260));
    const Picture picture = seen();
    const auto isGround = [&](QPoint at) { return Picture::Distance(picture.at(at), style.window) <= 14; };
    QRect pill;
    for (int y = strip.top(); y <= strip.bottom(); ++y)
        for (int x = strip.left(); x <= strip.right(); ++x)
            pill |= isGround({x, y}) ? QRect() : QRect(x, y, 1, 1);
    ASSERT_GT(pill.height(), 10);
    EXPECT_FALSE(isGround({pill.left(), pill.center().y()}));
    EXPECT_FALSE(isGround({pill.center().x(), pill.top()}));
    for (const QPoint& outside : {QPoint(1, 1), QPoint(0, 3), QPoint(3, 0)}) {
        EXPECT_TRUE(isGround(pill.topLeft() + outside));
        EXPECT_TRUE(isGround(pill.bottomRight() - outside));
    }
}

TEST_P(Smoothness, OfTheDiscOfToday) {
    const Picture without = seen();
    hand.calendar.setNow(QDateTime(hand.day, QTime(7, 0)));
    const Picture picture = seen();
    const QRect disc = picture.bounds(hand.calendar.HeadingRect(1).adjusted(0, 0, 0, -3), style.accent);
    ASSERT_GT(disc.width(), 12);
    EXPECT_TRUE(isSmooth(picture, topLeftOf(disc, disc.width() / 4), {style.window, style.accent}));
    const int size = QFontMetrics(style.dayNumber).height() + 2 * style.margin;
    EXPECT_EQ(without.changesTo(picture).size(), QSize(size, size)) << "it has no outline";
}

TEST_P(Smoothness, OfThePresentInItsColumnAndBesideIt) {
    hand.calendar.setNow(QDateTime(hand.day, QTime(10, 40)));
    const Picture picture = seen();
    const QRect column = hand.calendar.CellRect(1, 640);
    const QRect label = picture.bounds({0, column.top(), column.left(), column.height()}, style.present);
    ASSERT_GT(label.width(), 12);
    EXPECT_TRUE(isSmooth(picture, topLeftOf(label, 3), {style.window, style.present}));
    const QRect mark(column.left() + 1, label.center().y() - 6, 6, 12);
    EXPECT_TRUE(isSmooth(picture, mark, {style.base, style.present}));
}

TEST_P(Smoothness, LeavesThePresentItsSize) {
    const Picture without = seen();
    hand.calendar.setNow(QDateTime(hand.day, QTime(10, 0)));
    const QRect column = hand.calendar.CellRect(1, 600);
    const Picture picture = seen();
    const auto changed = [&](const QRect& where) {
        return Picture(without.image().copy(QRect(where.topLeft() * without.ratio(), where.size() * without.ratio())))
            .changesTo(
                Picture(picture.image().copy(QRect(where.topLeft() * without.ratio(), where.size() * without.ratio()))))
            .translated(where.topLeft());
    };
    const double y = column.top() + 0.5;
    const double size = style.margin * 1.4;
    const QRect mark = changed({column.left() + 1, column.top() - 20, 3, 40});
    EXPECT_NEAR(mark.top(), y - size + 0.5, 1.0);
    EXPECT_LE(mark.bottom(), y + size);
    const QRect label = changed({0, column.top() - 20, column.left(), 40});
    EXPECT_EQ(label.height(), style.smallLine) << "it has no outline";
}

TEST_P(Smoothness, OfTheCornersOfACard) {
    const int item = hand.add(610, 650);
    const CardColors colours = CardColorsFor(std::as_const(hand.calendar).Item(item), style.base, style.ink);
    const QRect card = hand.calendar.ItemRect(item);
    EXPECT_TRUE(
        isSmooth(seen(), QRect(card.right() - 2, card.top(), 3, 3), {style.base, colours.fill, colours.outline}));
}

TEST_P(Smoothness, LeavesTheLinesSharp) {
    hand.calendar.setDayColumns(3);
    const std::pair<const char*, std::function<void()>> additions[] = {
        {"nothing else", [] {}},
        {"today", [&] { hand.calendar.setNow(QDateTime(hand.day, QTime(10, 40))); }},
        {"a marker", [&] { hand.add(1200, 1260); }},
        {"a card", [&] { hand.add(610, 650); }},
        {"a banner", [&] { hand.calendar.Item(hand.add(0, 0)).ItemBanner = true; }},
        {"a holiday", [&] { hand.calendar.setHolidayFlag(true); }},
    };
    for (const auto& [what, add] : additions) {
        add();
        const Picture picture = seen();
        for (int column = 1; column <= 3; ++column) {
            const QRect heading = hand.calendar.HeadingRect(column);
            const QRect cell = hand.calendar.CellRect(column, 780);
            const QRect beside(heading.left(), heading.bottom() - 6, 3, 4);
            EXPECT_TRUE(isSharp(picture, beside, style.columnLine, style.window)) << what << ' ' << column;
            EXPECT_TRUE(isSharp(picture, {cell.left(), cell.top() + 3, 3, 20}, style.columnLine, style.base)) << what;
            EXPECT_TRUE(isSharp(picture, {cell.left() + 9, cell.top() - 2, 20, 5}, style.hourLine, style.base)) << what;
        }
    }
}

TEST_P(MonthSmoothness, OfTheDiscOfTodayAndOfTheLines) {
    const QDate today = day.addDays(1);
    month.setClock([today] { return QDateTime(today, QTime(9, 0)); });
    const Picture disc = seen();
    const QRect number = cell(today).number;
    EXPECT_TRUE(isSmooth(disc, topLeftOf(number, number.width() / 4), {style.base, style.accent}));
    month.AddItem(itemOn(today, 540, ""));
    const CardColors colours = CardColorsFor(month.Item(1), style.base, style.ink);
    const QRect line = cell(today).lines[0].rect;
    EXPECT_TRUE(isSmooth(seen(), QRect(line.right() - 2, line.top(), 3, 3), {style.base, colours.fill}));
}
