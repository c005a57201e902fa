#pragma once

#include <functional>

class QPrinter;

/// The printers of this computer, as the program reaches them; a test puts its own functions here.
struct PrinterSeams {
    std::function<bool()> anyInstalled;
    /// Lets the user choose printer, pages and copies for a document of so many pages; false where they give up.
    std::function<bool(QPrinter& printer, int pages)> choose;
};
PrinterSeams& Printers();
/// What the program itself uses: the real printers and the desktop's print window.
PrinterSeams RealPrinters();
