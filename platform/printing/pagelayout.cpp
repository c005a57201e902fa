#include "platform/printing/pagelayout.h"

#include <algorithm>
#include <QFontMetricsF>
#include <QPainter>

#include "platform/printing/textrow.h"

namespace printing {

namespace {

// Printers do not print closer to the edge than this, and text needs some distance from the body.
constexpr double Edge = 360;
constexpr double Distance = 120;
// The least size of the body, so that a document comes to an end even when its margins leave no room.
constexpr double SmallestBody = 720;

TextRow rowOf(const Document& document, const Piece& piece, double width) {
    const Block& block = document.blocks[piece.block];
    if (const auto* paragraph = std::get_if<Paragraph>(&block))
        return {*paragraph, width};
    return {std::get<Table>(block), piece.row, width};
}

}  // namespace

PageLayout::PageLayout(const Document& document, PageSetup setup) : document_(document), setup_(std::move(setup)) {
    fitBody();
    beginPage();
    Grow();
}

void PageLayout::Grow() {
    layBlocks(next_, document_.blocks.size());
}

void PageLayout::layBlocks(std::size_t first, std::size_t end) {
    for (next_ = first; next_ < end;) {
        const std::size_t block = next_++;
        std::visit([this, block](const auto& content) { lay(block, content); }, document_.blocks[block]);
    }
}

double PageLayout::marginTextHeight() const {
    return QFontMetricsF(FontInTwips(document_.marginFont)).lineSpacing();
}

void PageLayout::fitBody() {
    const QSizeF paper = setup_.sizeTwips();
    const double needed = Edge + marginTextHeight() + Distance;
    const double top = document_.header.isEmpty() ? setup_.margins.top : std::max<double>(setup_.margins.top, needed);
    const double bottom =
        document_.footer.isEmpty() ? setup_.margins.bottom : std::max<double>(setup_.margins.bottom, needed);
    body_ = QRectF(setup_.margins.left, top,
                   std::max(paper.width() - setup_.margins.left - setup_.margins.right, SmallestBody),
                   std::max(paper.height() - top - bottom, SmallestBody));
}

void PageLayout::beginPage() {
    pages_.emplace_back();
    y_ = body_.top();
    if (titles_) {
        const TextRow titles(std::get<Table>(document_.blocks[*titles_]), -1, body_.width());
        place(*titles_, -1, titles, 0, titles.lineCount());
    }
    top_ = y_;
}

void PageLayout::place(std::size_t block, int row, const TextRow& text, int firstLine, int lines) {
    const double height = text.height(lines);
    pages_.back().push_back({block, row, firstLine, lines, y_, height});
    y_ += height;
}

template <class TopOfPage>
void PageLayout::flow(std::size_t block, int row, const TextRow& text, TopOfPage topOfPage) {
    const double padding = text.height(0);
    bool fresh = isFresh();
    for (int line = 0; line < text.lineCount();) {
        const int fitting = static_cast<int>((room() - padding) / text.lineHeight());
        // A fresh page takes at least one line even without room for it, because the loop would otherwise never end.
        if (fitting >= 1 || fresh) {
            const int lines = std::clamp(fitting, 1, text.lineCount() - line);
            place(block, row, text, line, lines);
            line += lines;
            if (line == text.lineCount())
                return;
        }
        beginPage();
        topOfPage();
        fresh = true;
    }
}

void PageLayout::lay(std::size_t block, const Paragraph& paragraph) {
    flow(block, 0, TextRow(paragraph, body_.width()), [] {});
}

void PageLayout::lay(std::size_t block, const Table& table) {
    std::optional<TextRow> titles;
    if (!table.titles.isEmpty())
        titles.emplace(table, -1, body_.width());
    const double titleHeight = titles ? titles->height() : 0;
    const auto placeTitles = [&] {
        if (titles)
            place(block, -1, *titles, 0, titles->lineCount());
    };
    if (table.rows.empty() && titleHeight > room())
        beginPage();
    if (table.rows.empty())
        placeTitles();
    for (int row = 0; row < static_cast<int>(table.rows.size()); ++row) {
        const TextRow text(table, row, body_.width());
        // The titles never stand alone at the foot of a page.
        const double needed = text.height() + (row == 0 ? titleHeight : 0);
        const bool breaks = needed > room() && text.height() <= body_.bottom() - top_ - titleHeight && !isFresh();
        if (breaks)
            beginPage();
        if (breaks || row == 0)
            placeTitles();
        flow(block, row, text, placeTitles);
    }
    if (table.titlesStay)
        titles_ = block;
}

void PageLayout::lay(std::size_t /*block*/, const Gap& gap) {
    // A gap at the top of a page is left out.
    if (!isFresh())
        y_ = std::min(y_ + gap.height, body_.bottom());
}

void PageLayout::lay(std::size_t /*block*/, const PageBreak& /*pageBreak*/) {
    if (!isFresh())
        beginPage();
}

// What reaches another page is taken back and begins that page. What is longer than a page is divided there.
void PageLayout::lay(std::size_t block, const Together& together) {
    const std::size_t end = std::min(block + 1 + together.blocks, document_.blocks.size());
    const std::size_t pages = pages_.size();
    const std::size_t pieces = pages_.back().size();
    const bool wasFresh = isFresh();
    const std::optional<std::size_t> titles = titles_;
    layBlocks(block + 1, end);
    if (pages_.size() == pages || wasFresh)
        return;
    pages_.resize(pages);
    pages_.back().resize(pieces);
    titles_ = titles;
    beginPage();
    layBlocks(block + 1, end);
}

// A picture that would get less than half a page begins a new one.
void PageLayout::lay(std::size_t block, const Figure& /*figure*/) {
    if (room() < body_.height() / 2 && !isFresh())
        beginPage();
    pages_.back().push_back({block, 0, 0, 0, y_, room()});
    y_ = body_.bottom();
}

void PageLayout::paintMargin(QPainter& painter, const QString& text, int page, double top) const {
    const QStringList parts = QString(text).replace(QStringLiteral("%d"), QString::number(page + 1)).split(u'|');
    const Qt::Alignment sides[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    painter.setFont(FontInTwips(document_.marginFont));
    painter.setPen(Qt::black);
    const QRectF line(body_.left(), top, body_.width(), marginTextHeight());
    for (qsizetype part = 0; part < std::min<qsizetype>(parts.size(), std::size(sides)); ++part)
        painter.drawText(line, static_cast<int>(sides[part] | Qt::AlignVCenter) | Qt::TextSingleLine, parts[part]);
}

void PageLayout::paintPage(QPainter& painter, int page, const QRectF& paper) const {
    const QSizeF size = setup_.sizeTwips();
    painter.save();
    painter.translate(paper.topLeft());
    painter.scale(paper.width() / size.width(), paper.height() / size.height());
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const double marginText = marginTextHeight();
    paintMargin(painter, document_.header, page, std::max(Edge, (body_.top() - marginText) / 2));
    paintMargin(
        painter, document_.footer, page,
        std::min(size.height() - Edge, size.height() - (size.height() - body_.bottom() - marginText) / 2) - marginText);
    const QRectF visible = painter.hasClipping() ? painter.clipBoundingRect() : QRectF(QPointF(), size);
    for (const Piece& piece : pages_[page])
        if (piece.top > visible.bottom() || piece.top + piece.height < visible.top())
            continue;
        else if (const auto* figure = std::get_if<Figure>(&document_.blocks[piece.block]))
            paintFigure(painter, *figure, piece);
        else
            rowOf(document_, piece, body_.width())
                .paint(painter, {body_.left(), piece.top}, piece.firstLine, piece.lineCount);
    painter.restore();
}

void PageLayout::paintFigure(QPainter& painter, const Figure& figure, const Piece& piece) const {
    constexpr double TwipsPerDot = TwipsPerInch / 96.0;
    painter.save();
    painter.translate(body_.left(), piece.top);
    painter.scale(TwipsPerDot, TwipsPerDot);
    figure.paint(painter, QRectF(0, 0, body_.width() / TwipsPerDot, piece.height / TwipsPerDot));
    painter.restore();
}

}  // namespace printing
