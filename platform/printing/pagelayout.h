#pragma once

#include <optional>
#include <QRectF>
#include <vector>

#include "platform/printing/printdocument.h"

class QPainter;

namespace printing {

class TextRow;

/// A part of a document's text on a page.
struct Piece {
    std::size_t block = 0;
    int row = 0;  ///< The row of a table; negative for its titles.
    int firstLine = 0;
    int lineCount = 0;
    double top = 0;  ///< The distance from the upper edge of the paper, in twips.
    double height = 0;
    friend bool operator==(const Piece&, const Piece&) = default;
};

/// A document divided into pages of one paper. It keeps a reference to the document, which must outlive it. The
/// document may only become longer, by blocks at its end, and each time Grow must be called before anything else.
class PageLayout {
  public:
    /// Uses the document's own paper.
    explicit PageLayout(const Document& document) : PageLayout(document, document.setup) {}
    PageLayout(const Document& document, PageSetup setup);

    /// Divides the blocks that the document has gained at its end. Pages before the last one stay as they are. The
    /// blocks that a Together holds together must be gained with it.
    void Grow();

    /// At least 1, because a document without text has one empty page.
    [[nodiscard]] int pageCount() const { return static_cast<int>(pages_.size()); }
    /// `page` counts from 0.
    [[nodiscard]] const std::vector<Piece>& pieces(int page) const { return pages_[page]; }
    /// The area between the margins, in twips.
    [[nodiscard]] QRectF body() const { return body_; }
    [[nodiscard]] const PageSetup& setup() const { return setup_; }

    /// Paints the page into `paper`, the rectangle of the whole paper in the painter's coordinates. Where the painter
    /// clips, what lies outside is left out.
    void paintPage(QPainter& painter, int page, const QRectF& paper) const;

  private:
    void lay(std::size_t block, const Paragraph& paragraph);
    void lay(std::size_t block, const Table& table);
    void lay(std::size_t block, const Gap& gap);
    void lay(std::size_t block, const PageBreak& pageBreak);
    void lay(std::size_t block, const Figure& figure);
    void lay(std::size_t block, const Together& together);
    void layBlocks(std::size_t first, std::size_t end);
    /// Widens margins that are too narrow for the header or the footer.
    void fitBody();
    void beginPage();
    /// Puts lines on the current page and on as many further pages as they need. `topOfPage` is called on each new
    /// page.
    template <class TopOfPage>
    void flow(std::size_t block, int row, const TextRow& text, TopOfPage topOfPage);
    void place(std::size_t block, int row, const TextRow& text, int firstLine, int lines);
    void paintFigure(QPainter& painter, const Figure& figure, const Piece& piece) const;
    void paintMargin(QPainter& painter, const QString& text, int page, double top) const;
    [[nodiscard]] double marginTextHeight() const;
    [[nodiscard]] double room() const { return body_.bottom() - y_; }
    /// Whether the page holds nothing yet but titles that stay.
    [[nodiscard]] bool isFresh() const { return y_ <= top_; }

    const Document& document_;
    PageSetup setup_;
    QRectF body_;
    std::vector<std::vector<Piece>> pages_;
    std::size_t next_ = 0;               ///< The first block that is not on a page yet.
    std::optional<std::size_t> titles_;  ///< The table whose titles stay.
    double top_ = 0;                     ///< Where the page begins, below the titles that stay.
    double y_ = 0;
};

}  // namespace printing
