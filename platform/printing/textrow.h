#pragma once

#include <memory>
#include <QTextLayout>
#include <vector>

#include "platform/printing/printdocument.h"

class QPainter;

namespace printing {

/// Cells of text beside each other, broken into lines that are all of one height, so that a row can be divided between
/// pages at any line. Lengths are in twips; nothing depends on the device that will paint it.
class TextRow {
  public:
    /// The room for text within a cell's border.
    static constexpr double PadSide = 80;
    static constexpr double PadTop = 40;

    /// One cell without border.
    TextRow(const Paragraph& paragraph, double pageWidth);
    /// A table's row, or its titles where `row` is negative.
    TextRow(const Table& table, int row, double pageWidth);

    /// Lines of the longest cell, at least 1.
    [[nodiscard]] int lineCount() const { return lineCount_; }
    [[nodiscard]] double lineHeight() const { return lineHeight_; }
    /// Of some of its lines, borders included.
    [[nodiscard]] double height(int lines) const { return lines * lineHeight_ + 2 * padTop_; }
    [[nodiscard]] double height() const { return height(lineCount_); }

    /// Paints `lines` lines from `firstLine` on, with the upper left corner at `corner`.
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

/// The font with its size in twips.
[[nodiscard]] QFont FontInTwips(QFont font);
/// How much a table's columns are narrowed or widened to fit the page: 1 where they are not.
[[nodiscard]] double ColumnScale(const Table& table, double pageWidth);

}  // namespace printing
