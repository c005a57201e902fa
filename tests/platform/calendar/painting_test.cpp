#include "platform/calendar/painting.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPalette>

#include "platform/calendar/card.h"
#include "platform/calendar/glyphs.h"
#include "tests/platform/calendar/calendarunderhand.h"

namespace {

CalendarStyle Style() {
    return ScreenStyle(QPalette(), QFont(QStringLiteral("DejaVu Sans"), 9));
}

QImage CardImage(const CalendarItem& item, CardState state = {}, QSize size = {200, 60}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    state.start = item.ItemStart;
    state.end = item.ItemEnd;
    PaintCard(painter, QRect(QPoint(), size), item, state, Style());
    return image;
}

CalendarItem Item(const QString& text) {
    CalendarItem item;
    item.ItemText = text;
    item.ItemStart = 540;
    item.ItemEnd = 600;
    return item;
}

int PixelsOf(const QImage& image, const QRect& where, const QColor& color, int near = 24) {
    int count = 0;
    for (int y = where.top(); y <= where.bottom(); ++y) {
        for (int x = where.left(); x <= where.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += std::abs(pixel.red() - color.red()) + std::abs(pixel.green() - color.green()) +
                                 std::abs(pixel.blue() - color.blue()) <=
                             near
                         ? 1
                         : 0;
        }
    }
    return count;
}

}  // namespace

TEST(CardPainting, AHiddenNameLeavesNoTrace) {
    CalendarItem anna = Item("Anna O'Brien");
    CalendarItem nobody = Item("");
    anna.ItemTextColor = nobody.ItemTextColor = TextColor::SameAsBackground;
    anna.ItemStatusMark = nobody.ItemStatusMark = StatusMark::Cancelled;
    EXPECT_EQ(CardImage(anna), CardImage(nobody));
    anna.ItemTextColor = TextColor::Normal;
    EXPECT_NE(CardImage(anna), CardImage(nobody));
}

TEST(CardPainting, EveryStatusLooksDifferentInTheSameColour) {
    std::vector<QImage> images;
    for (int mark = 0; mark <= static_cast<int>(StatusMark::TypeSlot); ++mark) {
        CalendarItem item = Item("Anna O'Brien");
        item.ItemStatusMark = static_cast<StatusMark>(mark);
        const QImage image = CardImage(item);
        for (const QImage& other : images)
            EXPECT_NE(image, other) << "mark " << mark;
        images.push_back(image);
    }
}

TEST(CardPainting, EveryCourtesyCallPictureLooksDifferent) {
    std::vector<QImage> images;
    for (int icon = 0; icon <= 7; ++icon) {
        CalendarItem item = Item("Anna O'Brien");
        item.ItemStatusIcon = icon;
        const QImage image = CardImage(item);
        for (const QImage& other : images)
            EXPECT_NE(image, other) << "picture " << icon;
        images.push_back(image);
    }
    CalendarItem none = Item("Anna O'Brien");
    for (const int icon : {-1, 8, 1000}) {
        none.ItemStatusIcon = icon;
        EXPECT_EQ(CardImage(none), images[0]);
    }
}

TEST(CardPainting, TheEdgeHasTheItemsColourAndTheFillTheChosenOne) {
    CalendarItem item = Item("Anna O'Brien");
    item.ItemColor = 0x0000C0;
    item.ItemBackColor = 0x80FFFF;
    const QImage image = CardImage(item);
    EXPECT_EQ(image.pixelColor(2, 30), QColor(0xC0, 0, 0));
    EXPECT_EQ(image.pixelColor(150, 50), QColor(0xFF, 0xFF, 0x80));
}

