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
    if (run.run_type != Run::RT_Aggregate) {
      samples_[name].push_back(value);
    } else if (run.aggregate_name == "min") {
      fastest_[name] = value;
    }
  }
}

double SummaryReporter::seconds(const std::string& name) const {
  if (const auto f = fastest_.find(name); f != fastest_.end()) return f->second;
  const auto s = samples_.find(name);
  if (s == samples_.end()) return -1;
  return *std::min_element(s->second.begin(), s->second.end());
}

void SummaryReporter::printSummary() const {
  // In the order the benchmarks are registered, whatever order they ran in.
  std::vector<std::string> rows;
  for (const char* encoding : kEncodingNames) {
    for (const char* job : {"read/", "write/"}) {
      const std::string row = job + std::string(encoding);
      if (seconds(row + "/" + contenders().front().name) >= 0) rows.push_back(row);
    }
  }
  if (rows.empty()) return;
  std::printf(
      "\nWall time per job, fastest repetition (param ÷ peer: below 1 the library is "
      "faster)\n\n| job |");
  for (const Contender& c : contenders())
    std::printf(" %s |", c.title);
  std::printf("\n|---|");
  for (std::size_t i = 0; i < contenders().size(); ++i)
    std::printf("---|");
  std::printf("\n");
  for (const std::string& row : rows) {
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
  // An LZMA job against the bare codec plus the same job in base64.
  const struct {
    const char* job;
    const char* codec;
  } lzmaRows[] = {{"read", kBareXzName}, {"write", kBareXzEncodeName}};
  for (const auto& row : lzmaRows) {
    const std::string job = row.job;
    const double lzma = seconds(job + "/lzma/param");
    const double base64 = seconds(job + "/base64/param");
    const double xz = seconds(row.codec);
    if (lzma < 0 || base64 < 0 || xz < 0) continue;
    std::printf("\n%s/lzma ÷ (%s + %s/base64): %.2f ms ÷ (%.2f ms + %.2f ms) = %.2f", row.job,
                row.codec, row.job, lzma * 1e3, xz * 1e3, base64 * 1e3, lzma / (xz + base64));
  }
  std::printf("\n");
  std::fflush(stdout);
}

}  // namespace peers
