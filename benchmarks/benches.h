#pragma once

#include <benchmark/benchmark.h>

void RegisterBookingBenches();
void RegisterDayBenches();
void RegisterStartUpBenches();
void RegisterScrollBenches();
