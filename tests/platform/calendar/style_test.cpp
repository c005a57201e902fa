// Fonts, colours and measures of a calendar on screen and on paper.

#include "platform/calendar/style.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QPalette>

#include "platform/calendar/colour.h"
#include "platform/theme/colours.h"

namespace {

QFont fontOf(double points) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(points);
    return font;
}

CalendarStyle screenIn(ThemeMode mode) {
    return ScreenStyle(PaletteOf(ColoursOf(mode)), fontOf(9));
}

class ScreenColours : public testing::TestWithParam<ThemeMode> {};

INSTANTIATE_TEST_SUITE_P(BothModes, ScreenColours, testing::Values(ThemeMode::Light, ThemeMode::Dark),
                         [](const auto& mode) { return mode.param == ThemeMode::Dark ? "Dark" : "Light"; });

}  // namespace

TEST(CalendarStyle, FontsKeepTheirProportions) {
    for (const double points : {9.0, 12.0, 18.0}) {
        const CalendarStyle style = ScreenStyle(QPalette(), fontOf(points));
        EXPECT_NEAR(style.text.pointSizeF(), points, 0.01);
        EXPECT_NEAR(style.small.pointSizeF(), points * 0.88, 0.01);
        EXPECT_NEAR(style.heading.pointSizeF(), points * 0.95, 0.01);
        EXPECT_NEAR(style.dayNumber.pointSizeF(), points * 1.35, 0.01);
        EXPECT_NEAR(style.hour.pointSizeF(), points * 1.2, 0.01);
        EXPECT_NEAR(style.minute.pointSizeF(), points * 0.78, 0.01);
    }
}

TEST(CalendarStyle, FontsInPixelsAreScaledInPixels) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(20);
    const CalendarStyle style = ScreenStyle(QPalette(), font);
    EXPECT_EQ(style.small.pixelSize(), 18);
    EXPECT_EQ(style.dayNumber.pixelSize(), 27);
    font.setPixelSize(1);
    EXPECT_EQ(ScreenStyle(QPalette(), font).minute.pixelSize(), 1) << "no font is nothing";
    EXPECT_GE(ScreenStyle(QPalette(), fontOf(1)).minute.pointSizeF(), 1);
}

TEST(CalendarStyle, MeasuresFollowFromTheFonts) {
    const CalendarStyle style = ScreenStyle(QPalette(), fontOf(9));
    EXPECT_EQ(style.textLine, QFontMetrics(style.text).height());
    EXPECT_EQ(style.smallLine, QFontMetrics(style.small).height());
    EXPECT_LT(style.minItemHeight, style.textLine) << "a short item is lower than a line";
    EXPECT_GE(style.stripHeight, style.textLine + style.margin);
    EXPECT_GE(style.headingHeight, QFontMetrics(style.dayNumber).height() + 2 * style.margin) << "the disc has room";
    const int hours = QFontMetrics(style.hour).horizontalAdvance(QStringLiteral("00")) +
                      QFontMetrics(style.minute).horizontalAdvance(QStringLiteral(" AM"));
    EXPECT_EQ(style.gutterWidth, hours + 4 * style.margin);
    EXPECT_EQ(style.minColumnWidth, 16 * QFontMetrics(style.text).averageCharWidth());
    EXPECT_EQ(style.radius, style.margin + 1);
}

TEST(CalendarStyle, PartsOfALineAreTheirShareOfIt) {
    const CalendarStyle style = ScreenStyle(QPalette(), fontOf(40));
    EXPECT_EQ(style.margin, style.textLine / 5);
    EXPECT_EQ(style.edgeWidth, style.textLine / 4);
    EXPECT_EQ(style.icon, qRound(QFontMetrics(style.text).ascent() * 1.05));
    EXPECT_EQ(style.grip, style.margin + 1);
    EXPECT_EQ(style.minItemHeight, style.smallLine - 1);
    EXPECT_EQ(style.headingHeight, QFontMetrics(style.dayNumber).height() + 4 * style.margin);
    EXPECT_EQ(style.stripHeight, style.textLine + style.margin + 1);
}

TEST(CalendarStyle, ATinyFontKeepsTheLeastMeasures) {
    const CalendarStyle tiny = ScreenStyle(QPalette(), fontOf(1));
    EXPECT_EQ(tiny.margin, 2);
    EXPECT_EQ(tiny.edgeWidth, 3);
    EXPECT_EQ(tiny.icon, 8);
    EXPECT_EQ(tiny.grip, 4);
}

TEST(CalendarStyle, AFontTwiceAsLargeDoublesTheMeasures) {
    const CalendarStyle one = ScreenStyle(QPalette(), fontOf(12));
    const CalendarStyle two = ScreenStyle(QPalette(), fontOf(24));
    const std::pair<int, int> measures[] = {{one.textLine, two.textLine},
                                            {one.smallLine, two.smallLine},
                                            {one.margin, two.margin},
                                            {one.edgeWidth, two.edgeWidth},
                                            {one.icon, two.icon},
                                            {one.gutterWidth, two.gutterWidth},
                                            {one.headingHeight, two.headingHeight},
                                            {one.grip, two.grip},
                                            {one.minColumnWidth, two.minColumnWidth}};
    for (const auto& [small, large] : measures)
        EXPECT_NEAR(static_cast<double>(large) / small, 2, 0.35) << small;
}

