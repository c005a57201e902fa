#pragma once

#include "output/report.h"

class VSPrinter;

/// Makes the "Missed Appointment/Cancellation Report": the missed and cancelled appointments by provider and status,
/// and their numbers. All providers are told for a user who may see them and has chosen none (`creportall`), otherwise
/// one (`creportsingle`). A user without that right gets the own schedule.
///
/// Returns whether the report is whole. It is not when `step` ends it, or when the database fails: the user is then
/// told, and the document holds what came before. The numbers stand only in a whole report.
[[nodiscard]] bool docancelreport(const ReportRequest& request, VSPrinter& vp, const ReportStep& step);
