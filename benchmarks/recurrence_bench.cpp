#include "benchmarks/benches.h"
#include "data/recurrence.h"

namespace {

constexpr int daysWalked = 5000;

// As many dates, asked for no more than their weekday.
void bareWalk(benchmark::State& state) {
    for (auto _ : state) {
        QDate date(2026, 3, 11);
        int sum = 0;
        for (int day = 0; day <= daysWalked; ++day) {
            sum += date.dayOfWeek();
            date = date.addDays(1);
        }
        benchmark::DoNotOptimize(sum);
    }
}

void ourWalk(benchmark::State& state) {
    RecurrencePattern pattern;
    pattern.patternLoaded = true;
    pattern.startDate = QDate(2026, 3, 11);
    pattern.recurType = RecurrencePattern::Type::Monthly;
    pattern.monthlyUseThe = true;
    pattern.monthlyScale = RecurrencePattern::Last;
    pattern.monthlyWeekday = 6;
    for (auto _ : state)
        benchmark::DoNotOptimize(BRGetDateStream(pattern));
}

}  // namespace

void RegisterRecurrenceBenches() {
    benchmark::RegisterBenchmark("A series' walk over its days/5000/bare", bareWalk)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("A series' walk over its days/5000/ours", ourWalk)->Unit(benchmark::kMillisecond);
}