TEST(CardPainting, ACardOfEverySizeIsPaintedInsideItself) {
    CalendarItem item = Item("Anna O'Brien with a long, long name");
    item.ItemLocation = "Main Street";
    item.ItemNoteIcon = item.ItemReminderIcon = item.ItemLocationIcon = true;
    for (int width = 1; width < 260; width += 7) {
        for (int height = 1; height < 90; height += 3) {
            QImage image(width + 20, height + 20, QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            PaintCard(painter, QRect(10, 10, width, height), item, {}, Style());
            painter.end();
            for (const QRect& outside : {QRect(0, 0, width + 20, 9), QRect(0, height + 11, width + 20, 9),
                                         QRect(0, 0, 9, height + 20), QRect(width + 11, 0, 9, height + 20)})
                ASSERT_EQ(PixelsOf(image, outside, Qt::white, 0), outside.width() * outside.height())
                    << width << " x " << height;
        }
    }
}

TEST(CardPainting, TheSameStatusIsDrawnOnce) {
    CalendarItem item;
    item.ItemStatusMark = StatusMark::CheckedIn;
    item.ItemStatusIcon = 3;
    EXPECT_EQ(GlyphsOf(item), std::vector<Glyph>{Glyph::CheckedIn});
    item = CalendarItem();
    item.ItemStatusMark = StatusMark::Tentative;
    item.ItemTentativeIcon = true;
    item.ItemSeriesIcon = 3;
    EXPECT_EQ(GlyphsOf(item), (std::vector<Glyph>{Glyph::Tentative, Glyph::Series}));
}

TEST(CalendarPainting, EqualPalettesAndFontsMakeEqualStyles) {
    EXPECT_EQ(Style(), Style());
    EXPECT_NE(Style(), ScreenStyle(QPalette(), QFont(QStringLiteral("DejaVu Sans"), 18)));
    EXPECT_GT(ScreenStyle(QPalette(), QFont(QStringLiteral("DejaVu Sans"), 18)).minItemHeight, Style().minItemHeight);
}

TEST(CalendarPainting, AClipIsPaintedLikeThatPartOfTheWhole) {
    CalendarUnderHand hand;
    hand.calendar.setDayColumns(5);
    for (int i = 0; i < 20; ++i)
        hand.calendar.AddItem(480 + i * 25, 520 + i * 25, hand.day.addDays(i % 5), "Anna O'Brien", QString::number(i));
    hand.calendar.AddTimeRange(480, 600, 8421504);
    const QImage whole = hand.calendar.grab().toImage();
    for (const QRect& clip : {QRect(100, 200, 90, 120), QRect(0, 0, 60, 60), QRect(300, 500, 250, 200)}) {
        const QImage part = hand.calendar.grab(clip).toImage();
        EXPECT_EQ(part, whole.copy(clip)) << clip.left() << "," << clip.top();
    }
}

TEST(CalendarPainting, ThePresentIsMarkedOnTodayOnlyAndMovesWithTheClock) {
    CalendarUnderHand hand;
    const QColor present = Style().present;
    const QRect whole = hand.calendar.rect();
    EXPECT_EQ(PixelsOf(hand.calendar.grab().toImage(), whole, present), 0);
    hand.calendar.setNow(QDateTime(hand.day, QTime(10, 0)));
    const QImage atTen = hand.calendar.grab().toImage();
    EXPECT_GT(PixelsOf(atTen, whole, present), 200);
    hand.calendar.setNow(QDateTime(hand.day, QTime(11, 0)));
    EXPECT_NE(hand.calendar.grab().toImage(), atTen);
    hand.calendar.setNow(QDateTime(hand.day, QTime(23, 0)));
    EXPECT_EQ(PixelsOf(hand.calendar.grab().toImage(), whole, present), 0);
}

TEST(CalendarPainting, APaintedRangeIsSeenInItsColumnOnly) {
    CalendarUnderHand hand;
    hand.calendar.AddColumn("Adams");
    hand.calendar.AddColumn("Baker");
    const QImage before = hand.calendar.grab().toImage();
    hand.calendar.AddTimeRange(540, 599, 8421504, 2);
    const QImage after = hand.calendar.grab().toImage();
    const QRect first = hand.calendar.CellRect(1, 555).adjusted(2, 2, -2, -2);
    const QRect second = hand.calendar.CellRect(2, 555).adjusted(2, 2, -2, -2);
    EXPECT_EQ(before.copy(first), after.copy(first));
    EXPECT_NE(before.copy(second), after.copy(second));
    hand.calendar.ClearTimeRanges();
    EXPECT_EQ(hand.calendar.grab().toImage(), before);
}

TEST(CalendarPainting, DarkPalettesGiveDarkCalendars) {
    CalendarUnderHand hand;
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(0x1F, 0x1F, 0x23));
    dark.setColor(QPalette::Window, QColor(0x2B, 0x2B, 0x2F));
    dark.setColor(QPalette::Text, QColor(0xE6, 0xE6, 0xE6));
    hand.calendar.setPalette(dark);
    const QImage image = hand.calendar.grab().toImage();
    EXPECT_LT(image.pixelColor(hand.calendar.CellRect(1, 600).center()).lightness(), 60);
    EXPECT_LT(image.pixelColor(5, 5).lightness(), 60);
}

