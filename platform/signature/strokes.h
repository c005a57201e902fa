#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QTransform>
#include <vector>

/// The units of a signature in one pixel of the pad that it was written on.
inline constexpr int UnitsPerPixel = 16;
/// The largest width and height of a signature, in units.
inline constexpr int LargestExtent = 65535;
/// The most points of a signature, which is several minutes of writing.
inline constexpr int MostPoints = 10000;
inline constexpr int FullPressure = 255;
/// The pressure of what is written without a pen.
inline constexpr int EvenPressure = 128;

/// A point of a stroke: its place in units from the top left corner, and how hard the pen was pressed, 0 to 255.
struct InkPoint {
    int x = 0;
    int y = 0;
    int pressure = EvenPressure;
    friend bool operator==(const InkPoint&, const InkPoint&) = default;
};

/// What is written without lifting the pen. It has at least one point.
using Stroke = std::vector<InkPoint>;

/// A written signature, as lines that can be shown at any size.
struct Signature {
    QSize extent;  ///< The size of the pad that it was written on, in units. Every point lies within it.
    std::vector<Stroke> strokes;

    [[nodiscard]] int PointCount() const;
    friend bool operator==(const Signature&, const Signature&) = default;
};

/// Whether the extent is from 1 to LargestExtent each way, there are no more than MostPoints points, no stroke is
/// empty, every point lies within the extent and every pressure is from 0 to 255.
[[nodiscard]] bool IsSound(const Signature& signature);

/// Returns how units become pixels where a signature of this extent is shown in `area`: as large as fits, in the
/// middle, in its own proportions. Its inverse turns places on a pad into units.
[[nodiscard]] QTransform UnitsToPixels(QSize extent, const QRectF& area);
