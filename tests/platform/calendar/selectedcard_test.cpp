// How the selected card, the hovered one and the selected banner or marker are marked.

#include "platform/calendar/colour.h"
#include "tests/platform/calendar/calendarlook.h"

namespace {

class SelectedCard : public CalendarLook {
  protected:
    /// The straight part of each side of the card's rim: top, bottom, left, right.
    [[nodiscard]] static std::array<QRect, 4> rimOf(const QRect& card) {
        std::array<QRect, 4> sides = SidesOf(card, 1);
        sides[0].adjust(9, 0, -9, 0);
        sides[1].adjust(9, 0, -9, 0);
        sides[2].adjust(0, 9, 0, -9);
        sides[3].adjust(0, 9, 0, -9);
        return sides;
    }
    /// Of the rim's four sides, how many have the colour nearly everywhere.
    [[nodiscard]] static int sidesIn(const Picture& picture, const QRect& card, const QColor& colour) {
        int sides = 0;
        for (const QRect& side : rimOf(card))
            sides += picture.share(side, colour, 40) > 0.9 ? 1 : 0;
        return sides;
    }
    [[nodiscard]] QColor fillOf(int index) const {
        return CardColorsFor(std::as_const(hand.calendar).Item(index), style.base, style.ink).fill;
    }
    [[nodiscard]] QRect emptyPartOf(int index) const {
        const QRect card = hand.calendar.ItemRect(index);
        return {card.center().x(), card.bottom() - 20, 40, 10};
    }
};

INSTANTIATE_TEST_SUITE_P(EachLook, SelectedCard, testing::ValuesIn(Looks), NameOfLook);

}  // namespace

TEST_P(SelectedCard, HasARimOfTheAccentWhileTheKeyboardIsHere) {
    const int item = hand.add(540, 600);
    const QRect card = hand.calendar.ItemRect(item);
    EXPECT_EQ(sidesIn(seen(), card, style.accent), 0);
    for (int time = 0; time < 2; ++time) {
        hand.calendar.setSelectedItem(item);
        EXPECT_EQ(sidesIn(seen(), card, style.accent), 4);
        hand.calendar.clearSelection();
        EXPECT_EQ(sidesIn(seen(), card, style.accent), 0);
    }
}

TEST_P(SelectedCard, HasAQuietRimWhileTheKeyboardIsElsewhere) {
    const int item = hand.add(540, 600);
    hand.calendar.setSelectedItem(item);
    hand.calendar.clearFocus();
    EXPECT_EQ(sidesIn(seen(), hand.calendar.ItemRect(item), style.dimInk), 4);
    hand.calendar.setFocus();
    EXPECT_EQ(sidesIn(seen(), hand.calendar.ItemRect(item), style.accent), 4);
}

TEST_P(SelectedCard, IsTheOnlyOneThatIsMarked) {
    const int first = hand.add(540, 600);
    const int second = hand.add(660, 720);
    for (const auto& [selected, other] : {std::pair{first, second}, {second, first}, {first, second}}) {
        hand.calendar.setSelectedItem(selected);
        const Picture picture = seen();
        EXPECT_EQ(sidesIn(picture, hand.calendar.ItemRect(selected), style.accent), 4);
        EXPECT_EQ(sidesIn(picture, hand.calendar.ItemRect(other), style.accent), 0);
    }
}

TEST_P(SelectedCard, IsBroughtToALegibleWidthOverItsNeighbours) {
    for (int i = 0; i < 30; ++i)
        hand.add(540, 600);
    const int narrow = hand.calendar.ItemRect(15).width();
    hand.calendar.setSelectedItem(15);
    const QRect card = hand.calendar.ItemRect(15);
    EXPECT_GT(card.width(), 3 * narrow);
    EXPECT_GE(card.width(), style.minColumnWidth * 3 / 4);
    EXPECT_EQ(sidesIn(seen(), card, style.accent), 4);
    // The last one grows to the left, since there is no room at its right.
    hand.calendar.setSelectedItem(30);
    const QRect last = hand.calendar.ItemRect(30);
    EXPECT_LE(last.right(), hand.calendar.CellRect(1, 540).right());
    EXPECT_EQ(sidesIn(seen(), last, style.accent), 4);
}

