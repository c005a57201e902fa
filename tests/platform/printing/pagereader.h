#pragma once

#include <QRectF>
#include <QString>
#include <vector>

#include "platform/printing/pagelayout.h"

/// Text as it stands on a page, in twips from the paper's upper left corner.
struct PaperText {
    QString text;
    QPointF place;  ///< Where its baseline begins.
};

/// What is painted on a page, read back through the painter: its texts in the order in which they were painted.
[[nodiscard]] std::vector<PaperText> TextsOf(const printing::PageLayout& layout, int page);
/// The texts alone.
[[nodiscard]] QStringList WordsOf(const printing::PageLayout& layout, int page);
/// The page as a picture, `pixelsPerInch` to the inch.
[[nodiscard]] QImage PictureOf(const printing::PageLayout& layout, int page, int pixelsPerInch = 96);
