#include "benchmarks/ratioreporter.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr double frameMilliseconds = 16.0;

std::string cut(const std::string& name, std::size_t from, std::size_t to) {
    return name.substr(from, to == std::string::npos ? to : to - from);
}

}  // namespace

bool RatioReporter::ReportContext(const Context&) {
    return true;
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            std::printf("%s failed: %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
            continue;
        }
        if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median")
            continue;
        const std::string& name = run.run_name.function_name;
        const std::size_t side = name.rfind('/');
        const std::string key = cut(name, 0, side);
        if (!pairs_.contains(key))
            order_.push_back(key);
        const double milliseconds = run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e3;
        (cut(name, side + 1, std::string::npos) == "bare" ? pairs_[key].bare : pairs_[key].ours) = milliseconds;
    }
}

void RatioReporter::Finalize() {
    std::printf("%-40s %-6s %12s %12s %8s %22s\n", "what", "size", "bare ms", "ours ms", "ratio", "beyond 2 x bare");
    for (const std::string& key : order_) {
        const Pair& pair = pairs_[key];
        const std::size_t size = key.rfind('/');
        const double beyond = pair.ours - 2 * pair.bare;
        std::printf("%-40s %-6s %12.3f %12.3f %8.2f %11.3f ms, %4.1f frames\n", cut(key, 0, size).c_str(),
                    cut(key, size + 1, std::string::npos).c_str(), pair.bare, pair.ours, pair.ours / pair.bare,
                    std::max(beyond, 0.0), std::max(beyond, 0.0) / frameMilliseconds);
    }
}
