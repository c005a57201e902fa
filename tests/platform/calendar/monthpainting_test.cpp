// How a month is painted: its days, their numbers and their items.

#include <QCoreApplication>
#include <QMouseEvent>

#include "platform/calendar/colour.h"
#include "tests/platform/calendar/monthunderhand.h"
#include "tests/platform/calendar/picture.h"
#include "tests/platform/calendar/words.h"

namespace {

class MonthLook : public testing::TestWithParam<Look>, public MonthUnderHand {
  protected:
    MonthLook() {
        month.setPalette(PaletteOf(ColoursOf(GetParam().mode)));
        style = ScreenStyle(month.palette(), month.font());
    }
    [[nodiscard]] Picture seen() {
        QCoreApplication::processEvents();
        return Picture::of(month, GetParam().ratio);
    }
    /// A place in a day where only its ground is.
    [[nodiscard]] QRect groundOf(QDate date) const {
        const QRect rect = cell(date).rect;
        return {rect.center().x(), rect.bottom() - 20, 20, 10};
    }
    [[nodiscard]] bool isFramed(const Picture& picture, QDate date, const QColor& colour) const {
        const QRect rect = cell(date).rect;
        for (const QRect& side : SidesOf(rect.adjusted(1, 1, -2, -2), 2)) {
            const QRect straight =
                side.width() > side.height() ? side.adjusted(4, 0, -4, 0) : side.adjusted(0, 4, 0, -4);
            if (picture.share(straight, colour, 30) < 0.45)
                return false;
        }
        return true;
    }
    void hover(QPoint at) {
        QMouseEvent event(QEvent::MouseMove, at, month.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&month, &event);
    }

    CalendarStyle style;
};

class MonthWords : public testing::Test, public MonthUnderHand {
  protected:
    [[nodiscard]] std::vector<Word> words() { return WordDevice::of(month); }
    [[nodiscard]] QStringList wordsOf(QDate date) { return TextsIn(words(), cell(date).rect); }
    [[nodiscard]] QStringList names() { return TextsIn(words(), month.Layout().headings); }
};

INSTANTIATE_TEST_SUITE_P(EachLook, MonthLook, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_F(MonthWords, TheDaysOfTheWeekAreNamedByRoomFromTheFirstOne) {
    EXPECT_EQ(names(), (QStringList{"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"}));
    month.setFirstDayOfWeek(Qt::Monday);
    EXPECT_EQ(names(), (QStringList{"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"}));
    month.resize(220, 400);
    EXPECT_EQ(names(), (QStringList{"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"}));
}

TEST_F(MonthWords, ANameStandsInTheMiddleOverItsDays) {
    for (int i = 0; i < 7; ++i) {
        const Word name = words()[static_cast<std::size_t>(i)];
        const QRect below = month.Layout().cells[static_cast<std::size_t>(i)].rect;
        EXPECT_NEAR(name.place.center().x(), below.center().x(), 2);
        EXPECT_NEAR(name.place.center().y(), month.Layout().headings.center().y(), 2);
    }
}

TEST_F(MonthWords, EveryDayHasItsNumber) {
    for (const MonthCell& each : month.Layout().cells) {
        const Word number = WordWith(words(), QString::number(each.day.day()));
        EXPECT_EQ(wordsOf(each.day), QStringList{QString::number(each.day.day())});
        EXPECT_EQ(number.text, QString::number(each.day.day()));
    }
    const auto numberOf = [&](QDate date) {
        for (const Word& word : words())
            if (QRectF(cell(date).rect).contains(word.place.center()))
                return word;
        return Word();
    };
    EXPECT_TRUE(QRectF(cell(day).number).contains(numberOf(day).place.center()));
    EXPECT_TRUE(numberOf(day).font.bold()) << "today";
    EXPECT_TRUE(numberOf(QDate(2026, 3, 1)).font.bold()) << "the first";
    EXPECT_FALSE(numberOf(QDate(2026, 3, 2)).font.bold());
    const CalendarStyle style = ScreenStyle(month.palette(), month.font());
    EXPECT_EQ(numberOf(day).colour, style.accentInk);
    EXPECT_EQ(numberOf(QDate(2026, 3, 2)).colour, style.ink);
    EXPECT_EQ(numberOf(QDate(2026, 4, 2)).colour, style.dimInk) << "of another month";
}

TEST_F(MonthWords, AnItemSaysItsTimeAndItsTextInTheClockOfTheDesk) {
    month.resize(1600, 700);
    month.AddItem(itemOn(day, 780, "Anna"));
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "1:00 PM", "Anna"}));
    month.setTwentyFourHour(true);
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "13:00", "Anna"}));
    month.setTwentyFourHour(false);
    month.resize(1000, 700);
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "1:00", "Anna"})) << "in a narrower day the order tells the half";
    month.resize(500, 700);
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "Anna"})) << "and in a narrow one the time itself";
}

