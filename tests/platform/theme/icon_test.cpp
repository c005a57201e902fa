#include "platform/theme/icon.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

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
