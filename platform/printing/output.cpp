#include "platform/printing/output.h"

#include <algorithm>
#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

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

/// Prints the pages from `first` to `last`, which count from 0. Returns whether that succeeded.
template <class Device>
bool paintPages(Device& device, const PageLayout& layout, int first, int last) {
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    for (int page = first; page <= last; ++page) {
        if (page > first && !device.newPage())
            return false;
        layout.paintPage(painter, page, QRectF(0, 0, device.width(), device.height()));
    }
    return painter.end();
}

/// Writes a file through `write`, which returns whether it succeeded. Throws PrintError where it did not.
template <class Write>
void saveFile(const QString& path, Write write) {
    QSaveFile file(path);
    // What is left in the buffer may not fit on the disk, which commit would not see.
    if (!file.open(QIODevice::WriteOnly) || !write(file) || !file.flush() || !file.commit())
        throw PrintError(
            text("The file %1 could not be written: %2.").arg(QDir::toNativeSeparators(path), file.errorString()));
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
    int first = 1;
    int last = layout.pageCount();
    if (printer.printRange() == QPrinter::CurrentPage)
        first = last = currentPage;
    else if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
        first = printer.fromPage();
        last = std::max(first, printer.toPage());
    }
    if (first > layout.pageCount())
        throw PrintError(text("The document has no page %1. It ends with page %2.").arg(first).arg(layout.pageCount()));
    last = std::min(last, layout.pageCount());
    if (!paintPages(printer, layout, first - 1, last - 1) || printer.printerState() == QPrinter::Error)
        throw PrintError(text("The printer could not be reached, or refused the document."));
}

void SavePdf(const Document& document, const QString& path) {
    const PageLayout layout(document);
    saveFile(path, [&](QSaveFile& file) {
        QPdfWriter writer(&file);
        writer.setResolution(PdfDotsPerInch);
        writer.setPageLayout(qtLayout(document.setup));
        writer.setTitle(document.title);
        writer.setCreator(QCoreApplication::applicationName());
        return paintPages(writer, layout, 0, layout.pageCount() - 1);
    });
}

void SaveHtml(const Document& document, const QString& path) {
    saveFile(path, [&](QSaveFile& file) { return files::WriteAll(file, HtmlText(document).toUtf8()); });
}

}  // namespace printing
