#include "platform/theme/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDBusVariant>
#include <QPushButton>
#include <QToolTip>

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

TEST_P(ThemeColoursTest, EveryRoleOfThePaletteHasItsColour) {
    const ThemeColours& colours = ColoursOf(GetParam());
    const QPalette palette = PaletteOf(colours);
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, colours.window},
        {QPalette::WindowText, colours.text},
        {QPalette::Base, colours.base},
        {QPalette::AlternateBase, colours.alternate},
        {QPalette::Text, colours.text},
        {QPalette::PlaceholderText, colours.mutedText},
        {QPalette::Button, colours.base},
        {QPalette::ButtonText, colours.text},
        {QPalette::BrightText, colours.accentText},
        {QPalette::ToolTipBase, colours.base},
        {QPalette::ToolTipText, colours.text},
        {QPalette::Highlight, colours.selection},
        {QPalette::HighlightedText, colours.selectedText},
        {QPalette::Link, colours.accent},
        {QPalette::LinkVisited, colours.accent},
        {QPalette::Light, colours.base},
        {QPalette::Midlight, colours.hover},
        {QPalette::Mid, colours.border},
        {QPalette::Dark, colours.border},
    };
    for (const auto& [role, colour] : roles) {
        EXPECT_EQ(palette.color(QPalette::Active, role), colour) << role;
        EXPECT_EQ(palette.color(QPalette::Inactive, role), colour) << role;
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        EXPECT_EQ(palette.color(QPalette::Disabled, role), colours.mutedText) << role;
    EXPECT_EQ(palette.color(QPalette::Disabled, QPalette::Base), colours.window);
    EXPECT_EQ(palette.color(QPalette::Disabled, QPalette::Highlight), colours.pressed);
    EXPECT_LT(palette.color(QPalette::Shadow).lightness(), colours.border.lightness());
}

TEST_P(ThemeColoursTest, SurfacesAreToldApart) {
    const ThemeColours& colours = ColoursOf(GetParam());
    EXPECT_NE(colours.window, colours.base);
    EXPECT_NE(colours.base, colours.alternate);
    EXPECT_GT(Contrast(colours.pressed, colours.base), Contrast(colours.hover, colours.base));
    EXPECT_GT(Contrast(colours.border, colours.base), 1.2);
    EXPECT_GT(Contrast(colours.selection, colours.base), 1.2);
    EXPECT_EQ(Contrast(colours.text, colours.base), Contrast(colours.base, colours.text));
    EXPECT_EQ(ColoursOf(GetParam()), ColoursOf(GetParam()));
    EXPECT_FALSE(ColoursOf(ThemeMode::Light) == ColoursOf(ThemeMode::Dark));
}

TEST(ThemeTest, ContrastIsOneToTwentyOne) {
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(Contrast(Qt::red, Qt::red), 1, 0.001);
    EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
    EXPECT_NEAR(Contrast(QColor(0, 0, 0xFF), Qt::white), 8.59, 0.01);
    EXPECT_NEAR(Contrast(QColor(0, 0xFF, 0), Qt::black), 15.3, 0.01);
    EXPECT_NEAR(Contrast(QColor(8, 8, 8), Qt::black), 1.05, 0.01)
        << "very dark colours are reckoned in a straight line";
}

TEST(ThemeTest, APaletteWithDarkTextIsALightOne) {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x60, 0x60, 0x60));
    palette.setColor(QPalette::WindowText, QColor(0x20, 0x20, 0x20));
    EXPECT_EQ(ModeOf(palette), ThemeMode::Light);
    palette.setColor(QPalette::WindowText, QColor(0xA0, 0xA0, 0xA0));
    EXPECT_EQ(ModeOf(palette), ThemeMode::Dark);
}

TEST(ThemeTest, AFontTooSmallToBeReadIsEnlargedAndNoOther) {
    const QFont before = QApplication::font();
    for (const auto& [points, kept] : {std::pair{6.0, 9.0}, {8.9, 9.0}, {9.0, 9.0}, {14.0, 14.0}}) {
        QFont font = before;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        Theme::Install(ThemeMode::Light);
        EXPECT_NEAR(QApplication::font().pointSizeF(), kept, 0.01) << points;
    }
    QFont pixels = before;
    pixels.setPixelSize(5);
    QApplication::setFont(pixels);
    Theme::Install(ThemeMode::Light);
    EXPECT_EQ(QApplication::font().pixelSize(), 5) << "a font in pixels is somebody's will";
    QApplication::setFont(before);
}

TEST(ThemeTest, HeadingsGrowByTheirStepAndAreBolder) {
    const double text = QApplication::font().pointSizeF();
    EXPECT_NEAR(HeadingFont(1).pointSizeF(), text * 1.15, 0.01);
    EXPECT_NEAR(HeadingFont(2).pointSizeF(), text * 1.45, 0.01);
    EXPECT_NEAR(HeadingFont().pointSizeF(), HeadingFont(1).pointSizeF(), 0.01);
    EXPECT_EQ(HeadingFont().weight(), QFont::DemiBold);
    EXPECT_EQ(HeadingFont().family(), QApplication::font().family());
}

TEST(ThemeTest, TheModeGoesThereAndBack) {
    Theme::Install(ThemeMode::Light);
    for (const ThemeMode mode : {ThemeMode::Dark, ThemeMode::Light, ThemeMode::Dark}) {
        Theme::Instance().setMode(mode);
        EXPECT_EQ(Theme::Instance().mode(), mode);
        EXPECT_EQ(Theme::Instance().colours(), ColoursOf(mode));
        EXPECT_EQ(QApplication::palette().color(QPalette::Base), ColoursOf(mode).base);
        EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipText), ColoursOf(mode).text);
    }
    Theme::Install(ThemeMode::Light);
    EXPECT_EQ(Theme::Instance().mode(), ThemeMode::Light);
}
