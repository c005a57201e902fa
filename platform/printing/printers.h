#pragma once

#include <functional>

class QPrinter;

/// The program's access to the printers of this computer. A test replaces these functions by its own.
struct PrinterSeams {
    std::function<bool()> anyInstalled;
    /// Lets the user choose printer, pages and copies for a document of that many pages. Returns false when the user
    /// gives up.
    std::function<bool(QPrinter& printer, int pages)> choose;
};
PrinterSeams& Printers();
/// Returns the functions that the program itself uses: the real printers and the desktop's print window.
PrinterSeams RealPrinters();