TEST_P(SelectedCard, UnderThePointerACardIsLitAndOutlinedByItsOwnColour) {
    const int item = hand.add(540, 600);
    const CardColors colours = CardColorsFor(std::as_const(hand.calendar).Item(item), style.base, style.ink);
    const QRect card = hand.calendar.ItemRect(item);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(seen().at(emptyPartOf(item).center()), colours.fill);
        EXPECT_EQ(sidesIn(seen(), card, colours.outline), 4);
        hand.hover(hand.middleOf(item));
        EXPECT_EQ(seen().at(emptyPartOf(item).center()), Mixed(colours.fill, colours.pattern, 0.6));
        EXPECT_EQ(sidesIn(seen(), card, colours.edge), 4);
        hand.hover(hand.freeAt(800));
    }
    hand.calendar.setSelectedItem(item);
    hand.hover(hand.middleOf(item));
    EXPECT_EQ(seen().at(emptyPartOf(item).center()), fillOf(item)) << "the selected one stays as it is";
}

TEST_P(SelectedCard, TheLightGoesOutWhenThePointerLeavesTheCalendar) {
    const int item = hand.add(540, 600);
    const Picture before = seen();
    hand.hover(hand.middleOf(item));
    EXPECT_TRUE(before.changesTo(seen()).isValid());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&hand.calendar, &leave);
    EXPECT_EQ(before.changesTo(seen()), QRect());
}

TEST_P(SelectedCard, ABannerIsMarkedLikeACard) {
    const int holiday = hand.calendar.AddItem(0, 1439, hand.day, "Founders' Day", "1");
    hand.calendar.Item(holiday).ItemBanner = true;
    hand.calendar.Item(holiday).ItemColor = 0x30C0F0;
    const QRect banner = hand.calendar.ItemRect(holiday);
    const auto topIn = [&](const QColor& colour) { return seen().share(rimOf(banner)[0], colour, 40) > 0.9; };
    EXPECT_FALSE(topIn(style.accent));
    hand.calendar.setSelectedItem(holiday);
    EXPECT_TRUE(topIn(style.accent));
    hand.calendar.clearFocus();
    EXPECT_TRUE(topIn(style.dimInk));
    hand.calendar.clearSelection();
    const QColor calm = seen().at({banner.center().x() + 100, banner.bottom() - 3});
    hand.hover(banner.center());
    EXPECT_NE(seen().at({banner.center().x() + 100, banner.bottom() - 3}), calm);
}

TEST_P(SelectedCard, AMarkerWhoseItemIsSelectedIsFramedByTheAccent) {
    const int late = hand.add(1200, 1260, "Lou");
    const int early = hand.add(60, 120, "Eve");
    for (const int item : {late, early, late}) {
        // Under the upper marker runs the line that tells the keyboard.
        const QRect marker = hand.calendar.ItemRect(item).adjusted(0, 0, 0, -3);
        const QRect other = hand.calendar.ItemRect(item == late ? early : late).adjusted(0, 0, 0, -3);
        hand.calendar.clearSelection();
        EXPECT_FALSE(seen().shows(marker, style.accent));
        hand.calendar.setSelectedItem(item);
        EXPECT_TRUE(seen().shows(marker, style.accent));
        EXPECT_FALSE(seen().shows(other, style.accent));
    }
}

TEST_P(SelectedCard, TheLineUnderTheHeadingsTellsWhoHasTheKeyboard) {
    const int bottom = hand.calendar.CellRect(1, 480).top();
    const QRect line(hand.calendar.CellRect(1, 480).left() + 5, bottom - 2, 500, 2);
    EXPECT_EQ(seen().share(line, style.accent), 1);
    hand.calendar.clearFocus();
    EXPECT_EQ(seen().share(line, style.accent), 0);
    EXPECT_GE(seen().share(line, style.columnLine), 0.5);
    EXPECT_FALSE(seen().shows(line.translated(0, -2), style.columnLine));
    hand.calendar.setFocus();
    EXPECT_EQ(seen().share(line, style.accent), 1);
}