TEST_F(MonthWords, TheTimeIsLeftOutWhereALineHasRoomForFewerLetters) {
    month.AddItem(itemOn(day, 780, "A"));
    const CalendarStyle style = ScreenStyle(month.palette(), month.font());
    const int letter = QFontMetrics(style.small).averageCharWidth();
    const int frame = std::max(style.edgeWidth - 1, 3) + style.margin + style.margin / 2;
    const auto timeIn = [&](int room) {
        int width = 7 * room;
        do
            month.resize(++width, 700);
        while (cell(day).lines[0].rect.width() < frame + room);
        return wordsOf(day).mid(1);
    };
    EXPECT_EQ(timeIn(12 * letter - 1), QStringList{"A"});
    EXPECT_EQ(timeIn(12 * letter), (QStringList{"1:00", "A"}));
    EXPECT_EQ(timeIn(26 * letter - 1), (QStringList{"1:00", "A"}));
    EXPECT_EQ(timeIn(26 * letter), (QStringList{"1:00 PM", "A"}));
}

TEST_F(MonthWords, TheTextStandsBesideItsTimeInOneLine) {
    month.AddItem(itemOn(day, 780, "Anna\nO'Brien"));
    const std::vector<Word> all = words();
    const QRectF time = WordWith(all, QStringLiteral("1:00")).place;
    const QRectF text = WordWith(all, QStringLiteral("Anna O'Brien")).place;
    const QRect line = cell(day).lines[0].rect;
    EXPECT_GT(time.left(), line.left() + 3) << "beside the edge";
    EXPECT_NEAR(text.left() - time.right(), 3, 3);
    EXPECT_TRUE(QRectF(line).contains(time.center()));
    EXPECT_TRUE(QRectF(line).contains(text.center()));
}

TEST_F(MonthWords, ALongTextEndsInDotsInsideItsDay) {
    month.AddItem(itemOn(day, 780, "Wilhelmina O'Brien-Featherstonehaugh of the Moor"));
    const QString shown = wordsOf(day).last();
    EXPECT_TRUE(shown.endsWith(QChar(0x2026))) << shown.toStdString();
    EXPECT_LE(WordWith(words(), shown).place.right(), cell(day).lines[0].rect.right());
}

TEST_F(MonthWords, AHiddenNameABannerAndACancelledItem) {
    CalendarItem hidden = itemOn(day, 780, "Anna");
    hidden.ItemTextColor = TextColor::SameAsBackground;
    month.AddItem(hidden);
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "1:00"}));
    month.ClearItems();
    CalendarItem banner = itemOn(day, 0, "Founders");
    banner.ItemBanner = true;
    month.AddItem(banner);
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "Founders"})) << "a banner has no time";
    month.ClearItems();
    CalendarItem cancelled = itemOn(day, 780, "Anna");
    cancelled.ItemStatusMark = StatusMark::Cancelled;
    month.AddItem(cancelled);
    EXPECT_TRUE(WordWith(words(), QStringLiteral("Anna")).font.strikeOut());
    month.ChangeItems([](CalendarItem& item) { item.ItemStatusMark = StatusMark::Kept; });
    EXPECT_FALSE(WordWith(words(), QStringLiteral("Anna")).font.strikeOut());
}

