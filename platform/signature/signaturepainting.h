#pragma once

#include <QColor>
#include <QPainter>

#include "platform/signature/strokes.h"

/// Paints a signature in ink, as large as fits into `area`, as a smooth line through the points of each stroke. A pen's
/// pressure makes the line thinner or thicker; it never becomes thinner than one pixel.
void PaintSignature(QPainter& painter, const Signature& signature, const QRectF& area, const QColor& ink);
