#include "platform/printing/output.h"

#include <algorithm>
#include <numeric>
#include <QCoreApplication>
#include <QDir>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <vector>

#include "platform/files/writeall.h"
#include "platform/printing/pagelayout.h"
#include "platform/printing/printerror.h"

namespace printing {

namespace {

constexpr int PdfDotsPerInch = 1200;

QPageLayout qtLayout(const PageSetup& setup) {
    QPageLayout layout(setup.paper, setup.orientation, QMarginsF());
    // The margins are the document's own, and the printer's minimum must not refuse the layout.
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

QString text(const char* english) {
    return QCoreApplication::translate("Printing", english);
}

enum class End { Whole, Ended, Failed };

End endOf(bool succeeded) {
    return succeeded ? End::Whole : End::Failed;
}

/// Prints the pages in this order. They count from 0.
template <class Device>
End paintPages(Device& device, const PageLayout& layout, const std::vector<int>& pages, const PageStep& step = {}) {
    QPainter painter;
    if (!painter.begin(&device))
        return End::Failed;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (i > 0 && !device.newPage())
            return End::Failed;
        layout.paintPage(painter, pages[i], QRectF(0, 0, device.width(), device.height()));
        if (step && !step(static_cast<int>(i) + 1, static_cast<int>(pages.size())))
            return End::Ended;
    }
    return endOf(painter.end());
}

std::vector<int> allPages(const PageLayout& layout) {
    std::vector<int> pages(static_cast<std::size_t>(layout.pageCount()));
    std::iota(pages.begin(), pages.end(), 0);
    return pages;
}

/// Returns the pages of the document that the printer's settings choose, once each. They count from 0.
std::vector<int> chosenPages(const QPrinter& printer, const PageLayout& layout, int currentPage) {
    const QPageRanges ranges = printer.pageRanges();
    const bool isRange = printer.printRange() == QPrinter::PageRange && !ranges.isEmpty();
    std::vector<int> pages;
    for (const int page : allPages(layout)) {
        const bool isChosen = printer.printRange() == QPrinter::CurrentPage ? page + 1 == currentPage
                                                                            : !isRange || ranges.contains(page + 1);
        if (isChosen)
            pages.push_back(page);
    }
    if (pages.empty())
        throw PrintError(text("The document has no page %1. It ends with page %2.")
                             .arg(isRange ? ranges.toString() : QString::number(currentPage))
                             .arg(layout.pageCount()));
    return pages;
}

/// Returns the pages in the order in which the printer gets them.
std::vector<int> withCopies(const QPrinter& printer, std::vector<int> pages) {
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::ranges::reverse(pages);
    const int copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
    std::vector<int> all;
    if (printer.collateCopies())
        for (int copy = 0; copy < copies; ++copy)
            all.insert(all.end(), pages.begin(), pages.end());
    else
        for (const int page : pages)
            all.insert(all.end(), static_cast<std::size_t>(copies), page);
    return all;
}

/// Writes a file through `write`. Returns false where that was ended, and throws PrintError where it failed.
template <class Write>
bool saveFile(const QString& path, Write write) {
    QSaveFile file(path);
    const End end = file.open(QIODevice::WriteOnly) ? write(file) : End::Failed;
    if (end == End::Ended) {
        file.cancelWriting();
        return false;
    }
    // What is left in the buffer may not fit on the disk, which commit would not see.
    if (end == End::Failed || !file.flush() || !file.commit())
        throw PrintError(
            text("The file %1 could not be written: %2.").arg(QDir::toNativeSeparators(path), file.errorString()));
    return true;
}

}  // namespace

PageSetup SetupOf(const QPrinter& printer, const PageMargins& margins) {
    const QPageLayout layout = printer.pageLayout();
    return {layout.pageSize(), layout.orientation(), margins};
}

void GiveSetup(QPrinter& printer, const Document& document) {
    printer.setPageLayout(qtLayout(document.setup));
    printer.setDocName(document.title);
}

void PrintOn(QPrinter& printer, const Document& document, int currentPage) {
    printer.setFullPage(true);
    const PageLayout layout(document, SetupOf(printer, document.setup.margins));
    const std::vector<int> pages = withCopies(printer, chosenPages(printer, layout, currentPage));
    if (paintPages(printer, layout, pages) == End::Failed || printer.printerState() == QPrinter::Error)
        throw PrintError(text("The printer could not be reached, or refused the document."));
}

bool SavePdf(const Document& document, const QString& path, const PageStep& step) {
    const PageLayout layout(document);
    return saveFile(path, [&](QSaveFile& file) {
        QPdfWriter writer(&file);
        writer.setResolution(PdfDotsPerInch);
        writer.setPageLayout(qtLayout(document.setup));
        writer.setTitle(document.title);
        writer.setCreator(QCoreApplication::applicationName());
        return paintPages(writer, layout, allPages(layout), step);
    });
}

void SaveHtml(const Document& document, const QString& path) {
    saveFile(path, [&](QSaveFile& file) { return endOf(files::WriteAll(file, HtmlText(document).toUtf8())); });
}

}  // namespace printing
