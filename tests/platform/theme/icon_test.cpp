#include "platform/theme/icon.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QPainter>

#include "platform/theme/theme.h"

namespace {

int paintedPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    return count;
}

/// The colour of the most opaque pixel.
QColor inkOf(const QImage& image) {
    QColor ink(0, 0, 0, 0);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() > ink.alpha())
                ink = image.pixelColor(x, y);
    return ink;
}

QImage imageOf(const QIcon& icon, int size, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(size, size), 1.0, mode).toImage();
}

}  // namespace

TEST(IconTest, EveryPictureCanBeDrawn) {
    ASSERT_FALSE(Icon("day").isNull());
    const QStringList files = QDir(QStringLiteral(":/icons")).entryList();
    EXPECT_GT(files.size(), 40);
    for (const QString& file : files) {
        const QImage image = imageOf(Icon(file.chopped(4)), 24);
        ASSERT_EQ(image.size(), QSize(24, 24)) << file.toStdString();
        EXPECT_GT(paintedPixels(image), 20) << file.toStdString();
    }
}

TEST(IconTest, AnUnknownNameIsNoIcon) {
    EXPECT_TRUE(Icon("no such picture").isNull());
}

TEST(IconTest, APictureTakesTheTextColourOfEachMode) {
    for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
        Theme::Install(mode);
        EXPECT_EQ(inkOf(imageOf(Icon("add"), 48)).name(), ColoursOf(mode).text.name());
    }
}

TEST(IconTest, AnIconMadeBeforeAChangeOfModeFollowsIt) {
    Theme::Install(ThemeMode::Light);
    const QIcon icon = Icon("add");
    imageOf(icon, 48);
    Theme::Instance().setMode(ThemeMode::Dark);
    EXPECT_EQ(inkOf(imageOf(icon, 48)).name(), ColoursOf(ThemeMode::Dark).text.name());
}

TEST(IconTest, ADisabledCommandIsPaler) {
    Theme::Install(ThemeMode::Light);
    const QColor window = ColoursOf(ThemeMode::Light).window;
    const QColor normal = inkOf(imageOf(Icon("add"), 48));
    const QColor disabled = inkOf(imageOf(Icon("add"), 48, QIcon::Disabled));
    EXPECT_LT(Contrast(disabled, window), Contrast(normal, window));
}

TEST(IconTest, AtTwiceTheScaleAPictureHasTwiceThePixels) {
    const QPixmap pixmap = IconPixmap(QStringLiteral("lock"), Qt::red, 16, 2.0);
    EXPECT_EQ(pixmap.size(), QSize(32, 32));
    EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(16, 16));
    EXPECT_EQ(inkOf(pixmap.toImage()).name(), QColor(Qt::red).name());
}

TEST(IconTest, EachModeAndStateHasItsColour) {
    for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
        Theme::Install(mode);
        const ThemeColours& colours = ColoursOf(mode);
        const auto colourOf = [](QIcon::Mode iconMode, QIcon::State state) {
            return inkOf(Icon("add").pixmap(QSize(48, 48), 1.0, iconMode, state).toImage()).name();
        };
        EXPECT_EQ(colourOf(QIcon::Normal, QIcon::Off), colours.text.name());
        EXPECT_EQ(colourOf(QIcon::Active, QIcon::Off), colours.text.name());
        EXPECT_EQ(colourOf(QIcon::Normal, QIcon::On), colours.accent.name());
        EXPECT_EQ(colourOf(QIcon::Selected, QIcon::Off), colours.selectedText.name());
        EXPECT_EQ(colourOf(QIcon::Selected, QIcon::On), colours.selectedText.name());
        EXPECT_EQ(colourOf(QIcon::Disabled, QIcon::On), colourOf(QIcon::Disabled, QIcon::Off));
        const QColor faint(colourOf(QIcon::Disabled, QIcon::Off));
        for (const auto part : {&QColor::red, &QColor::green, &QColor::blue})
            EXPECT_EQ((faint.*part)(), ((colours.mutedText.*part)() + (colours.window.*part)()) / 2);
    }
}

TEST(IconTest, AnIconOfOneColourKeepsItInEveryMode) {
    for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
        Theme::Install(mode);
        const QIcon icon = Icon(QStringLiteral("add"), Qt::red);
        for (const QIcon::Mode iconMode : {QIcon::Normal, QIcon::Disabled, QIcon::Selected})
            EXPECT_EQ(inkOf(imageOf(icon, 48, iconMode)).name(), QColor(Qt::red).name());
        EXPECT_EQ(inkOf(imageOf(Icon(QStringLiteral("add"), Qt::blue), 48)).name(), QColor(Qt::blue).name());
        EXPECT_EQ(inkOf(imageOf(icon, 48)).name(), QColor(Qt::red).name()) << "also after the other";
    }
}

TEST(IconTest, APictureIsSquareInAnyPlace) {
    const QIcon icon = Icon("day");
    EXPECT_EQ(icon.actualSize(QSize(40, 20)), QSize(20, 20));
    EXPECT_EQ(icon.actualSize(QSize(16, 64)), QSize(16, 16));
    EXPECT_EQ(icon.pixmap(QSize(16, 64), 1.0).size(), QSize(16, 16));
    EXPECT_EQ(icon.name(), "day");
    const QIcon copy = icon;
    EXPECT_EQ(imageOf(copy, 24), imageOf(icon, 24));
}

TEST(IconTest, PaintedOnAFineSurfaceItIsAsFineAsIt) {
    for (const double ratio : {1.0, 1.5, 2.0}) {
        QImage image(QSize(40, 40) * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        Icon(QStringLiteral("lock"), Qt::red).paint(&painter, QRect(4, 4, 32, 32));
        painter.end();
        QImage expected(image.size(), image.format());
        expected.fill(Qt::transparent);
        QPainter direct(&expected);
        direct.drawPixmap(QPointF(4, 4) * ratio, IconPixmap(QStringLiteral("lock"), Qt::red, qRound(32 * ratio), 1));
        direct.end();
        image.setDevicePixelRatio(1);
        EXPECT_EQ(image, expected) << ratio;
    }
}

TEST(IconTest, APixmapHasThePixelsOfItsScreen) {
    for (const auto& [ratio, pixels] : {std::pair{1.0, 20}, {1.25, 25}, {1.5, 30}, {3.0, 60}}) {
        const QPixmap pixmap = IconPixmap(QStringLiteral("day"), Qt::blue, 20, ratio);
        EXPECT_EQ(pixmap.size(), QSize(pixels, pixels)) << ratio;
        EXPECT_EQ(pixmap.devicePixelRatio(), ratio);
        EXPECT_EQ(IconPixmap(QStringLiteral("day"), Qt::blue, 20, ratio).toImage(), pixmap.toImage())
            << "a second time";
    }
}
