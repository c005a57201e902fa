#pragma once

#include <functional>
#include <optional>
#include <QColor>
#include <QFont>
#include <QPageLayout>
#include <QSizeF>
#include <QStringList>
#include <variant>
#include <vector>

class QPainter;

/// A document for paper, as values. Lengths are in twips: 1440 to the inch, 20 to the point.
namespace printing {

inline constexpr int TwipsPerInch = 1440;
inline constexpr int TwipsPerPoint = 20;

struct PageMargins {
    int left = 720;
    int top = 1080;
    int right = 720;
    int bottom = 1080;
    friend bool operator==(const PageMargins&, const PageMargins&) = default;
};

/// The paper. Margins belong to the page as it is read: when the paper is turned, they are not.
struct PageSetup {
    QPageSize paper{QPageSize::Letter};
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    PageMargins margins;

    /// Returns the size of the page as it is read.
    [[nodiscard]] QSizeF sizeTwips() const;
    friend bool operator==(const PageSetup&, const PageSetup&) = default;
};

/// Text over the width between the margins. It is broken into lines, and a line end in the text also ends the line on
/// paper.
struct Paragraph {
    QString text;
    QFont font;
    Qt::Alignment alignment = Qt::AlignLeft;
    int indent = 0;  ///< The distance from the left margin.
};

/// The content of a table. Long cells break into lines, and a line end in a cell also ends the line on paper. Missing
/// cells of a row are empty, and surplus cells are added to its last one.
struct TableContent {
    std::vector<int> widths;  ///< The columns' widths, above 0. ColumnScale fits them to the page.
    QStringList titles = {};  ///< Empty for a table without a row of titles.
    std::vector<QStringList> rows = {};
};

/// The look of a table. The default has grid lines and shaded titles.
struct TableLook {
    bool grid = true;
    bool titleShading = true;
    std::optional<QColor> shading = std::nullopt;  ///< The colour behind the rows.
    std::vector<bool> shadedRows = {};             ///< Which rows have that colour; empty for all of them.
    /// In HTML, the texts of the cells are headings of this level, 1 to 6; 0 for a table of data.
    int headingLevel = 0;
    /// Whether the titles also stand on top of all further pages, above whatever follows the table, until a later table
    /// has titles that stay.
    bool titlesStay = false;
};

/// Rows of cells under column titles. The titles are repeated on top of each page that the table reaches. A row is
/// divided between two pages only when it is higher than a page.
struct Table : TableContent, TableLook {
    QFont font;

    /// Returns the colour behind a row, if it has one.
    [[nodiscard]] std::optional<QColor> shadingOf(std::size_t row) const {
        const bool isShaded = shadedRows.empty() || (row < shadedRows.size() && shadedRows[row]);
        return isShaded ? shading : std::nullopt;
    }
};

/// Empty height.
struct Gap {
    int height = 0;
};

/// Begins a new page.
struct PageBreak {};

/// A picture that fills the rest of its page. It is painted each time the page is shown or printed, in dots of which
/// there are 96 to the inch.
struct Figure {
    std::function<void(QPainter& painter, const QRectF& room)> paint;
};

/// Keeps the following blocks on one page where they fit on one.
struct Together {
    std::size_t blocks = 0;
};

using Block = std::variant<Paragraph, Table, Gap, PageBreak, Figure, Together>;

struct Document {
    QString title;   ///< The name in the print queue and in the preview.
    QString header;  ///< "left|centre|right" on each page. "%d" is the page's number.
    QString footer;  ///< The footer in the same form.
    QFont marginFont;
    PageSetup setup;
    std::vector<Block> blocks;
};

}  // namespace printing
