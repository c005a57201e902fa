#pragma once

#include <benchmark/benchmark.h>

void RegisterBookingBenches();
void RegisterLookUpBenches();
void RegisterRecurrenceBenches();
void RegisterDayBenches();
void RegisterStartUpBenches();
void RegisterScrollBenches();
