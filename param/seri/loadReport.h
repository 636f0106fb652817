#pragma once

// What a load skipped: every key that a load could not read and left at its
// value, with where it is and what was there.
//
//   param::LoadReport report;            // collects on this thread while it lives
//   pens.load(table);
//   for (const param::SkippedKey& k : report.entries())
//     show(k.path, param::errorText(k.code), k.found, k.kept);
//
// Each such key is also logged with the tag "Param": a missing key (normal for
// a document of an older build) at Info level, any other failure (wrong JSON
// type, out of range, ...) at Warning level. Neither the report nor the log
// changes what the error handler is asked or what its answer does.

#include <cstddef>
#include <string>
#include <vector>

#include <utils/error.h>

#include <param/export.h>

namespace param {

using utils::SdkError;

// For record walkers: marks the member at the top of utils::KeyPath as failed
// with `code`, logs it and hands it to the innermost LoadReport.
PARAM_API void reportSkippedKey(SdkError code, std::string found, std::string kept);

// One key a load could not read.
struct SkippedKey {
  // From the outermost record loaded: "params[3].laserPower",
  // "axParArray[1].setting.axisId", "vDivStep[2]".
  std::string path;
  // utils::errc::keyMissing, wrongType or outOfRange, or whatever the member's
  // own rules refused it with.
  SdkError code = 0;
  // The JSON text found under the key ("\"75\"", "1e+20"); empty when missing.
  std::string found;
  // The JSON text of the value the member kept, as it would be saved. For an
  // element of a list (read all or nothing), the whole list that was kept.
  std::string kept;
};

// Collects the keys skipped by every load on this thread while it lives. The
// host places one around one or more loads, then reads entries(). Collectors
// nest: only the innermost one receives entries, the outer ones resume when it
// is gone. Make and destroy a collector on the same thread, in nested order.
class PARAM_API LoadReport {
 public:
  LoadReport();
  ~LoadReport();
  LoadReport(const LoadReport&) = delete;
  LoadReport& operator=(const LoadReport&) = delete;

  // In the order the keys were met.
  const std::vector<SkippedKey>& entries() const { return entries_; }
  bool empty() const { return entries_.empty(); }
  std::size_t size() const { return entries_.size(); }
  void clear() { entries_.clear(); }

  // Hands `entry` to this thread's innermost collector, if any: what
  // reportSkippedKey does after logging. Hosts have no need to call it.
  static void deliver(SkippedKey&& entry);

 private:
  LoadReport* outer_;
  std::vector<SkippedKey> entries_;
};

}  // namespace param
