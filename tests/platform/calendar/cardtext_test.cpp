// What a card says, by the room that it has.

#include <gtest/gtest.h>

#include <QPalette>

#include "platform/calendar/card.h"
#include "tests/platform/calendar/words.h"

namespace {

class CardText : public testing::Test {
  protected:
    CardText() : style(ScreenStyle(QPalette(), QFont(QStringLiteral("DejaVu Sans"), 9))) {
        item.ItemText = QStringLiteral("Anna O'Brien");
        item.ItemStart = 540;
        item.ItemEnd = 600;
        item.ItemBackColor = 0xFFFFFF;
    }

    [[nodiscard]] std::vector<Word> words(QSize size) const {
        WordDevice device(size + QSize(40, 40));
        QPainter painter(&device);
        CardState shown = state;
        shown.start = item.ItemStart;
        shown.end = item.ItemEnd;
        PaintCard(painter, QRect(QPoint(20, 20), size), item, shown, style);
        painter.end();
        return device.words();
    }
    [[nodiscard]] QStringList texts(QSize size) const { return TextsOf(words(size)); }
    /// The least height of a card with so many lines below its title.
    [[nodiscard]] int heightFor(int lines) const { return style.margin + style.textLine + lines * style.smallLine; }

    CalendarStyle style;
    CalendarItem item;
    CardState state;
};

}  // namespace

TEST_F(CardText, TellsMoreTheHigherItIs) {
    const QString time = QStringLiteral("9:00 – 10:00 AM");
    const QString name = item.ItemText;
    const struct {
        const char* what;
        int lines;
        const char* location;
        const char* status;
        QStringList shown;
    } cards[] = {
        {"one line", 0, "", "", {name, time}},
        {"one line with a place", 0, "Main Street", "Kept", {name, time}},
        {"two lines", 1, "", "", {name, time}},
        {"two lines with a place", 1, "Main Street", "", {name, time + QStringLiteral(" · Main Street")}},
        {"two lines with a status", 1, "", "Kept", {name, time}},
        {"three lines with a place", 2, "Main Street", "Kept", {name, time, "Main Street"}},
        {"three lines with a status", 2, "", "Kept", {name, time, "Kept"}},
        {"four lines", 3, "Main Street", "Kept", {name, time, "Main Street", "Kept"}},
        {"ten lines", 9, "Main Street", "Kept", {name, time, "Main Street", "Kept"}},
    };
    for (const auto& card : cards) {
        item.ItemLocation = QString::fromLatin1(card.location);
        item.ItemStatusText = QString::fromLatin1(card.status);
        EXPECT_EQ(texts({300, heightFor(card.lines)}), card.shown) << card.what;
    }
}

TEST_F(CardText, NeverShowsHalfALine) {
    item.ItemLocation = QStringLiteral("Main Street");
    item.ItemStatusText = QStringLiteral("Kept");
    for (int height = 4; height < 90; ++height) {
        for (const Word& word : words({300, height})) {
            const bool inside = word.place.bottom() <= 20 + height + 2 && word.place.top() >= 18;
            EXPECT_TRUE(inside || height < style.textLine) << height << ": " << word.text.toStdString();
        }
    }
    for (int lines = 2; lines <= 3; ++lines)
        EXPECT_EQ(texts({300, heightFor(lines) - 1}).size() + 1, texts({300, heightFor(lines)}).size()) << lines;
}

TEST_F(CardText, StandsLineUnderLineFromTheSameLeft) {
    item.ItemLocation = QStringLiteral("Main Street");
    item.ItemStatusText = QStringLiteral("Kept");
    const std::vector<Word> shown = words({300, heightFor(3)});
    ASSERT_EQ(shown.size(), 4U);
    EXPECT_NEAR(shown[0].place.left(), 20 + style.edgeWidth + style.margin + 1, 0.5);
    for (std::size_t i = 1; i < shown.size(); ++i) {
        EXPECT_EQ(shown[i].place.left(), shown[0].place.left());
        EXPECT_GE(shown[i].place.top(), shown[i - 1].place.bottom() - 2);
        EXPECT_LE(shown[i].place.top(), shown[i - 1].place.bottom() + 2);
    }
    EXPECT_EQ(shown[0].font.pointSizeF(), style.text.pointSizeF());
    EXPECT_EQ(shown[1].font.pointSizeF(), style.small.pointSizeF());
}

TEST_F(CardText, TheTimeStandsBesideTheNameWhereThereIsOneLine) {
    const std::vector<Word> shown = words({300, heightFor(0)});
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_NEAR(shown[1].place.left() - shown[0].place.right(), 2 * style.margin, 1);
    EXPECT_NEAR(shown[1].place.center().y(), shown[0].place.center().y(), 2);
}

