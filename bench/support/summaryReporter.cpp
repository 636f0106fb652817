#include "summaryReporter.h"

#include <algorithm>
#include <cstdio>

#include "contenders.h"

namespace peers {

void SummaryReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    if (run.error_occurred) continue;
    const std::string& name = run.run_name.function_name;
    const double value =
        run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
    if (run.run_type == Run::RT_Aggregate) {
      if (run.aggregate_name == "median") medians_[name] = value;
      continue;
    }
    samples_[name].push_back(value);
    const std::string row = name.substr(0, name.rfind('/'));
    if (std::find(order_.begin(), order_.end(), row) == order_.end()) order_.push_back(row);
  }
}

double SummaryReporter::seconds(const std::string& name) const {
  if (const auto m = medians_.find(name); m != medians_.end()) return m->second;
  const auto s = samples_.find(name);
  if (s == samples_.end()) return -1;
  std::vector<double> v = s->second;
  std::sort(v.begin(), v.end());
  const std::size_t n = v.size();
  return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

void SummaryReporter::printSummary() const {
  if (order_.empty()) return;
  std::printf("\nTime per job (param ÷ peer: below 1 the library is faster)\n\n| job |");
  for (const Contender& c : contenders())
    std::printf(" %s |", c.title);
  std::printf("\n|---|");
  for (std::size_t i = 0; i < contenders().size(); ++i)
    std::printf("---|");
  std::printf("\n");
  for (const std::string& row : order_) {
    const double library = seconds(row + "/param");
    std::printf("| %s |", row.c_str());
    for (const Contender& c : contenders()) {
      const double t = seconds(row + "/" + c.name);
      if (t < 0) {
        std::printf(" |");
      } else if (library < 0 || c.name == contenders().front().name) {
        std::printf(" %.2f ms |", t * 1e3);
      } else {
        std::printf(" %.2f ms (%.2fx) |", t * 1e3, library / t);
      }
    }
    std::printf("\n");
  }
  std::fflush(stdout);
}

}  // namespace peers
