#pragma once

#include "platform/printing/printdocument.h"

class QPrinter;
class QWidget;

/// Makes a document for paper, shows it, prints it and writes it into a file. Lengths are in twips (1440 to the inch),
/// sizes of type in points. The same text stands at the same place in the preview, in the file and on every printer.
///
///     VSPrinter vp;
///     vp.SetHeader("|Appointments|");
///     vp.SetFooter("||Page %d");
///     vp.AddTable({.widths = {2880, 1440}, .titles = {"Description", "Date"}, .rows = {{"Jones, Mary",
///     "03/07/2026"}}}); vp.Preview(this);
///
/// Font, alignment and indent hold for what is added after them. Margins, paper, header and footer are the whole
/// document's.
class VSPrinter {
  public:
    /// An empty document in Arial 10 on the paper of this country, margins 1/2 inch at the sides, 3/4 above and below.
    VSPrinter();

    /// Empties the document and takes font, alignment and indent back to the first ones; page and title stay.
    void StartDoc();
    /// What the preview, the printer's queue and a proposed file name call the document.
    void SetTitle(const QString& title) { document_.title = title; }
    /// "left|centre|right" on each page, "%d" in it is the page's number. Margins too narrow for it grow.
    void SetHeader(const QString& header) { document_.header = header; }
    void SetFooter(const QString& footer) { document_.footer = footer; }
    void SetOrientation(QPageLayout::Orientation orientation) { document_.setup.orientation = orientation; }
    void SetPaper(const QPageSize& paper) { document_.setup.paper = paper; }
    void SetMargins(const printing::PageMargins& margins) { document_.setup.margins = margins; }

    void SetFontName(const QString& family);
    /// In points, above 0.
    void SetFontSize(double points) { font_.setPointSizeF(points); }
    void SetFontBold(bool bold) { font_.setBold(bold); }
    void SetFontItalic(bool italic) { font_.setItalic(italic); }
    /// Left, centre, right or justified.
    void SetTextAlign(Qt::Alignment alignment) { alignment_ = alignment; }
    /// Of paragraphs, from the left margin.
    void SetIndent(int twips) { indent_ = twips; }

    /// A line end in the text is one on paper; an empty text is an empty line.
    void AddParagraph(const QString& text);
    /// Moves down.
    void AddSpace(int twips);
    void NewPage();
    /// The titles stand on each page that the table reaches, and a row is divided between pages only when it is higher
    /// than a page. A table without columns, or with one whose width is not above 0, throws std::invalid_argument.
    void AddTable(printing::TableContent content, const printing::TableLook& look = {});

    /// A picture that fills what is left of the page; see printing::Figure.
    void AddFigure(std::function<void(QPainter& painter, const QRectF& room)> paint);

    [[nodiscard]] const printing::Document& Document() const { return document_; }
    /// At least 1.
    [[nodiscard]] int PageCount() const;

    /// Shows the pages (frmpreview), from where the user prints them or saves them as a PDF; waits until that closes.
    void Preview(QWidget* parent) const;
    /// Prints on the printer's own paper, the pages that it was told to; throws PrintError.
    void PrintDoc(QPrinter& printer) const;
    /// Writes a PDF; throws PrintError, and what the file held before is still there then.
    void SavePdf(const QString& path) const;
    /// Writes the document as one HTML page without header and footer; throws PrintError as SavePdf does.
    void ExportHtml(const QString& path) const;

  private:
    printing::Document document_;
    QFont font_;
    Qt::Alignment alignment_;
    int indent_ = 0;
};
