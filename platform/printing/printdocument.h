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

/// The paper. Margins are of the page as it is read, so that turning it does not turn them.
struct PageSetup {
    QPageSize paper{QPageSize::Letter};
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    PageMargins margins;

    /// Of the page as it is read.
    [[nodiscard]] QSizeF sizeTwips() const;
    friend bool operator==(const PageSetup&, const PageSetup&) = default;
};

/// Text over the width between the margins, broken into lines; a line end in the text is one on paper.
struct Paragraph {
    QString text;
    QFont font;
    Qt::Alignment alignment = Qt::AlignLeft;
    int indent = 0;  ///< From the left margin.
};

/// What a table says. Long cells break into lines, and a line end in a cell is one on paper. A row's missing cells are
/// empty, and what it has too much goes into its last cell.
struct TableContent {
    std::vector<int> widths;  ///< Of the columns, above 0; all are narrowed alike where they are wider than the page.
    QStringList titles = {};  ///< None: the table has no row of titles.
    std::vector<QStringList> rows = {};
};

/// How a table looks; as given, with grid lines and shaded titles.
struct TableLook {
    bool grid = true;
    bool titleShading = true;
    std::optional<QColor> shading = std::nullopt;  ///< Behind the rows.
};

/// Rows of cells under column titles. The titles stand again on top of each page that the table reaches, and a row is
/// divided between two pages only when it is higher than a page.
struct Table : TableContent, TableLook {
    QFont font;
};

/// Empty height.
struct Gap {
    int height = 0;
};

/// What follows begins a page.
struct PageBreak {};

/// A picture that fills what is left of its page. It is painted as often as the page is looked at or printed, in dots
/// of which there are 96 to the inch.
struct Figure {
    std::function<void(QPainter& painter, const QRectF& room)> paint;
};

using Block = std::variant<Paragraph, Table, Gap, PageBreak, Figure>;

struct Document {
    QString title;   ///< What a print queue and the preview call it.
    QString header;  ///< "left|centre|right", on each page; "%d" is the page's number.
    QString footer;  ///< The same at the foot.
    QFont marginFont;
    PageSetup setup;
    std::vector<Block> blocks;
};

}  // namespace printing
