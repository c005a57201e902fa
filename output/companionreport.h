#pragma once

#include "output/report.h"

class VSPrinter;

/// The schedule of the companion database on paper, in the order of time; `request.provider` is a ProvId. An event
/// series stands on its first day only. Clients without a kind of number and rows that begin at midnight, which are no
/// appointments, are left out.
///
/// The connection to the companion is opened for the report and closed behind it. Returns whether the report is whole:
/// when `step` ends it, or when the companion fails, of which the user is told, the document ends as far as it got.
/// Hidden names are hidden as in doschedule.
bool DoScheduleFH(const ReportRequest& request, VSPrinter& vp, const ReportStep& step);
