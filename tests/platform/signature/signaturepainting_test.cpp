#include "platform/signature/signaturepainting.h"

#include <gtest/gtest.h>

#include <QImage>

#include "tests/platform/signature/writing.h"

namespace {

QImage painted(const Signature& signature, QSize size, double ratio = 1) {
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintSignature(painter, signature, QRectF(QPointF(), QSizeF(size)), Qt::black);
    return image;
}

/// How dark a pixel is, 0 to 255.
int inkAt(const QImage& image, int x, int y) {
    return 255 - qGray(image.pixel(x, y));
}

double inkOf(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += inkAt(image, x, y) / 255.0;
    return sum / (image.devicePixelRatio() * image.devicePixelRatio());
}

/// The rows that have ink in this column.
QList<int> inkedRows(const QImage& image, int x) {
    QList<int> rows;
    for (int y = 0; y < image.height(); ++y)
        if (inkAt(image, x, y) > 64)
            rows << y;
    return rows;
}

Signature lineAcross(int pressure) {
    return {QSize(3200, 1600), {{{160, 800, pressure}, {1600, 800, pressure}, {3040, 800, pressure}}}};
}

}  // namespace

TEST(SignaturePainting, ShowsTheSameStrokesOnAFineScreen) {
    const QImage coarse = painted(aSignature(), {300, 100});
    const QImage fine = painted(aSignature(), {300, 100}, 2);
    double difference = 0;
    for (int y = 0; y < coarse.height(); ++y) {
        for (int x = 0; x < coarse.width(); ++x) {
            const int mean = (inkAt(fine, 2 * x, 2 * y) + inkAt(fine, 2 * x + 1, 2 * y) +
                              inkAt(fine, 2 * x, 2 * y + 1) + inkAt(fine, 2 * x + 1, 2 * y + 1)) /
                             4;
            EXPECT_NEAR(inkAt(coarse, x, y), mean, 64) << x << ',' << y;
            difference += std::abs(inkAt(coarse, x, y) - mean);
        }
    }
    EXPECT_LT(difference / 255, inkOf(coarse) * 0.05);
    EXPECT_NEAR(inkOf(fine), inkOf(coarse), inkOf(coarse) * 0.01);
}

TEST(SignaturePainting, FillsAnyPlaceInItsOwnProportions) {
    const QImage wide = painted(lineAcross(EvenPressure), {800, 100});
    EXPECT_EQ(inkedRows(wide, 300).size(), 0) << "200 pixels of 800 hold the signature, in the middle.";
    EXPECT_FALSE(inkedRows(wide, 400).isEmpty());
    EXPECT_EQ(inkedRows(wide, 310), inkedRows(wide, 400));
    const QImage tall = painted(lineAcross(EvenPressure), {200, 400});
    EXPECT_EQ(inkedRows(tall, 100).value(0) / 10, 19);
}

TEST(SignaturePainting, GrowsWithoutCorners) {
    const QImage large = painted(lineAcross(EvenPressure), {2000, 1000});
    for (const int x : {150, 500, 1000, 1500, 1850})
        EXPECT_NEAR(static_cast<double>(inkedRows(large, x).size()), 22.5, 1.5) << x;
}

TEST(SignaturePainting, PressureMakesTheLineThicker) {
    const double light = inkOf(painted(lineAcross(0), {400, 200}));
    const double even = inkOf(painted(lineAcross(EvenPressure), {400, 200}));
    const double hard = inkOf(painted(lineAcross(FullPressure), {400, 200}));
    EXPECT_LT(light * 2, even);
    EXPECT_LT(even * 1.5, hard);
}

TEST(SignaturePainting, StaysVisibleWhereItIsSmall) {
    const QImage small = painted(lineAcross(EvenPressure), {40, 20});
    int darkest = 0;
    for (int y = 0; y < small.height(); ++y)
        darkest = std::max(darkest, inkAt(small, 20, y));
    EXPECT_GT(darkest, 120);
}

TEST(SignaturePainting, ADotIsADot) {
    const Signature dot{QSize(1600, 1600), {{{800, 800, EvenPressure}}}};
    const QImage image = painted(dot, {100, 100});
    EXPECT_GT(inkAt(image, 49, 49), 200);
    EXPECT_NEAR(inkOf(image), 3.98, 0.8) << "A circle of two pixels and a quarter.";
    const Signature held{QSize(1600, 1600), {{{800, 800, EvenPressure}, {800, 800, EvenPressure}}}};
    EXPECT_EQ(painted(held, {100, 100}), image);
}

TEST(SignaturePainting, NothingIsPaintedWhereThereIsNothing) {
    EXPECT_EQ(inkOf(painted({}, {50, 20})), 0);
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintSignature(painter, aSignature(), QRectF(), Qt::black);
    painter.end();
    EXPECT_EQ(inkOf(image), 0);
}

TEST(SignaturePlaces, OnThePadAndInUnitsAreEachOthersInverse) {
    for (const QRectF& area : {QRectF(0, 0, 300, 100), QRectF(10, 20, 77, 501), QRectF(0, 0, 4000, 30)}) {
        const QTransform toPixels = UnitsToPixels(QSize(4800, 1600), area);
        EXPECT_TRUE(area.contains(toPixels.mapRect(QRectF(0, 0, 4800, 1600)).adjusted(0.01, 0.01, -0.01, -0.01)));
        const QPointF there = toPixels.map(QPointF(1234, 567));
        EXPECT_NEAR(toPixels.inverted().map(there).x(), 1234, 0.01);
        EXPECT_NEAR(toPixels.inverted().map(there).y(), 567, 0.01);
    }
}