TEST_F(CardText, TheTimeIsToldAsLongAsThereIsRoomForIt) {
    const QFontMetricsF small(style.small);
    const int frame = style.edgeWidth + 2 * (style.margin + 1);
    const int span = static_cast<int>(std::ceil(small.horizontalAdvance(QStringLiteral("9:00 – 10:00 AM"))));
    const int clock = static_cast<int>(std::ceil(small.horizontalAdvance(QStringLiteral("9:00 AM"))));
    EXPECT_EQ(texts({frame + span, heightFor(1)}).last(), QStringLiteral("9:00 – 10:00 AM"));
    EXPECT_EQ(texts({frame + span - 1, heightFor(1)}).last(), QStringLiteral("9:00 AM"));
    EXPECT_EQ(texts({frame + clock, heightFor(1)}).last(), QStringLiteral("9:00 AM"));
    EXPECT_EQ(texts({frame + clock - 1, heightFor(1)}).last(), QStringLiteral("9:00"));
    state.twentyFourHour = true;
    EXPECT_EQ(texts({frame + span, heightFor(1)}).last(), QStringLiteral("09:00 – 10:00"));
    EXPECT_EQ(texts({frame + 32, heightFor(1)}).last(), QStringLiteral("09:00"));
}

TEST_F(CardText, BesideANameTheTimeIsLeftOutWhereItDoesNotFit) {
    const QFontMetrics text(style.text);
    const QFontMetrics small(style.small);
    const int frame = style.edgeWidth + 2 * (style.margin + 1);
    const int name = text.horizontalAdvance(item.ItemText) + 2 * style.margin;
    const int shortest = small.horizontalAdvance(QStringLiteral("9:00"));
    EXPECT_EQ(texts({frame + name + shortest, heightFor(0)}), (QStringList{item.ItemText, "9:00"}));
    EXPECT_EQ(texts({frame + name + shortest - 1, heightFor(0)}), QStringList{item.ItemText});
    item.ItemText.clear();
    EXPECT_EQ(texts({frame + shortest, heightFor(0)}), QStringList{"9:00"}) << "alone it begins at the left";
}

TEST_F(CardText, ALongNameEndsInDotsAndASliverKeepsLetters) {
    item.ItemText = QStringLiteral("Wilhelmina O'Brien-Featherstonehaugh");
    const QString dots = texts({110, heightFor(1)}).first();
    EXPECT_TRUE(dots.endsWith(QChar(0x2026))) << dots.toStdString();
    EXPECT_TRUE(dots.startsWith(QStringLiteral("Wilh")));
    const QString letters = texts({38, heightFor(1)}).first();
    EXPECT_FALSE(letters.contains(QChar(0x2026)));
    EXPECT_TRUE(item.ItemText.startsWith(letters));
    EXPECT_GE(letters.size(), 2);
    EXPECT_LE(letters.size(), 8);
    EXPECT_TRUE(texts({6, 40}).isEmpty()) << "a sliver without room says nothing";
}

TEST_F(CardText, ASliverKeepsEachLetterThatJustFits) {
    item.ItemText = QStringLiteral("Wilhelmina");
    const auto lettersIn = [&](int room) {
        int width = room;
        while (width - std::min(style.edgeWidth, width / 4) - 2 * std::min(style.margin + 1, width / 8) < room)
            ++width;
        return texts({width, heightFor(1)}).value(0);
    };
    for (const char* letters : {"Wi", "Wil", "Wilh"}) {
        const QString whole = QString::fromLatin1(letters);
        const int room = QFontMetrics(style.text).horizontalAdvance(whole);
        EXPECT_EQ(lettersIn(room), whole);
        EXPECT_EQ(lettersIn(room - 1), whole.chopped(1));
    }
}

TEST_F(CardText, ALongNameTakesTwoLinesWhereTheTimeStillHasOne) {
    item.ItemText = QStringLiteral("Wilhelmina Featherstonehaugh");
    const int frame = style.edgeWidth + 2 * (style.margin + 1);
    const int longer = QFontMetrics(style.text).horizontalAdvance(QStringLiteral("Featherstonehaugh"));
    const int enough = style.margin + 2 * style.textLine + style.smallLine;
    const QStringList two{"Wilhelmina", "Featherstonehaugh", "9:00 – 10:00 AM"};
    EXPECT_EQ(texts({frame + longer, enough}), two);
    EXPECT_EQ(texts({frame + longer, enough - 1}).size(), 2) << "too low for both";
    EXPECT_EQ(texts({300, enough}).first(), item.ItemText) << "one line is enough there";
    item.ItemText = QStringLiteral("Anna Maria Theresia Walburga");
    const int narrow = frame + QFontMetrics(style.text).horizontalAdvance(QStringLiteral("Anna Maria")) + 2;
    EXPECT_EQ(texts({narrow, enough}).first(), QStringLiteral("Anna Maria")) << "as many words as fit";
    EXPECT_TRUE(texts({narrow, enough}).at(1).startsWith(QStringLiteral("Ther")));
}

TEST_F(CardText, ATimeIsNeverCutBecauseHalfOfItIsAnotherTime) {
    item.ItemNoteIcon = item.ItemReminderIcon = true;
    item.ItemSeriesIcon = 1;
    const QStringList whole{"9:00 – 10:00 AM", "9:00 AM", "9:00"};
    for (int width = 6; width < 200; ++width)
        for (const int lines : {1, 2, 3})
            for (const Word& word : words({width, heightFor(lines)})) {
                const bool isTime = word.text.startsWith(QLatin1Char('9'));
                EXPECT_TRUE(!isTime || whole.contains(word.text)) << width << ": " << word.text.toStdString();
            }
}

