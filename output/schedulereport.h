#pragma once

#include "output/report.h"

class VSPrinter;

// The schedule of the main database on paper. A user without the right to all providers gets the own schedule. Each
// routine adds its report to the document. It returns whether the report is whole: when `step` ends it, or when the
// database fails, of which the user is told, the document ends as far as it got. While patients' names are hidden, the
// report hides them, and with them everything that tells how to reach the patient, the account and the note.

/// The schedule of one provider, or of all, in one table. For all providers a column names the provider, and the order
/// By Provider is that of their ids; for one provider it is that of time.
bool doschedule(const ReportRequest& request, VSPrinter& vp, const ReportStep& step);

/// The schedule of all providers, one after the other, each under the name. A request for one provider makes
/// doschedule.
bool DoSchedule2(const ReportRequest& request, VSPrinter& vp, const ReportStep& step);