TEST_F(MonthWords, WhatHasNoRoomIsCounted) {
    for (int i = 0; i < 40; ++i)
        month.AddItem(itemOn(day, 540, "someone"));
    EXPECT_EQ(wordsOf(day).last(), QStringLiteral("+%1 more").arg(cell(day).hidden));
    const Word rest = WordWith(words(), wordsOf(day).last());
    EXPECT_EQ(rest.colour, ScreenStyle(month.palette(), month.font()).dimInk);
    EXPECT_TRUE(QRectF(cell(day).lines.back().rect).contains(rest.place.center()));
    month.resize(300, 700);
    EXPECT_EQ(wordsOf(day).last(), QStringLiteral("+%1").arg(cell(day).hidden)) << "in a narrow day";
    month.resize(1000, 180);
    ASSERT_TRUE(cell(day).lines.empty());
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "+40 more"})) << "beside the number where there is no line";
    EXPECT_EQ(wordsOf(day.addDays(1)), QStringList{"12"});
}

TEST_P(MonthLook, DaysHaveLinesAndGroundsOfTheirKind) {
    const Picture picture = seen();
    EXPECT_EQ(picture.share(groundOf(QDate(2026, 3, 12)), style.base), 1);
    EXPECT_EQ(picture.share(groundOf(QDate(2026, 3, 14)), style.shade), 1) << "a Saturday";
    EXPECT_EQ(picture.share(groundOf(QDate(2026, 3, 15)), style.shade), 1) << "a Sunday";
    EXPECT_EQ(picture.share(groundOf(QDate(2026, 4, 2)), style.window), 1) << "of another month";
    EXPECT_EQ(picture.share(groundOf(QDate(2026, 4, 4)), style.window), 1);
    for (const MonthCell& each : month.Layout().cells) {
        if (each.day == day)
            continue;
        const QRect top(each.rect.left() + 4, each.rect.top(), each.rect.width() - 8, 1);
        EXPECT_GE(picture.share(top, style.hourLine, 9), 0.5);
        const QRect left(each.rect.left(), each.rect.top() + 4, 1, each.rect.height() - 8);
        EXPECT_EQ(picture.share(left, style.hourLine, 9) >= 0.5, each.rect.left() > 0);
    }
    EXPECT_GT(picture.share(month.Layout().headings, style.window), 0.8);
}

TEST_P(MonthLook, TheSelectedDayIsFramedAndOnlyThat) {
    for (const QDate date : {QDate(2026, 3, 12), QDate(2026, 3, 20), QDate(2026, 3, 12)}) {
        month.setDate(date);
        const Picture picture = seen();
        for (const QDate other : {QDate(2026, 3, 12), QDate(2026, 3, 20), QDate(2026, 3, 2)})
            EXPECT_EQ(isFramed(picture, other, style.accent), other == date);
    }
    month.clearFocus();
    EXPECT_FALSE(isFramed(seen(), QDate(2026, 3, 12), style.accent));
    EXPECT_TRUE(isFramed(seen(), QDate(2026, 3, 12), style.dimInk)) << "while the keyboard is elsewhere";
}

TEST_P(MonthLook, TodayStandsInADisc) {
    const auto hasDisc = [&](QDate date) {
        const QRect number = cell(date).number;
        const QRect edge(number.center().x() - 2, number.top() + 1, 5, 2);
        return seen().share(edge, style.accent, 30) > 0.8;
    };
    EXPECT_TRUE(hasDisc(day));
    EXPECT_FALSE(hasDisc(day.addDays(1)));
    month.setClock([] { return QDateTime(QDate(2026, 3, 12), QTime(0, 0)); });
    EXPECT_FALSE(hasDisc(day));
    EXPECT_TRUE(hasDisc(day.addDays(1)));
}

