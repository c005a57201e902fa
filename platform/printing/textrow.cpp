#include "platform/printing/textrow.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <QFontMetricsF>
#include <QPainter>

namespace printing {

namespace {

constexpr double LineWidth = 10;  // Half a point.
const QColor GridColour(0x9a, 0x9a, 0x9a);
const QColor TitleShade(0xe6, 0xe6, 0xe6);
constexpr double DefaultPoints = 10;
constexpr double TabStop = 720;  // Half an inch.
/// A table at least this wide was made for an upright page, and also fills a page across.
constexpr double LeastOfAStandingPage = 9000;  // Twips.
constexpr double MuchWider = 1.25;

/// Returns as many cells as there are columns. The text of surplus cells is added to the last one, so that none is
/// lost.
QStringList cellsFor(const QStringList& row, qsizetype columns) {
    QStringList cells = row.mid(0, columns);
    if (row.size() > columns)
        cells.last() = QStringList(row.mid(columns - 1)).join(u' ');
    while (cells.size() < columns)
        cells << QString();
    return cells;
}

}  // namespace

QFont FontInTwips(QFont font) {
    const double points = font.pointSizeF() > 0 ? font.pointSizeF() : DefaultPoints;
    font.setPixelSize(static_cast<int>(std::lround(points * TwipsPerPoint)));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double ColumnScale(const Table& table, double pageWidth) {
    const double wanted = std::accumulate(table.widths.begin(), table.widths.end(), 0.0);
    const bool fills = wanted > LeastOfAStandingPage && pageWidth > wanted * MuchWider;
    return wanted > pageWidth || fills ? pageWidth / wanted : 1.0;
}

TextRow::TextRow(const Paragraph& paragraph, double pageWidth) {
    addCell(paragraph.text, paragraph.font, paragraph.alignment, paragraph.indent, pageWidth - paragraph.indent);
}

TextRow::TextRow(const Table& table, int row, double pageWidth)
    : padSide_(PadSide), padTop_(PadTop), grid_(table.grid) {
    const bool isTitle = row < 0;
    QFont font = table.font;
    if (isTitle) {
        font.setBold(true);
        if (table.titleShading)
            shading_ = TitleShade;
    } else {
        shading_ = table.shadingOf(static_cast<std::size_t>(row));
    }
    const double scale = ColumnScale(table, pageWidth);
    const QStringList cells =
        cellsFor(isTitle ? table.titles : table.rows[row], static_cast<qsizetype>(table.widths.size()));
    double left = 0;
    for (qsizetype column = 0; column < cells.size(); ++column) {
        const double width = table.widths[column] * scale;
        addCell(cells[column], font, Qt::AlignLeft, left, width);
        left += width;
    }
}

void TextRow::addCell(const QString& text, const QFont& font, Qt::Alignment alignment, double left, double width) {
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
        .replace(u'\r', u'\n')
        .replace(u'\n', QChar::LineSeparator);
    const QFont inTwips = FontInTwips(font);
    auto layout = std::make_unique<QTextLayout>(lines, inTwips);
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTabStopDistance(TabStop);
    layout->setTextOption(option);
    const double room = std::max(width - 2 * padSide_, 1.0);
    lineHeight_ = std::max(lineHeight_, QFontMetricsF(inTwips).lineSpacing());
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(room);
        lineHeight_ = std::max(lineHeight_, line.height());
    }
    layout->endLayout();
    lineCount_ = std::max(lineCount_, layout->lineCount());
    cells_.push_back({left, width, std::move(layout)});
}

void TextRow::paintBox(QPainter& painter, const QRectF& box) const {
    if (shading_)
        painter.fillRect(box, *shading_);
    if (!grid_)
        return;
    painter.setPen(QPen(GridColour, LineWidth));
    painter.drawRect(box);
}

void TextRow::paint(QPainter& painter, QPointF corner, int firstLine, int lines) const {
    painter.setBrush(Qt::NoBrush);
    for (const Cell& cell : cells_) {
        paintBox(painter, {corner.x() + cell.left, corner.y(), cell.width, height(lines)});
        painter.setPen(Qt::black);
        const int end = std::min(firstLine + lines, cell.text->lineCount());
        for (int line = firstLine; line < end; ++line)
            cell.text->lineAt(line).draw(
                &painter, corner + QPointF(cell.left + padSide_, padTop_ + (line - firstLine) * lineHeight_));
    }
}

}  // namespace printing
