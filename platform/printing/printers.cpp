#include "platform/printing/printers.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"

namespace {

bool realAnyInstalled() {
    const BusyPointer busy;
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

bool realChoose(QPrinter& printer, int pages) {
    QPrintDialog dialog(&printer);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
    dialog.setMinMax(1, pages);
    return ShowModal(dialog) == QDialog::Accepted;
}

}  // namespace

PrinterSeams RealPrinters() {
    return {realAnyInstalled, realChoose};
}

PrinterSeams& Printers() {
    static PrinterSeams seams = RealPrinters();
    return seams;
}
