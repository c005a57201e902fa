#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Prints one line for each measured thing: the bare engine's time (the limit), ours, and their ratio, medians of the
/// repetitions of one run. A benchmark's name is "what/size/bare" or "what/size/ours".
class RatioReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

  private:
    struct Pair {
        double bare = 0;
        double ours = 0;
    };
    std::vector<std::string> order_;
    std::map<std::string, Pair> pairs_;
};
