#include "platform/printing/vsprinter.h"

#include <algorithm>
#include <QLocale>
#include <stdexcept>

#include "platform/desktop/desktop.h"
#include "platform/printing/frmpreview.h"
#include "platform/printing/output.h"
#include "platform/printing/pagelayout.h"
#include "platform/printing/paperfont.h"

namespace {

constexpr double BodyPoints = 10;
constexpr double MarginPoints = 9;

QPageSize countryPaper() {
    const bool american = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(american ? QPageSize::Letter : QPageSize::A4);
}

}  // namespace

VSPrinter::VSPrinter() {
    document_.marginFont = printing::PaperFont(QStringLiteral("Arial"), MarginPoints);
    document_.setup.paper = countryPaper();
    StartDoc();
}

void VSPrinter::StartDoc() {
    document_.blocks.clear();
    font_ = printing::PaperFont(QStringLiteral("Arial"), BodyPoints);
    alignment_ = Qt::AlignLeft;
    indent_ = 0;
}

void VSPrinter::SetFontName(const QString& family) {
    font_.setFamilies(printing::PaperFont(family, BodyPoints).families());
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

void VSPrinter::AddTable(printing::TableContent content, const printing::TableLook& look) {
    const bool hasWidths = std::ranges::all_of(content.widths, [](int width) { return width > 0; });
    if (content.widths.empty() || !hasWidths)
        throw std::invalid_argument("A table's columns have widths above 0.");
    document_.blocks.emplace_back(printing::Table{std::move(content), look, font_});
}

void VSPrinter::AddTogether(const std::function<void()>& add) {
    const std::size_t marker = document_.blocks.size();
    document_.blocks.emplace_back(printing::Together());
    add();
    std::get<printing::Together>(document_.blocks[marker]).blocks = document_.blocks.size() - marker - 1;
}

void VSPrinter::AddFigure(std::function<void(QPainter& painter, const QRectF& room)> paint) {
    document_.blocks.emplace_back(printing::Figure{std::move(paint)});
}

int VSPrinter::PageCount() const {
    return printing::PageLayout(document_).pageCount();
}

bool VSPrinter::Preview(QWidget* parent) const {
    frmpreview form(document_, parent);
    ShowModal(form);
    return form.HasPrinted();
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
