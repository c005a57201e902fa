#include "platform/calendar/hatch.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QPainter>

namespace {

/// The hatching of a square of 16 pixels, ten times as large, as a drawing: '#' where a line runs.
std::string drawn(const QRectF& clip, bool rising, double step = 4, double width = 1) {
    QImage image(160, 160, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(10, 10);
    PaintHatch(painter, QRectF(0, 0, 16, 16), clip, rising, Qt::black, step, width);
    EXPECT_FALSE(painter.hasClipping()) << "the painter is left as it was";
    painter.end();
    std::string drawing;
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 16; ++x)
            drawing += image.pixelColor(x * 10 + 5, y * 10 + 5).lightness() < 128 ? '#' : '.';
        drawing += '\n';
    }
    return drawing;
}

const QRectF All(0, 0, 16, 16);

/// The same square at another place of the paper, brought back to where the others stand.
QImage drawnAt(QPointF place, bool rising, const QRectF& clip = All) {
    QImage image(160, 160, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(10, 10);
    painter.translate(-place);
    PaintHatch(painter, All.translated(place), clip.translated(place), rising, Qt::black, 4, 1);
    return image;
}

}  // namespace

TEST(Hatching, FallsFromTheCornerAtEachStep) {
    EXPECT_EQ(drawn(All, false),
              "#...#...#...#...\n"
              ".#...#...#...#..\n"
              "..#...#...#...#.\n"
              "...#...#...#...#\n"
              "#...#...#...#...\n"
              ".#...#...#...#..\n"
              "..#...#...#...#.\n"
              "...#...#...#...#\n");
}

TEST(Hatching, RisesFromTheCornerAtEachStep) {
    EXPECT_EQ(drawn(All, true),
              "...#...#...#...#\n"
              "..#...#...#...#.\n"
              ".#...#...#...#..\n"
              "#...#...#...#...\n"
              "...#...#...#...#\n"
              "..#...#...#...#.\n"
              ".#...#...#...#..\n"
              "#...#...#...#...\n");
}

TEST(Hatching, IsDrawnInItsClipOnlyAndStaysInPlaceThere) {
    for (const bool rising : {false, true}) {
        const std::string whole = drawn(All, rising);
        for (const QRectF& clip :
             {QRectF(4, 2, 6, 5), QRectF(0, 0, 16, 1), QRectF(15, 0, 1, 8), QRectF(-5, -5, 8, 9)}) {
            const std::string part = drawn(clip, rising);
            for (int y = 0; y < 8; ++y) {
                for (int x = 0; x < 16; ++x) {
                    const std::size_t at = static_cast<std::size_t>(y) * 17 + static_cast<std::size_t>(x);
                    const bool inside = clip.contains(QPointF(x + 0.5, y + 0.5));
                    EXPECT_EQ(part[at], inside ? whole[at] : '.')
                        << x << ", " << y << (rising ? " rising" : " falling");
                }
            }
        }
    }
}

TEST(Hatching, HasItsStepAndItsWidth) {
    EXPECT_EQ(drawn(All, false, 8).substr(0, 17), "#.......#.......\n");
    EXPECT_EQ(drawn(All, false, 8, 3).substr(0, 17), "###...#####...##\n");
}

TEST(Hatching, WithoutAStepOrAPlaceNothingIsDrawn) {
    const std::string nothing = drawn(QRectF(40, 40, 5, 5), false);
    EXPECT_EQ(nothing.find('#'), std::string::npos);
    EXPECT_EQ(drawn(All, true, 0), nothing);
    EXPECT_EQ(drawn(All, true, -2), nothing);
}

TEST(Hatching, IsTheSameWhereverItsPlaceIs) {
    for (const bool rising : {false, true})
        for (const QRectF& clip : {All, QRectF(3, 5, 9, 7)})
            for (const QPointF& place :
                 {QPointF(500, 0), QPointF(0, 500), QPointF(-300, 90), QPointF(40, -700), QPointF(-50, -60)})
                EXPECT_EQ(drawnAt(place, rising, clip), drawnAt({0, 0}, rising, clip)) << place.x() << " " << place.y();
}
