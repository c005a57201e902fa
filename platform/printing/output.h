#pragma once

#include "platform/printing/printdocument.h"

class QPrinter;

namespace printing {

/// Prints the pages that the printer was told to, on the paper it was told; throws PrintError. A printer that is told
/// the current page prints `currentPage`, which counts from 1.
void PrintOn(QPrinter& printer, const Document& document, int currentPage = 1);
/// The paper of a printer with the document's margins, and back.
[[nodiscard]] PageSetup SetupOf(const QPrinter& printer, const PageMargins& margins);
void GiveSetup(QPrinter& printer, const Document& document);

/// Write a file whole or not at all; throw PrintError.
void SavePdf(const Document& document, const QString& path);
void SaveHtml(const Document& document, const QString& path);
/// The document as one HTML page, without what stands in its margins.
[[nodiscard]] QString HtmlText(const Document& document);

}  // namespace printing
