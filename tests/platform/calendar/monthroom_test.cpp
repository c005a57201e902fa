// What a month says by the pixels that it has, each thing at the last pixel where it has room and at the one before.

#include <QPainter>

#include "platform/calendar/colour.h"
#include "platform/calendar/glyphs.h"
#include "tests/platform/calendar/monthunderhand.h"
#include "tests/platform/calendar/picture.h"
#include "tests/platform/calendar/words.h"

namespace {

class MonthRoom : public testing::Test, public MonthUnderHand {
  protected:
    MonthRoom() : style(ScreenStyle(month.palette(), month.font())) {}

    [[nodiscard]] std::vector<Word> words() { return WordDevice::of(month); }
    [[nodiscard]] QStringList wordsOf(QDate date) { return TextsIn(words(), cell(date).rect); }
    /// Gives the day's cell exactly that width.
    void makeWide(int width) {
        int all = 7 * width - 7;
        do
            month.resize(++all, 700);
        while (cell(day).rect.width() < width);
        ASSERT_EQ(cell(day).rect.width(), width);
    }
    /// The width of a cell whose lines have that much room for words.
    [[nodiscard]] int cellFor(int room) const {
        return room + edge() + style.margin + style.margin / 2 + 2 * style.margin;
    }
    [[nodiscard]] int edge() const { return std::max(style.edgeWidth - 1, 3); }
    [[nodiscard]] int small(const QString& text) const { return QFontMetrics(style.small).horizontalAdvance(text); }

    /// The least width in which a text is shown whole.
    [[nodiscard]] int wholeWidth(const QString& text) const {
        const QFontMetrics metrics(style.small);
        int width = metrics.horizontalAdvance(text) - 1;
        while (metrics.elidedText(text, Qt::ElideRight, width) != text)
            ++width;
        return width;
    }

    CalendarStyle style;
};

}  // namespace

TEST_F(MonthRoom, ATextEndsInDotsWhenOnePixelIsMissing) {
    const QString name = QStringLiteral("Wilhelmina O'Brien");
    month.AddItem(itemOn(day, 780, "Wilhelmina O'Brien"));
    const int room = small(QStringLiteral("1:00")) + style.margin + small(name);
    makeWide(cellFor(room));
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "1:00", name}));
    const QRect line = cell(day).lines[0].rect;
    EXPECT_NEAR(WordWith(words(), QStringLiteral("1:00")).place.left(), line.left() + edge() + style.margin, 0.1);
    EXPECT_NEAR(WordWith(words(), name).place.left(),
                line.left() + edge() + 2 * style.margin + small(QStringLiteral("1:00")), 0.1);
    makeWide(cellFor(room) - 1);
    EXPECT_TRUE(wordsOf(day).last().endsWith(QChar(0x2026)));
}

TEST_F(MonthRoom, APictureGivesWayToANameThatIsWholeWithoutItAndElseTakesItsSide) {
    CalendarItem banner = itemOn(day, 0, "Founders of the house");
    banner.ItemBanner = true;
    month.AddItem(banner);
    const int side = std::min(style.icon, cell(day).lines[0].rect.height() - 2);
    const auto endOfText = [&] { return WordWith(words(), wordsOf(day).last()).place.right(); };
    const auto leftOfPicture = [&] { return cell(day).lines[0].rect.right() - style.margin / 2 - side; };
    const int name = wholeWidth(banner.ItemText);
    makeWide(cellFor(name + side + style.margin / 2));
    EXPECT_EQ(wordsOf(day), (QStringList{"11", banner.ItemText}));
    EXPECT_LE(endOfText(), leftOfPicture());
    makeWide(cellFor(name));
    EXPECT_EQ(wordsOf(day), (QStringList{"11", banner.ItemText})) << "in the place of the picture";
    EXPECT_GT(endOfText(), leftOfPicture());
    makeWide(cellFor(name) - 1);
    EXPECT_TRUE(wordsOf(day).last().endsWith(QChar(0x2026)));
    EXPECT_LE(endOfText(), leftOfPicture());
}

