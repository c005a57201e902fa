#pragma once

#include <memory>
#include <QTextLayout>
#include <vector>

#include "platform/printing/printdocument.h"

class QPainter;

namespace printing {

/// A row of text cells. Their lines all have the same height, so that the row can be divided between pages at any line.
/// Lengths are in twips and do not depend on the device that paints the row.
class TextRow {
  public:
    /// The padding between a cell's border and its text.
    static constexpr double PadSide = 80;
    static constexpr double PadTop = 40;

    /// Makes one cell without a border.
    TextRow(const Paragraph& paragraph, double pageWidth);
    /// Makes a row of a table, or its titles where `row` is negative.
    TextRow(const Table& table, int row, double pageWidth);

    /// The number of lines of the longest cell, at least 1.
    [[nodiscard]] int lineCount() const { return lineCount_; }
    [[nodiscard]] double lineHeight() const { return lineHeight_; }
    /// The height of that many lines, with the borders.
    [[nodiscard]] double height(int lines) const { return lines * lineHeight_ + 2 * padTop_; }
    [[nodiscard]] double height() const { return height(lineCount_); }

    /// Paints `lines` lines from `firstLine` on. `corner` is the upper left corner.
    void paint(QPainter& painter, QPointF corner, int firstLine, int lines) const;

  private:
    struct Cell {
        double left = 0;
        double width = 0;
        std::unique_ptr<QTextLayout> text;
    };

    void addCell(const QString& text, const QFont& font, Qt::Alignment alignment, double left, double width);
    void paintBox(QPainter& painter, const QRectF& box) const;

    std::vector<Cell> cells_;
    int lineCount_ = 1;
    double lineHeight_ = 0;
    double padSide_ = 0;
    double padTop_ = 0;
    bool grid_ = false;
    std::optional<QColor> shading_;
};

/// Returns the font with its size in twips.
[[nodiscard]] QFont FontInTwips(QFont font);
/// Returns the factor by which a table's columns are narrowed or widened to fit the page, or 1. Columns wider than the
/// page are narrowed. A table as wide as an upright page is widened on a page across.
[[nodiscard]] double ColumnScale(const Table& table, double pageWidth);

}  // namespace printing
