#pragma once

#include <filesystem>
#include <string>

#include <utils/error.h>
#include <utils/export.h>

namespace utils {

// A file system path. A thin value wrapper over std::filesystem::path with the
// few operations the document and manager code need.
class UTILS_API path {
 public:
  path() = default;
  path(const char* p) : p_(p ? p : "") {}              // NOLINT: implicit by design
  path(const std::string& p) : p_(p) {}                // NOLINT
  path(std::filesystem::path p) : p_(std::move(p)) {}  // NOLINT

  const std::filesystem::path& native() const { return p_; }
  std::string string() const { return p_.string(); }
  std::wstring wstring() const { return p_.wstring(); }
  bool empty() const { return p_.empty(); }
  bool exists() const;

  // The extension with its dot (".cfg"), empty when there is none.
  std::string getExtensionA() const { return p_.extension().string(); }
  std::wstring getExtensionW() const { return p_.extension().wstring(); }
  std::wstring filenameW() const { return p_.filename().wstring(); }

  // This path with its last component replaced by `filename`: the same directory.
  path replaceFilename(const std::filesystem::path& filename) const;

  // Renames `from` to `to`, replacing an existing `to`. On POSIX systems the
  // target's directory is then flushed to disk (best effort), so that the new
  // name survives a crash.
  [[nodiscard]] static SdkError rename(const path& from, const path& to);

  friend bool operator==(const path& a, const path& b) { return a.p_ == b.p_; }

 private:
  std::filesystem::path p_;
};

}  // namespace utils
