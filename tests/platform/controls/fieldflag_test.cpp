#include "platform/controls/fieldflag.h"

#include <gtest/gtest.h>

#include "platform/theme/theme.h"

TEST(FieldFlagTest, TheFlagIsSeenOnLightAndOnDark) {
    for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
        const QPalette palette = PaletteOf(ColoursOf(mode));
        const QColor colour = FieldFlag::Colour(palette);
        EXPECT_GE(Contrast(colour, palette.color(QPalette::Base)), 4.5);
        EXPECT_GE(Contrast(colour, palette.color(QPalette::Window)), 4.5);
    }
}

TEST(FieldFlagTest, TheFieldsOwnDescriptionComesBackAndItsTextStays) {
    Theme::Install(ThemeMode::Light);
    QLineEdit field(QStringLiteral("as typed"));
    field.setAccessibleDescription(QStringLiteral("What it is for"));
    FieldFlag flag(field, field);
    flag.mark(QStringLiteral("First complaint"));
    flag.mark(QStringLiteral("Second complaint"));
    EXPECT_TRUE(flag.isUp());
    EXPECT_EQ(field.accessibleDescription(), QStringLiteral("Second complaint"));
    EXPECT_EQ(field.actions().size(), 1);
    flag.clear();
    flag.clear();
    EXPECT_FALSE(flag.isUp());
    EXPECT_EQ(field.accessibleDescription(), QStringLiteral("What it is for"));
    EXPECT_TRUE(field.actions().isEmpty());
    EXPECT_EQ(field.text(), QStringLiteral("as typed"));
}
