#pragma once

#include <filesystem>
#include <string>

#include <utils/error.h>
#include <utils/export.h>

namespace utils {

// A file system path. A thin value wrapper over std::filesystem::path with the
// few operations the document and manager code need.
//
// Narrow strings are UTF-8 on every platform and are taken as the bytes given:
// on POSIX systems they are the file name's bytes, on Windows they are
// converted from UTF-8 to the native wide form. Nothing here depends on the
// process locale, so names in any script work in the C locale too.
class UTILS_API path {
 public:
  path() = default;
  path(const char* p);                                 // NOLINT: implicit by design
  path(const std::string& p);                          // NOLINT
  path(std::filesystem::path p) : p_(std::move(p)) {}  // NOLINT

  const std::filesystem::path& native() const { return p_; }
  // The path as UTF-8 (on POSIX systems: its bytes as they are).
  std::string string() const;
  // The path as wide characters; bytes that are not UTF-8 become U+FFFD.
  std::wstring wstring() const;
  bool empty() const { return p_.empty(); }
  bool exists() const;

  // The extension with its dot (".cfg"), empty when there is none.
  std::string getExtensionA() const { return path(p_.extension()).string(); }
  std::wstring getExtensionW() const { return path(p_.extension()).wstring(); }
  std::wstring filenameW() const { return path(p_.filename()).wstring(); }

  // This path with its last component replaced by `filename`: the same directory.
  path replaceFilename(const std::filesystem::path& filename) const;

  // Renames `from` to `to`, replacing an existing `to`. On POSIX systems the
  // target's directory is then flushed to disk (best effort), so that the new
  // name survives a crash. A failure is recorded (utils::lastFileFailure).
  [[nodiscard]] static SdkError rename(const path& from, const path& to);
  // As rename, but fails (EEXIST in utils::lastFileFailure) rather than replace
  // an existing `to`.
  static SdkError renameNoReplace(const path& from, const path& to);

  friend bool operator==(const path& a, const path& b) { return a.p_ == b.p_; }

 private:
  std::filesystem::path p_;
};

}  // namespace utils
