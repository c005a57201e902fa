#pragma once

#include "platform/printing/printdocument.h"

class QPrinter;
class QWidget;

/// Makes a document for paper, shows it, prints it and writes it into a file. Lengths are in twips (1440 to the inch),
/// font sizes in points. The same text is at the same place in the preview, in the file and on every printer.
///
///     VSPrinter vp;
///     vp.SetHeader("|Appointments|");
///     vp.SetFooter("||Page %d");
///     vp.AddTable({.widths = {2880, 1440},
///                  .titles = {"Description", "Date"},
///                  .rows = {{"Jones, Mary", "03/07/2026"}}});
///     vp.Preview(this);
///
/// Font, alignment and indent apply to what is added after them. Margins, paper, header and footer apply to the whole
/// document.
class VSPrinter {
  public:
    /// Begins with an empty document in Arial 10 on this country's paper, with margins of 1/2 inch at the sides and 3/4
    /// inch above and below.
    VSPrinter();

    /// Empties the document and resets font, alignment and indent. Page setup and title stay.
    void StartDoc();
    /// Sets the document's name for the preview, the printer's queue and a proposed file name.
    void SetTitle(const QString& title) { document_.title = title; }
    /// Sets the text at the top of each page, "left|centre|right". "%d" in it is the page's number. Margins that are
    /// too narrow for it are widened.
    void SetHeader(const QString& header) { document_.header = header; }
    void SetFooter(const QString& footer) { document_.footer = footer; }
    void SetOrientation(QPageLayout::Orientation orientation) { document_.setup.orientation = orientation; }
    void SetPaper(const QPageSize& paper) { document_.setup.paper = paper; }
    void SetMargins(const printing::PageMargins& margins) { document_.setup.margins = margins; }

    void SetFontName(const QString& family);
    /// Sets the font's size in points, above 0.
    void SetFontSize(double points) { font_.setPointSizeF(points); }
    void SetFontBold(bool bold) { font_.setBold(bold); }
    void SetFontItalic(bool italic) { font_.setItalic(italic); }
    /// Sets left, centre, right or justified.
    void SetTextAlign(Qt::Alignment alignment) { alignment_ = alignment; }
    /// Sets the distance of paragraphs from the left margin.
    void SetIndent(int twips) { indent_ = twips; }

    /// Adds a paragraph. A line end in the text also ends the line on paper. An empty text is an empty line.
    void AddParagraph(const QString& text);
    /// Leaves an empty height.
    void AddSpace(int twips);
    void NewPage();
    /// Adds a table. Its titles are repeated on each page that the table reaches, and a row is divided between pages
    /// only when it is higher than a page. A table without columns, or with a column whose width is not above 0, throws
    /// std::invalid_argument.
    void AddTable(printing::TableContent content, const printing::TableLook& look = {});

    /// Adds what `add` adds, and keeps it on one page where it fits on one.
    void AddTogether(const std::function<void()>& add);

    /// Adds a picture that fills the rest of the page; see printing::Figure.
    void AddFigure(std::function<void(QPainter& painter, const QRectF& room)> paint);

    [[nodiscard]] const printing::Document& Document() const { return document_; }
    /// The number of pages, at least 1.
    [[nodiscard]] int PageCount() const;

    /// Shows the pages in frmpreview, where the user can print them or save them as a PDF. Returns when that form is
    /// closed, and whether the user did one of the two.
    bool Preview(QWidget* parent) const;
    /// Prints the pages chosen in the printer's settings on the printer's own paper. Throws PrintError.
    void PrintDoc(QPrinter& printer) const;
    /// Writes a PDF. Throws PrintError; the file then keeps its old contents.
    void SavePdf(const QString& path) const;
    /// Writes the document as one HTML page without header, footer and pictures. Throws PrintError as SavePdf does.
    void ExportHtml(const QString& path) const;

  private:
    printing::Document document_;
    QFont font_;
    Qt::Alignment alignment_;
    int indent_ = 0;
};
