// The shape, the pattern and the pictures of a card.

#include <QPainter>
#include <QPalette>

#include "platform/calendar/card.h"
#include "platform/calendar/glyphs.h"
#include "tests/platform/calendar/picture.h"

namespace {

class CardPicture : public testing::TestWithParam<Look> {
  protected:
    CardPicture() : style(ScreenStyle(PaletteOf(ColoursOf(GetParam().mode)), QFont(QStringLiteral("DejaVu Sans"), 9))) {
        item.ItemStart = 540;
        item.ItemEnd = 600;
        item.ItemColor = 0x2040C0;
        item.ItemTextColor = TextColor::SameAsBackground;  // Only shapes are asked here.
    }

    [[nodiscard]] Picture painted(QSize card) const {
        QImage image((card + QSize(20, 20)) * GetParam().ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(GetParam().ratio);
        image.fill(style.base);
        QPainter painter(&image);
        PaintCard(painter, QRect(QPoint(10, 10), card), item, state, style);
        painter.end();
        return Picture(image);
    }
    [[nodiscard]] CardColors colours() const { return CardColorsFor(item, style.base, style.ink); }
    /// Places of pictures in the card's first line, counted from the right end.
    [[nodiscard]] QRect slot(QSize card, int number) const {
        const int step = style.icon + style.margin / 2;
        return {10 + card.width() - (style.margin + 1) - style.icon - number * step, 10 + style.margin, style.icon,
                style.textLine};
    }
    [[nodiscard]] bool hasInk(const Picture& picture, const QRect& where) const {
        return picture.share(where, colours().text, 120) > 0.03;
    }

    CalendarStyle style;
    CalendarItem item;
    CardState state;
    QSize size{240, 70};
};

INSTANTIATE_TEST_SUITE_P(EachLook, CardPicture, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_P(CardPicture, HasAStrongEdgeAtTheLeftAndItsFillBesideIt) {
    const Picture picture = painted(size);
    const int inside = 10 + style.edgeWidth;
    EXPECT_EQ(picture.share({11, 20, style.edgeWidth - 1, 50}, colours().edge), 1);
    EXPECT_EQ(picture.share({inside + 2, 50, 200, 20}, colours().fill), 1);
    EXPECT_EQ(picture.share({10, 0, 220, 9}, style.base), 1) << "and nothing outside";
    EXPECT_EQ(picture.share({10, 81, 220, 9}, style.base), 1);
}

TEST_P(CardPicture, ANarrowCardHasANarrowEdge) {
    const Picture picture = painted({8, 40});
    EXPECT_EQ(picture.share({11, 25, 1, 10}, colours().edge, 20), 1);
    EXPECT_EQ(picture.share({14, 25, 2, 10}, colours().fill, 20), 1);
}

TEST_P(CardPicture, TentativeRisesUnavailableFallsAndTheOthersAreSmooth) {
    const QRect below(10 + style.edgeWidth + 4, 40, 200, 38);
    const auto hatching = [&] { return painted(size).share(below, colours().pattern, 4); };
    for (int mark = 0; mark <= static_cast<int>(StatusMark::TypeSlot); ++mark) {
        item.ItemStatusMark = static_cast<StatusMark>(mark);
        const bool hatched =
            item.ItemStatusMark == StatusMark::Tentative || item.ItemStatusMark == StatusMark::Unavailable;
        EXPECT_EQ(hatching() > 0.1, hatched) << "mark " << mark;
    }
    item.ItemStatusMark = StatusMark::Kept;
    item.ItemTentativeIcon = true;
    EXPECT_GT(hatching(), 0.1) << "also when only the picture says so";
    // Along a rising line the sum of x and y stays, along a falling one their difference.
    const auto sameAlong = [&](int down) {
        const Picture picture = painted(size);
        int same = 0;
        for (int x = below.left() + 40; x < below.left() + 140; ++x)
            same += Picture::Distance(picture.at({x, 50}), picture.at({x + down * 10, 60})) < 8 ? 1 : 0;
        return same;
    };
    EXPECT_GT(sameAlong(-1), 95);
    EXPECT_LT(sameAlong(1), 95);
    item.ItemTentativeIcon = false;
    item.ItemStatusMark = StatusMark::Unavailable;
    EXPECT_GT(sameAlong(1), 95);
    EXPECT_LT(sameAlong(-1), 95);
}

TEST_P(CardPicture, AnOpenSlotHasADashedOutline) {
    const QRect top(30, 10, 180, 1);
    EXPECT_GT(painted(size).share(top, colours().outline, 20), 0.95);
    item.ItemStatusMark = StatusMark::TypeSlot;
    const double dashes = painted(size).share(top, colours().edge, 60);
    EXPECT_GT(dashes, 0.4);
    EXPECT_LT(dashes, 0.8);
    state.selected = true;
    EXPECT_GT(painted(size).share(top, style.dimInk, 20), 0.95) << "the selected one has the frame of all";
}

TEST_P(CardPicture, AGhostIsFramedLikeTheOneThatHasTheKeyboard) {
    const QRect top(30, 10, 180, 1);
    state.selected = true;
    EXPECT_GT(painted(size).share(top, style.dimInk, 20), 0.95);
    state.ghost = true;
    EXPECT_GT(painted(size).share(top, style.accent, 20), 0.95);
    state.ghost = false;
    state.focused = true;
    EXPECT_GT(painted(size).share(top, style.accent, 20), 0.95);
}

TEST_P(CardPicture, PicturesStandAtTheRightEndOfTheFirstLineOneBesideTheOther) {
    const std::pair<const char*, std::function<void()>> pictures[] = {
        {"note", [&] { item.ItemNoteIcon = true; }},
        {"reminder", [&] { item.ItemReminderIcon = true; }},
        {"place", [&] { item.ItemLocationIcon = true; }},
        {"series", [&] { item.ItemSeriesIcon = 1; }},
    };
    int shown = 0;
    for (const auto& [what, add] : pictures) {
        EXPECT_FALSE(hasInk(painted(size), slot(size, shown))) << "before the " << what;
        add();
        ++shown;
        for (int number = 0; number < shown; ++number)
            EXPECT_TRUE(hasInk(painted(size), slot(size, number))) << number << " with the " << what;
    }
}

TEST_P(CardPicture, PicturesTakeNothingOfTheName) {
    item.ItemTextColor = TextColor::Normal;
    item.ItemText = QStringLiteral("Wilhelmina O'Brien");
    const int name = QFontMetrics(style.text).horizontalAdvance(item.ItemText);
    const int frame = style.edgeWidth + 2 * (style.margin + 1);
    const int line = style.textLine + 2 * style.margin;
    const QSize asLong(frame + name, line);
    const QSize withRoom(frame + name + 2 * style.margin + style.icon, line);
    const Picture bareAsLong = painted(asLong);
    const Picture bareWithRoom = painted(withRoom);
    item.ItemNoteIcon = item.ItemReminderIcon = true;
    item.ItemSeriesIcon = 1;
    EXPECT_TRUE(bareAsLong.changesTo(painted(asLong)).isNull()) << "one line that is the name's alone";
    const QRect changed = bareWithRoom.changesTo(painted(withRoom));
    ASSERT_FALSE(changed.isNull()) << "what is left is the pictures'";
    EXPECT_GE(changed.left(), 10 + frame - style.margin + name);
}

TEST_P(CardPicture, PicturesWithoutRoomBesideTheNameStandInTheLastLine) {
    item.ItemTextColor = TextColor::Normal;
    item.ItemText = QStringLiteral("Wilhelmina");
    const int name = QFontMetrics(style.text).horizontalAdvance(item.ItemText);
    const QSize narrow(style.edgeWidth + 2 * (style.margin + 1) + name + 2 * style.margin, 90);
    const Picture bare = painted(narrow);
    item.ItemNoteIcon = true;
    const int lines = (narrow.height() - style.margin - style.textLine) / style.smallLine;
    const QRect last(10, 10 + style.margin + style.textLine + (lines - 1) * style.smallLine, narrow.width(),
                     style.smallLine);
    const QRect changed = bare.changesTo(painted(narrow));
    ASSERT_FALSE(changed.isNull());
    EXPECT_TRUE(last.contains(changed));
    EXPECT_GE(changed.left(), 10 + narrow.width() - style.margin - 1 - style.icon - 1);
    EXPECT_TRUE(bare.changesTo(painted({narrow.width(), style.textLine + 2 * style.margin})).isValid());
}

TEST_P(CardPicture, TheStatusStandsBesideTheNameWhileTheLessTellingGoBelow) {
    item.ItemTextColor = TextColor::Normal;
    item.ItemText = QStringLiteral("Wilhelmina");
    const int name = QFontMetrics(style.text).horizontalAdvance(item.ItemText);
    const QSize narrow(style.edgeWidth + 2 * (style.margin + 1) + name + 2 * style.margin + style.icon, 90);
    const Picture bare = painted(narrow);
    item.ItemStatusMark = StatusMark::Kept;
    const QRect firstLine(10, 10 + style.margin, narrow.width(), style.textLine);
    EXPECT_TRUE(firstLine.contains(bare.changesTo(painted(narrow))));
    const Picture kept = painted(narrow);
    item.ItemReminderIcon = true;
    EXPECT_GT(kept.changesTo(painted(narrow)).top(), firstLine.bottom());
}

TEST_P(CardPicture, ThePinStandsWhereThePlaceIsWritten) {
    item.ItemLocation = QStringLiteral("Main Street");
    const Picture bare = painted(size);
    item.ItemLocationIcon = true;
    const int left = 10 + style.edgeWidth + style.margin + 1;
    const int placeLine = 10 + style.margin + style.textLine + style.smallLine;
    const QRect changed = bare.changesTo(painted(size));
    ASSERT_FALSE(changed.isNull());
    EXPECT_NEAR(changed.left(), left, style.icon / 3) << "at the line's left end, before the place";
    EXPECT_GE(changed.top(), placeLine - 1);
    EXPECT_LE(changed.bottom(), placeLine + style.smallLine);
    item.ItemLocation.clear();
    EXPECT_TRUE(hasInk(painted(size), slot(size, 0))) << "without a written place it stands among the others";
}

TEST_P(CardPicture, ABannerHasACalmTintAndAFlag) {
    item.ItemBanner = true;
    item.ItemColor = 0x00C0C0;
    const auto banner = [&] {
        QImage image(QSize(300, 40) * GetParam().ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(GetParam().ratio);
        image.fill(style.base);
        QPainter painter(&image);
        PaintBanner(painter, QRect(0, 0, 300, style.stripHeight - 1), item, state, style);
        painter.end();
        return Picture(image);
    };
    const QRect middle(20, 3, 200, style.stripHeight - 8);
    const CardColors colours = CardColorsFor(item, style.base, style.ink);
    EXPECT_EQ(banner().share(middle, colours.fill), 1);
    EXPECT_LT(std::abs(PerceivedLightness(colours.fill) - PerceivedLightness(style.base)), 0.17);
    const QRect flag(300 - style.margin - style.icon, 1, style.icon, style.stripHeight - 3);
    EXPECT_GT(banner().share(flag, colours.text, 120), 0.1);
    item.ItemBackColor = 0x808000;
    EXPECT_EQ(banner().share(middle, CardColorsFor(item, style.base, style.ink).fill), 1)
        << "a colour of its own goes first";
}

TEST_P(CardPicture, ACardThatGoesOnOutsideIsFilledIntoTheCornersThere) {
    const QRect card(QPoint(10, 10), size);
    const int fromEdge = style.edgeWidth + 2;
    const QRect top(10 + fromEdge, 12, size.width() - fromEdge - 3, style.radius);
    const QRect bottom(10 + fromEdge, 10 + size.height() - 2 - style.radius, size.width() - fromEdge - 3, style.radius);
    for (const auto& [above, below] : {std::pair{true, false}, {false, true}, {true, true}, {false, false}}) {
        state.cutTop = above;
        state.cutBottom = below;
        const Picture picture = painted(size);
        EXPECT_GT(picture.share(top.adjusted(style.radius, 0, -style.radius, 0), colours().fill), 0.99);
        EXPECT_GT(picture.share(bottom.adjusted(style.radius, 0, -style.radius, 0), colours().fill), 0.99);
        const auto isFilled = [&](QPoint corner) { return Picture::Distance(picture.at(corner), style.base) > 30; };
        EXPECT_EQ(isFilled(card.topLeft()), above);
        EXPECT_EQ(isFilled(card.topRight()), above);
        EXPECT_EQ(isFilled(card.bottomLeft()), below);
        EXPECT_EQ(isFilled(card.bottomRight()), below);
    }
}
