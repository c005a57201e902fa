#pragma once

#include <benchmark/benchmark.h>

void RegisterBookingBenches();
void RegisterLookUpBenches();
void RegisterDayBenches();
void RegisterStartUpBenches();
void RegisterScrollBenches();
