#pragma once

// The console reporter of the peer benchmark, which also keeps the time of
// every "<job>/<encoding>/<contender>" benchmark and prints, after the run, a
// Markdown table of each job with the library's time divided by each peer's.
// With --benchmark_repetitions the table takes the fastest repetition (the
// "min" statistic the benchmarks add): on a shared machine the one that other
// work disturbed least.

#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace peers {

class SummaryReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;
  void printSummary() const;

 private:
  // Seconds per iteration, by benchmark name; the fastest reported as the "min" aggregate.
  std::map<std::string, std::vector<double>> samples_;
  std::map<std::string, double> fastest_;

  double seconds(const std::string& name) const;  // < 0 when it did not run
};

}  // namespace peers
