#pragma once

// The console reporter of the peer benchmark, which also keeps the time of
// every "<job>/<encoding>/<contender>" benchmark and prints, after the run, a
// Markdown table of each job with the library's time divided by each peer's.
// With --benchmark_repetitions the table takes the median of the repetitions.

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
  // Seconds per iteration, by benchmark name; medians reported as aggregates.
  std::map<std::string, std::vector<double>> samples_;
  std::map<std::string, double> medians_;
  std::vector<std::string> order_;  // "<job>/<encoding>" as first run

  double seconds(const std::string& name) const;  // < 0 when it did not run
};

}  // namespace peers
