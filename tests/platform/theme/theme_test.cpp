#include "platform/theme/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDBusVariant>
#include <QPushButton>

#include "platform/theme/desktopmode.h"

namespace {

constexpr double ReadableText = 4.5;  // WCAG AA for text.
constexpr double VisibleShape = 3.0;  // WCAG AA for shapes.

class ThemeColoursTest : public testing::TestWithParam<ThemeMode> {};

QVariant answer(uint value) {
    return QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(value))));
}

}  // namespace

TEST_P(ThemeColoursTest, TextCanBeReadOnEverySurface) {
    const ThemeColours& colours = ColoursOf(GetParam());
    for (const QColor& surface : {colours.window, colours.base, colours.alternate, colours.hover, colours.pressed})
        EXPECT_GE(Contrast(colours.text, surface), ReadableText) << surface.name().toStdString();
    for (const QColor& surface : {colours.window, colours.base, colours.alternate})
        EXPECT_GE(Contrast(colours.mutedText, surface), ReadableText) << surface.name().toStdString();
    EXPECT_GE(Contrast(colours.selectedText, colours.selection), ReadableText);
    EXPECT_GE(Contrast(colours.accentText, colours.accent), ReadableText);
}

TEST_P(ThemeColoursTest, TheFocusRingStandsOutFromEverySurface) {
    const ThemeColours& colours = ColoursOf(GetParam());
    for (const QColor& surface : {colours.window, colours.base, colours.hover})
        EXPECT_GE(Contrast(colours.accent, surface), VisibleShape) << surface.name().toStdString();
}

TEST_P(ThemeColoursTest, ThePicturesOfMessagesStandOut) {
    const ThemeColours& colours = ColoursOf(GetParam());
    for (const QColor& picture : {colours.accent, colours.caution, colours.danger})
        EXPECT_GE(Contrast(picture, colours.window), VisibleShape) << picture.name().toStdString();
}

TEST_P(ThemeColoursTest, ThePaletteTellsItsMode) {
    EXPECT_EQ(ModeOf(PaletteOf(ColoursOf(GetParam()))), GetParam());
}

INSTANTIATE_TEST_SUITE_P(BothModes, ThemeColoursTest, testing::Values(ThemeMode::Light, ThemeMode::Dark),
                         [](const auto& mode) { return mode.param == ThemeMode::Light ? "Light" : "Dark"; });

TEST(DesktopModeTest, ThePortalsNumbersAreModes) {
    EXPECT_EQ(ModeFromPortal(answer(1)), ThemeMode::Dark);
    EXPECT_EQ(ModeFromPortal(answer(2)), ThemeMode::Light);
}

TEST(DesktopModeTest, AnAnswerWrappedOnceIsUnderstoodToo) {
    EXPECT_EQ(ModeFromPortal(QVariant::fromValue(QDBusVariant(1U))), ThemeMode::Dark);
}

TEST(DesktopModeTest, NoPreferenceAndNonsenseSayNothing) {
    EXPECT_FALSE(ModeFromPortal(answer(0)));
    EXPECT_FALSE(ModeFromPortal(answer(7)));
    EXPECT_FALSE(ModeFromPortal(QVariant(QStringLiteral("dark"))));
    EXPECT_FALSE(ModeFromPortal({}));
}

TEST(ThemeTest, AForcedModeIsTakenAndTheDesktopIsLeftAlone) {
    Theme::Install(ThemeMode::Dark);
    Theme::FollowDesktop();
    EXPECT_EQ(Theme::Instance().mode(), ThemeMode::Dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), ColoursOf(ThemeMode::Dark).window);
    EXPECT_TRUE(Theme::Instance().children().isEmpty());
}

TEST(ThemeTest, AChangeOfModeReachesOpenWidgetsAtOnce) {
    Theme::Install(ThemeMode::Light);
    QPushButton button;
    button.show();
    Theme::Instance().setMode(ThemeMode::Dark);
    QApplication::processEvents();
    EXPECT_EQ(button.palette().color(QPalette::ButtonText), ColoursOf(ThemeMode::Dark).text);
}

TEST(ThemeTest, TheSpacingGridKeepsItsOrderAndGrowsWithTheFont) {
    const QFont before = QApplication::font();
    const int small = Space(8);
    EXPECT_LT(Space(4), small);
    EXPECT_LT(small, Space(24));
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(large);
    EXPECT_GE(Space(8), small * 2 - 1);
    QApplication::setFont(before);
}

TEST(ThemeTest, HeadingsAreLargerThanText) {
    EXPECT_GT(HeadingFont(1).pointSizeF(), QApplication::font().pointSizeF());
    EXPECT_GT(HeadingFont(2).pointSizeF(), HeadingFont(1).pointSizeF());
}
