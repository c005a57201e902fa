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

TEST(CalendarColours, OnADarkGroundAllCardsLookEquallyLight) {
    const Palette& dark = Palettes[1];
    std::mt19937 random(20261122);
    std::uniform_int_distribution<int> color(0, 0xFFFFFF);
    const int picked[] = {0xFFFFFF, 0x000001, 0x0000FF, 0x00FFFF, 0xFFFF00, 0xFF0000, 0x00FF00, 0x1000000};
    for (int i = 0; i < 4000; ++i) {
        CalendarItem item;
        item.ItemColor = color(random);
        if (i % 2 == 0)
            item.ItemBackColor = i < 16 ? picked[i / 2] : color(random);
        const CardColors card = CardColorsFor(item, dark.base, dark.text);
        ASSERT_NEAR(PerceivedLightness(card.fill), DarkCardLightness, 0.006) << std::hex << item.ItemColor;
        ASSERT_NO_FATAL_FAILURE(ExpectReadable(item, dark));
    }
}

TEST(CalendarColours, OnALightGroundATypeHasTheColourThatWasPicked) {
    CalendarItem item;
    item.ItemBackColor = 0x0040C0;
    EXPECT_EQ(CardColorsFor(item, Qt::white, Qt::black).fill, QColor(0xC0, 0x40, 0));
}

TEST(CalendarColours, AnotherLightnessKeepsTheHueAndBoundsItsStrength) {
    EXPECT_NEAR(PerceivedLightness(Qt::white), 1, 0.001);
    EXPECT_NEAR(PerceivedLightness(Qt::black), 0, 0.001);
    EXPECT_NEAR(PerceivedLightness(QColor(255, 0, 0)), 0.628, 0.001);
    for (int hue = 0; hue < 360; hue += 10) {
        const QColor dark = AtLightness(QColor::fromHsv(hue, 255, 255), 0.42, 0.12);
        const int apart = std::abs(dark.hsvHue() - hue);
        EXPECT_LE(std::min(apart, 360 - apart), 30) << hue;
        EXPECT_GT(dark.hsvSaturation(), 60) << hue;
    }
    EXPECT_LT(AtLightness(QColor(128, 128, 128), 0.42, 0.12).hsvSaturation(), 4);
    EXPECT_LT(AtLightness(QColor(255, 0, 0), 0.42, 0.03).hsvSaturation(),
              AtLightness(QColor(255, 0, 0), 0.42, 0.12).hsvSaturation());
}

TEST(CalendarColours, AreAskedAgainWhenThePaletteChanges) {
    CalendarItem item;
    const CardColors light = CardColorsFor(item, Palettes[0].base, Palettes[0].text);
    const CardColors dark = CardColorsFor(item, Palettes[1].base, Palettes[1].text);
    EXPECT_NE(light, dark);
    EXPECT_EQ(CardColorsFor(item, Palettes[0].base, Palettes[0].text), light);
    item.ItemBackColor = item.ItemColor;
    EXPECT_NE(CardColorsFor(item, Palettes[0].base, Palettes[0].text), light);
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
