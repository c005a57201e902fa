#pragma once

#include <benchmark/benchmark.h>

void RegisterDayBenches();
void RegisterStartUpBenches();
void RegisterScrollBenches();
