#pragma once

#include <benchmark/benchmark.h>

struct Practice;

void RegisterBookingBenches();
void RegisterLookUpBenches();
void RegisterRecurrenceBenches();
void RegisterViewBenches();
void RegisterCompanionBenches();
void RegisterStartUpBenches();
void RegisterScrollBenches();
void RegisterSearchBenches();
void RegisterNoteBenches();
void RegisterReportBenches();
void RegisterBoardBenches();
void RegisterWaitBenches();

/// How often each action asks a server, in a table of its own: a number that the engine has no part in.
void PrintTrips(const Practice& practice);
