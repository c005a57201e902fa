#include "platform/calendar/colour.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/calendar/item.h"

namespace {

struct Palette {
    const char* name;
    QColor base;
    QColor text;
};

const Palette Palettes[] = {{"light", Qt::white, Qt::black},
                            {"dark", QColor(0x1F, 0x1F, 0x23), QColor(0xE6, 0xE6, 0xE6)},
                            {"middle", QColor(0x77, 0x77, 0x77), QColor(0xFF, 0xFF, 0xFF)}};

void ExpectReadable(const CalendarItem& item, const Palette& palette) {
    const CardColors card = CardColorsFor(item, palette.base, palette.text);
    const double least = std::min({ContrastRatio(card.text, card.fill), ContrastRatio(card.text, card.pattern),
                                   ContrastRatio(card.dimText, card.fill), ContrastRatio(card.dimText, card.pattern)});
    ASSERT_GE(least, ReadableContrast) << palette.name << " edge " << item.ItemColor << " back "
                                       << item.ItemBackColor.value_or(-1);
    ASSERT_GE(ContrastRatio(card.edge, card.fill), 1.5) << palette.name << " edge " << item.ItemColor;
}

}  // namespace

TEST(CalendarColours, AWindowsColourHasBlueInTheHighByte) {
    EXPECT_EQ(ColorFromWindows(0xFF0000), QColor(0, 0, 255));
    EXPECT_EQ(ColorFromWindows(0x0000C0), QColor(192, 0, 0));
    EXPECT_EQ(ColorFromWindows(0x80FFFF), QColor(255, 255, 128));
}

TEST(CalendarColours, BitsAboveTheColourAreIgnored) {
    EXPECT_EQ(ColorFromWindows(0x7878650), QColor(0x50, 0x86, 0x87));
    EXPECT_EQ(ColorFromWindows(-1), QColor(255, 255, 255));
}

TEST(CalendarColours, ContrastIsTwentyOneForBlackOnWhiteAndOneForEqualColours) {
    EXPECT_NEAR(ContrastRatio(Qt::black, Qt::white), 21.0, 0.001);
    EXPECT_NEAR(ContrastRatio(Qt::white, Qt::black), 21.0, 0.001);
    EXPECT_NEAR(ContrastRatio(QColor(10, 80, 200), QColor(10, 80, 200)), 1.0, 0.001);
    EXPECT_NEAR(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(CalendarColours, TextIsReadableOnEveryColourAPracticeCanPick) {
    std::mt19937 random(20260311);
    std::uniform_int_distribution<int> color(0, 0xFFFFFF);
    for (int i = 0; i < 8000; ++i) {
        CalendarItem item;
        item.ItemColor = color(random);
        if (i % 2 == 0)
            item.ItemBackColor = color(random);
        for (const Palette& palette : Palettes)
            ASSERT_NO_FATAL_FAILURE(ExpectReadable(item, palette));
    }
}

TEST(CalendarColours, TextIsReadableOnEveryGreyAndOnTheStatusColours) {
    for (const Palette& palette : Palettes) {
        for (int grey = 0; grey < 256; ++grey) {
            CalendarItem item;
            item.ItemColor = 0x10101 * grey;
            item.ItemBackColor = 0x10101 * grey;
            ASSERT_NO_FATAL_FAILURE(ExpectReadable(item, palette));
        }
        for (const int status : {0xFF0000, 0xFF0001, 0x7878650, 0xFFFFFF, 0xC000, 0xC0, 0xC1, 0xC2, 0xFFFF80, 0xFF80FF,
                                 0xC0C000, 0x80FFFF, 0xC0C0}) {
            CalendarItem item;
            item.ItemColor = status;
            ASSERT_NO_FATAL_FAILURE(ExpectReadable(item, palette));
        }
    }
}

TEST(CalendarColours, ReadableTextKeepsThePreferredColourWhereItCan) {
    EXPECT_EQ(ReadableOn(Qt::white, QColor(0, 0, 120)), QColor(0, 0, 120));
    EXPECT_NE(ReadableOn(Qt::white, QColor(250, 250, 200)), QColor(250, 250, 200));
}

TEST(Colour, TheWhiteOfAnAppointmentTypeIsWhite) {
    EXPECT_EQ(ColorFromWindows(0x1000000), QColor(Qt::white));
    EXPECT_EQ(ColorFromWindows(0xFFFFFF), QColor(Qt::white));
    EXPECT_EQ(ColorFromWindows(0), QColor(Qt::black));
}
