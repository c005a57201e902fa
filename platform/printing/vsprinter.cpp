#include "platform/printing/vsprinter.h"

#include <QLocale>
#include <stdexcept>

#include "platform/desktop/desktop.h"
#include "platform/printing/frmpreview.h"
#include "platform/printing/output.h"
#include "platform/printing/pagelayout.h"

namespace {

constexpr double BodyPoints = 10;
constexpr double MarginPoints = 9;

/// With fonts as narrow as Arial behind the family, for where it is not there: the widths of the tables count on that.
QStringList familiesFrom(const QString& family) {
    return {family, QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("Helvetica"),
            QStringLiteral("DejaVu Sans Condensed")};
}

QFont arial(double points) {
    QFont font;
    font.setFamilies(familiesFrom(QStringLiteral("Arial")));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    return font;
}

QPageSize countryPaper() {
    const bool american = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(american ? QPageSize::Letter : QPageSize::A4);
}

/// The parts of "a|b;c|d;" between row ends; nothing after the last one is no row.
QStringList rowsOf(const QString& text) {
    QStringList rows = text.split(u';');
    if (rows.last().isEmpty())
        rows.removeLast();
    return rows;
}

std::vector<int> widthsOf(const QString& format) {
    std::vector<int> widths;
    const QString row = rowsOf(format).value(0);
    for (const QString& width : row.split(u'|')) {
        bool isNumber = false;
        widths.push_back(width.trimmed().toInt(&isNumber));
        if (!isNumber || widths.back() <= 0)
            throw std::invalid_argument("A table's format is widths above 0: " + format.toStdString());
    }
    return widths;
}

}  // namespace

VSPrinter::VSPrinter() {
    document_.marginFont = arial(MarginPoints);
    document_.setup.paper = countryPaper();
    StartDoc();
}

void VSPrinter::StartDoc() {
    document_.blocks.clear();
    font_ = arial(BodyPoints);
    alignment_ = Qt::AlignLeft;
    indent_ = 0;
}

void VSPrinter::SetFontName(const QString& family) {
    font_.setFamilies(familiesFrom(family));
}

void VSPrinter::AddParagraph(const QString& text) {
    document_.blocks.emplace_back(printing::Paragraph{text, font_, alignment_, indent_});
}

void VSPrinter::AddSpace(int twips) {
    document_.blocks.emplace_back(printing::Gap{twips});
}

void VSPrinter::NewPage() {
    document_.blocks.emplace_back(printing::PageBreak());
}

void VSPrinter::AddTable(const QString& format, const QString& header, const QString& body, const TableLook& look) {
    printing::Table table;
    table.widths = widthsOf(format);
    if (!header.isEmpty())
        table.titles = rowsOf(header).value(0).split(u'|');
    for (const QString& row : rowsOf(body))
        table.rows.push_back(row.split(u'|'));
    table.font = font_;
    table.grid = look.grid;
    table.titleShading = look.titleShading;
    table.shading = look.shading;
    document_.blocks.emplace_back(std::move(table));
}

void VSPrinter::AddFigure(std::function<void(QPainter& painter, const QRectF& room)> paint) {
    document_.blocks.emplace_back(printing::Figure{std::move(paint)});
}

int VSPrinter::PageCount() const {
    return printing::PageLayout(document_).pageCount();
}

void VSPrinter::Preview(QWidget* parent) const {
    frmpreview form(document_, parent);
    ShowModal(form);
}

void VSPrinter::PrintDoc(QPrinter& printer) const {
    printing::PrintOn(printer, document_);
}

void VSPrinter::SavePdf(const QString& path) const {
    printing::SavePdf(document_, path);
}

void VSPrinter::ExportHtml(const QString& path) const {
    printing::SaveHtml(document_, path);
}