TEST_P(MonthLook, AnItemHasItsColoursAndItsStatus) {
    const QDate other = day.addDays(1);  // The frame of the selected day runs over its lines.
    CalendarItem item = itemOn(other, 540, "");
    item.ItemColor = 0x2040C0;
    month.AddItem(item);
    const CardColors colours = CardColorsFor(item, style.base, style.ink);
    const QRect line = cell(other).lines[0].rect;
    const QRect edge(line.left(), line.top() + 2, std::max(style.edgeWidth - 1, 3), line.height() - 4);
    EXPECT_EQ(seen().share(edge, colours.edge), 1);
    EXPECT_EQ(seen().bounds(cell(other).rect, colours.edge), edge.adjusted(0, -1, 0, 1));
    const QRect inside(line.center().x(), line.top() + 3, line.width() / 4, line.height() - 6);
    EXPECT_EQ(seen().share(inside, colours.fill), 1);
    const QRect end(line.right() - style.icon - 2, line.top() + 1, style.icon, line.height() - 2);
    EXPECT_EQ(seen().share(end, colours.fill), 1);
    month.ChangeItems([](CalendarItem& each) { each.ItemStatusMark = StatusMark::Kept; });
    EXPECT_GT(seen().share(end, colours.text, 120), 0.05) << "the picture of its status";
    month.resize(300, 700);
    const QRect narrow = cell(other).lines[0].rect;
    EXPECT_FALSE(seen().shows(narrow.adjusted(8, 2, -2, -2), colours.text, 120)) << "a narrow day has no room for it";
}

TEST_P(MonthLook, AnItemOfANeighbouringMonthIsQuietAndReadable) {
    CalendarItem item = itemOn(QDate(2026, 4, 2), 540, "Anna");
    item.ItemColor = 0x2040C0;
    item.ItemBackColor = 0x00FFFF;
    month.AddItem(item);
    const QRect line = cell(QDate(2026, 4, 2)).lines[0].rect;
    EXPECT_EQ(seen().share({line.right() - 24, line.top() + 3, 16, line.height() - 6}, style.window), 1)
        << "without the fill of this month's";
    const Word word = WordWith(WordDevice::of(month), QStringLiteral("Anna"));
    ASSERT_FALSE(word.text.isEmpty());
    EXPECT_GE(ContrastRatio(word.colour, style.window), ReadableContrast);
    item.ItemDay = day.addDays(1);
    month.AddItem(item);
    const QRect own = cell(day.addDays(1)).lines[0].rect;
    EXPECT_EQ(seen().share({own.right() - 24, own.top() + 3, 16, own.height() - 6},
                           CardColorsFor(item, style.base, style.ink).fill),
              1);
}

TEST_P(MonthLook, UnderThePointerAnItemIsOutlined) {
    month.AddItem(itemOn(day, 540, ""));
    month.AddItem(itemOn(day, 600, ""));
    const Picture before = seen();
    for (int time = 0; time < 2; ++time) {
        const QRect line = cell(day).lines[1].rect;
        hover(line.center());
        const QRect changed = before.changesTo(seen());
        EXPECT_TRUE(changed.isValid());
        EXPECT_TRUE(line.adjusted(-1, -1, 1, 1).contains(changed));
        hover(cell(day.addDays(1)).rect.center());
        EXPECT_EQ(before.changesTo(seen()), QRect());
    }
    hover(cell(day).lines[0].rect.center());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&month, &leave);
    EXPECT_EQ(before.changesTo(seen()), QRect());
}

TEST_P(MonthLook, APartIsPaintedLikeThatPartOfTheWhole) {
    for (int i = 0; i < 60; ++i)
        month.AddItem(itemOn(QDate(2026, 3, 1).addDays(i % 31), 480 + i, "Someone", i * 12345));
    const QImage whole = month.grab().toImage();
    for (const QRect& part : {QRect(100, 90, 300, 200), QRect(0, 0, 40, 40), QRect(700, 500, 300, 200)})
        EXPECT_EQ(month.grab(part).toImage(), whole.copy(part));
}