TEST(CalendarStyle, LongerRowsAreHigherButNotInProportion) {
    CalendarStyle style;
    style.textLine = 20;
    for (const auto& [interval, height] :
         {std::pair{1, 20}, {5, 20}, {6, 23}, {10, 23}, {15, 26}, {20, 38}, {30, 38}, {31, 60}, {60, 60}})
        EXPECT_EQ(style.rowHeight(interval), height) << interval;
}

TEST_P(ScreenColours, TextCanBeReadOnEveryGround) {
    const CalendarStyle style = screenIn(GetParam());
    EXPECT_EQ(style.base, ColoursOf(GetParam()).base);
    EXPECT_EQ(style.window, ColoursOf(GetParam()).window);
    EXPECT_EQ(style.accent, ColoursOf(GetParam()).accent);
    EXPECT_GE(ContrastRatio(style.ink, style.base), ReadableContrast);
    EXPECT_GE(ContrastRatio(style.dimInk, style.base), ReadableContrast);
    EXPECT_GE(ContrastRatio(style.accentInk, style.accent), ReadableContrast);
    EXPECT_GE(ContrastRatio(style.ink, style.window), ReadableContrast);
    EXPECT_GE(ContrastRatio(style.ink, style.shade), ReadableContrast);
    EXPECT_LT(ContrastRatio(style.dimInk, style.base), ContrastRatio(style.ink, style.base)) << "and is quieter";
}

TEST_P(ScreenColours, LinesAreSeenAndNeverLoud) {
    const CalendarStyle style = screenIn(GetParam());
    const double row = ContrastRatio(style.rowLine, style.base);
    const double hour = ContrastRatio(style.hourLine, style.base);
    const double column = ContrastRatio(style.columnLine, style.base);
    EXPECT_GT(row, 1.05);
    EXPECT_GT(hour, row + 0.05);
    EXPECT_GT(column, hour + 0.05);
    EXPECT_LT(column, 3);
}

TEST_P(ScreenColours, ThePresentStandsOutAndShadeIsFaint) {
    const CalendarStyle style = screenIn(GetParam());
    EXPECT_GE(ContrastRatio(style.present, style.base), 3);
    EXPECT_GT(style.present.red(), style.present.green() + 80);
    EXPECT_NE(style.shade, style.base);
    EXPECT_LT(ContrastRatio(style.shade, style.base), 1.3);
    EXPECT_LT(style.shade.lightness(), style.base.lightness()) << "shade is darker in either mode";
}

TEST(CalendarStyle, APaletteThatCannotBeReadIsHelped) {
    QPalette bad;
    bad.setColor(QPalette::Base, Qt::white);
    bad.setColor(QPalette::Text, QColor(0xF0, 0xF0, 0xF0));
    EXPECT_GE(ContrastRatio(ScreenStyle(bad, fontOf(9)).ink, Qt::white), ReadableContrast);
    EXPECT_GE(ContrastRatio(ScreenStyle(bad, fontOf(9)).dimInk, Qt::white), ReadableContrast);
}

TEST(PrintedStyle, IsBlackOnWhiteInPixelsOfPaper) {
    const CalendarStyle style = PrintStyle(fontOf(9), fontOf(12));
    EXPECT_EQ(style.ink, QColor(Qt::black));
    EXPECT_EQ(style.base, QColor(Qt::white));
    EXPECT_EQ(style.window, QColor(Qt::white));
    EXPECT_EQ(style.text.pixelSize(), 12) << "9 points at 96 dots";
    EXPECT_EQ(style.hour.pixelSize(), 19) << "the time column has a font of its own: 16 pixels, and a fifth more";
    EXPECT_EQ(style.minute.pixelSize(), 12);
    QFont pixels(QStringLiteral("DejaVu Sans"));
    pixels.setPixelSize(15);
    EXPECT_EQ(PrintStyle(pixels, pixels).text.pixelSize(), 15);
}

TEST(PrintedStyle, CanBeReadOnAGreyPrinter) {
    const CalendarStyle style = PrintStyle(fontOf(9), fontOf(9));
    EXPECT_GE(ContrastRatio(style.dimInk, style.base), ReadableContrast);
    EXPECT_GE(ContrastRatio(style.accentInk, style.accent), ReadableContrast);
    EXPECT_GT(qGray(style.shade.rgb()), qGray(style.rowLine.rgb()));
    EXPECT_GT(qGray(style.rowLine.rgb()), qGray(style.hourLine.rgb()));
    EXPECT_GT(qGray(style.hourLine.rgb()), qGray(style.columnLine.rgb()));
    EXPECT_LT(qGray(style.columnLine.rgb()), 180);
    EXPECT_LT(qGray(style.shade.rgb()), 255) << "hours outside the prime ones are told on paper, too";
    EXPECT_GE(ContrastRatio(style.present, style.base), 3);
}