TEST_F(MonthRoom, TheHalfOfTheDayGivesWayToTheNameBeforeThePictureDoes) {
    CalendarItem kept = itemOn(day, 780, "Wilhelmina O'Brien-Featherstonehaugh");
    kept.ItemStatusMark = StatusMark::Kept;
    month.AddItem(kept);
    const int sign = std::min(style.icon, cell(day).lines[0].rect.height() - 2) + style.margin / 2;
    const int name = wholeWidth(kept.ItemText) + style.margin;
    const int whole = small(QStringLiteral("1:00 PM")) + name;
    makeWide(cellFor(whole + sign));
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "1:00 PM", kept.ItemText}));
    makeWide(cellFor(whole + sign) - 1);
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "1:00", kept.ItemText}));
    makeWide(cellFor(small(QStringLiteral("1:00")) + name));
    EXPECT_EQ(wordsOf(day), (QStringList{"11", "1:00", kept.ItemText})) << "without the picture";
    makeWide(cellFor(small(QStringLiteral("1:00")) + name) - 1);
    EXPECT_TRUE(wordsOf(day).last().endsWith(QChar(0x2026)));
}

TEST_F(MonthRoom, ThePictureStandsAtTheEndOfItsLine) {
    const QDate other = day.addDays(1);  // The frame of the selected day runs over its lines.
    CalendarItem item = itemOn(other, 780, "");
    item.ItemStatusMark = StatusMark::Missed;
    month.AddItem(item);
    const QRect line = cell(other).lines[0].rect;
    const int side = std::min(style.icon, line.height() - 2);
    const CardColors colours = CardColorsFor(item, style.base, style.ink);
    QImage expected(month.size(), QImage::Format_RGB32);
    expected.fill(colours.fill);
    QPainter painter(&expected);
    PaintGlyph(painter,
               QRectF(line.right() - style.margin / 2 - side, line.center().y() - side / 2.0 + 0.5, side, side),
               Glyph::Missed, colours.text);
    painter.end();
    const QRect end(line.right() - 2 - style.margin / 2 - side, line.top() + 1, side + 2, line.height() - 2);
    EXPECT_EQ(Picture::of(month).image().copy(end), expected.copy(end));
}

TEST_F(MonthRoom, ADayOfTheWeekIsShortenedWhenOnePixelIsMissing) {
    const int needed = QFontMetrics(style.heading).horizontalAdvance(QStringLiteral("Wednesday")) + 2 * style.margin;
    makeWide(needed);  // The 11th is a Wednesday.
    EXPECT_TRUE(TextsOf(words()).contains(QStringLiteral("Wednesday")));
    makeWide(needed - 1);
    EXPECT_FALSE(TextsOf(words()).contains(QStringLiteral("Wednesday")));
    EXPECT_TRUE(TextsOf(words()).contains(QStringLiteral("Wed")));
}

TEST_F(MonthRoom, TheCountOfTheRestIsShortenedWhenOnePixelIsMissing) {
    for (int i = 0; i < 90; ++i)
        month.AddItem(itemOn(day, 540, "someone"));
    const QString rest = QStringLiteral("+%1 more").arg(cell(day).hidden);
    const int needed = small(rest) + style.margin + 1;
    makeWide(needed);
    EXPECT_EQ(wordsOf(day).last(), rest);
    makeWide(needed - 1);
    EXPECT_EQ(wordsOf(day).last(), QStringLiteral("+%1").arg(cell(day).hidden));
}

TEST_F(MonthRoom, TheCountStandsBesideTheNumberWhereThereIsNoLine) {
    for (int i = 0; i < 3; ++i)
        month.AddItem(itemOn(day, 540, "someone"));
    month.resize(1000, 180);
    ASSERT_TRUE(cell(day).lines.empty());
    const QRect number = cell(day).number;
    const QRectF count = WordWith(words(), QStringLiteral("+3 more")).place;
    EXPECT_NEAR(count.left(), number.left() + number.width() + 2 * style.margin, 0.1);
    EXPECT_NEAR(count.center().y(), QRectF(number).center().y(), 1);
}
