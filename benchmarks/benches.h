#pragma once

#include <benchmark/benchmark.h>

void RegisterBookingBenches();
void RegisterLookUpBenches();
void RegisterRecurrenceBenches();
void RegisterViewBenches();
void RegisterStartUpBenches();
void RegisterScrollBenches();
void RegisterSearchBenches();