TEST_F(CardText, AVisitOfAQuarterInALaneOfFortyPixelsKeepsLettersOfItsName) {
    item.ItemStatusMark = StatusMark::Kept;
    item.ItemNoteIcon = item.ItemLocationIcon = true;
    item.ItemLocation = QStringLiteral("Main Street");
    const QStringList shown = texts({40, style.minItemHeight});
    ASSERT_EQ(shown.size(), 1);
    EXPECT_GE(shown.first().size(), 3);
    EXPECT_TRUE(item.ItemText.startsWith(shown.first()));
}

TEST_F(CardText, ALowCardUsesTheSmallFont) {
    const Word low = words({300, style.textLine - 1}).front();
    EXPECT_EQ(low.font.pointSizeF(), style.small.pointSizeF());
    EXPECT_EQ(low.text, item.ItemText);
    EXPECT_EQ(words({300, style.textLine}).front().font.pointSizeF(), style.text.pointSizeF());
    const QRectF place = words({300, style.textLine}).front().place;
    EXPECT_NEAR(place.center().y(), 20 + style.textLine / 2.0, 1.5) << "in the middle of its height";
}

TEST_F(CardText, ACancelledNameIsStruckOutAndNothingElse) {
    for (const int lines : {0, 2}) {
        item.ItemStatusMark = StatusMark::Cancelled;
        const std::vector<Word> struck = words({300, heightFor(lines)});
        EXPECT_TRUE(struck[0].font.strikeOut());
        EXPECT_FALSE(struck[1].font.strikeOut());
        item.ItemStatusMark = StatusMark::Kept;
        EXPECT_FALSE(words({300, heightFor(lines)})[0].font.strikeOut());
    }
}

TEST_F(CardText, NamesAreInkAndTimesAreQuieter) {
    const CardColors colours = CardColorsFor(item, style.base, style.ink);
    const std::vector<Word> shown = words({300, heightFor(2)});
    EXPECT_EQ(shown[0].colour, colours.text);
    EXPECT_EQ(shown[1].colour, colours.dimText);
    EXPECT_NE(colours.text, colours.dimText);
    const std::vector<Word> beside = words({300, heightFor(0)});
    EXPECT_EQ(beside[0].colour, colours.text);
    EXPECT_EQ(beside[1].colour, colours.dimText);
}

TEST_F(CardText, AHiddenNameIsNotSaidWhateverTheSize) {
    item.ItemTextColor = TextColor::SameAsBackground;
    for (int height = 4; height < 80; height += 3)
        for (int width = 4; width < 300; width += 13)
            for (const QString& text : texts({width, height}))
                ASSERT_TRUE(text.startsWith(QLatin1Char('9'))) << text.toStdString();
    EXPECT_EQ(texts({300, heightFor(1)}), QStringList{QStringLiteral("9:00 – 10:00 AM")});
}

TEST_F(CardText, LineBreaksTabsAndManyBlanksBecomeOneBlank) {
    item.ItemText = QStringLiteral("  Anna\n\tO'Brien \r\n ");
    item.ItemLocation = QStringLiteral("Main\nStreet");
    item.ItemStatusText = QStringLiteral("Kept\tonce");
    EXPECT_EQ(texts({300, heightFor(3)}),
              (QStringList{"Anna O'Brien", QStringLiteral("9:00 – 10:00 AM"), "Main Street", "Kept once"}));
    EXPECT_EQ(PaintedLine(QString(1000, QLatin1Char('x'))).size(), 300);
    EXPECT_EQ(PaintedLine(QStringLiteral(" \n ")), QString());
}

TEST_F(CardText, ARightToLeftNameIsShownWhole) {
    item.ItemText = QString::fromUtf8("\xD7\x90\xD7\xA0\xD7\x94 \xD7\x9B\xD7\x94\xD7\x9F");
    const std::vector<Word> shown = words({300, heightFor(1)});
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].text.size(), item.ItemText.size());
    EXPECT_EQ(shown[0].place.left(), shown[1].place.left());
}

TEST_F(CardText, ABannerSaysItsTextOnlyAndNoTime) {
    const auto bannerTexts = [&](int width) {
        WordDevice device(QSize(400, 60));
        QPainter painter(&device);
        PaintBanner(painter, QRect(0, 0, width, style.stripHeight - 1), item, state, style);
        painter.end();
        return TextsOf(device.words());
    };
    item.ItemText = QStringLiteral("Founders' Day");
    item.ItemBanner = true;
    EXPECT_EQ(bannerTexts(300), QStringList{QStringLiteral("Founders' Day")});
    EXPECT_TRUE(bannerTexts(80).first().endsWith(QChar(0x2026)));
    item.ItemTextColor = TextColor::SameAsBackground;
    EXPECT_TRUE(bannerTexts(300).isEmpty());
}
