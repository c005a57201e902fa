#pragma once

#include "output/report.h"

class VSPrinter;

/// Makes the report "Courtesy Calls - Reminder Status": a table of the patients' appointments, group members among
/// them, with the state of their reminder calls. A user without the right to all providers gets the own schedule.
///
/// Returns whether the report is whole. It is not when `step` ends it, or when the database fails: the user is then
/// told, and the document holds what came before.
[[nodiscard]] bool CourtesyCallStatusReport(const ReportRequest& request, VSPrinter& vp, const ReportStep& step);
