#pragma once

#include <functional>

#include "platform/printing/printdocument.h"

class QPrinter;

namespace printing {

/// Prints a document on the printer's own paper. It prints the pages chosen in the printer's settings, in their order
/// and as many copies as chosen; a printer that makes copies by itself gets each page once. For the setting "current
/// page" the page is `currentPage`, which counts from 1. Throws PrintError when the document has none of the pages or
/// the printer fails.
void PrintOn(QPrinter& printer, const Document& document, int currentPage = 1);
/// Returns the printer's paper with the given margins.
[[nodiscard]] PageSetup SetupOf(const QPrinter& printer, const PageMargins& margins);
/// Gives the printer the document's paper and title.
void GiveSetup(QPrinter& printer, const Document& document);

/// Hears of each page that is done, from 1, and of how many there are. Returns whether to go on.
using PageStep = std::function<bool(int page, int pages)>;

/// These routines write a file whole or not at all. They throw PrintError when it cannot be written.
/// Returns false where `step` has ended it.
bool SavePdf(const Document& document, const QString& path, const PageStep& step = {});
void SaveHtml(const Document& document, const QString& path);
/// Returns the document as one HTML page, without its header, footer and pictures.
[[nodiscard]] QString HtmlText(const Document& document);

}  // namespace printing