TEST(CalendarPainting, APrintedPageShowsAlsoWhatTheScreenCountsBelowTheGrid) {
    CalendarUnderHand hand;
    hand.calendar.ClearColumns();
    for (int i = 1; i <= 3; ++i)
        hand.calendar.AddColumn(QStringLiteral("Provider %1").arg(i));
    const int late = hand.calendar.AddItem(1200, 1260, hand.day, "Late", "1");
    hand.calendar.Item(late).ItemColumn = 2;
    hand.calendar.Item(late).ItemColor = 0x00C000;
    const auto page = [&](int first, int count) {
        QImage image(700, 900, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        const QFont font(QStringLiteral("DejaVu Sans"), 9);
        hand.calendar.paint(painter, QRectF(10, 10, 680, 880), first, count, PrintStyle(font, font));
        return image;
    };
    const QColor edge(0, 0xC0, 0);
    const QRect lowerHalf(0, 450, 700, 450);
    EXPECT_GT(PixelsOf(page(1, 2), lowerHalf, edge, 90), 50);
    EXPECT_EQ(PixelsOf(page(3, 1), lowerHalf, edge, 90), 0);
    EXPECT_EQ(PixelsOf(page(1, 2), QRect(0, 0, 700, 9), Qt::white, 0), 700 * 9);
    hand.calendar.ClearColumns();
    EXPECT_EQ(PixelsOf(page(1, 2), QRect(0, 0, 700, 900), Qt::white, 0), 700 * 900);
}

TEST(CalendarPainting, ScrollingShowsTheSameAsPaintingAnew) {
    CalendarUnderHand hand;
    hand.calendar.ClearColumns();
    for (int i = 1; i <= 300; ++i)
        hand.calendar.AddColumn(QStringLiteral("Provider %1").arg(i));
    hand.calendar.setVisibleColumns(5);
    for (int i = 0; i < 9'000; ++i) {
        const int item =
            hand.calendar.AddItem(480 + i % 30 * 20, 500 + i % 30 * 20, hand.day, "Anna", QString::number(i));
        hand.calendar.Item(item).ItemColumn = i / 30 + 1;
    }
    const int last = hand.calendar.ItemCount();
    hand.calendar.ScrollToItem(last);
    EXPECT_FALSE(hand.calendar.ItemRect(last).isEmpty());
    EXPECT_TRUE(hand.calendar.ItemRect(1).isEmpty());
    EXPECT_FALSE(hand.calendar.grab().isNull());
}

TEST(CalendarPainting, TheKeyboardFocusIsSeenAlsoWhileNothingIsSelected) {
    CalendarUnderHand hand;
    const QColor accent = hand.calendar.palette().color(QPalette::Link);
    const QRect line(60, hand.calendar.CellRect(1, 480).top() - 2, 400, 2);
    EXPECT_GT(PixelsOf(hand.calendar.grab().toImage(), line, accent), 400);
    hand.calendar.clearFocus();
    EXPECT_EQ(PixelsOf(hand.calendar.grab().toImage(), line, accent), 0);
}
