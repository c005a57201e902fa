#pragma once

#include <QString>

#include "output/report.h"

class VSPrinter;

/// Returns the request as far as the user's rights reach: a user without all providers gets the own schedule, whatever
/// provider was asked for.
[[nodiscard]] ReportRequest WithinRights(ReportRequest request);

/// Returns the lines of a text of `report_headers`. Its bars part what stands at the left, in the centre and at the
/// right of a page's margin; as a heading, each part has a line of its own.
[[nodiscard]] QString HeadingLines(const QString& header);

/// Empties the document and begins a report on its first page: the title, the dates and the provider ("All Providers"
/// where the request has none). Title and dates also stand at the foot of each page, beside its number. `above` is a
/// text over the title, or "".
void BeginReport(VSPrinter& vp, const QString& title, const ReportRequest& request, const QString& above = {});
