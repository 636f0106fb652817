#include <utils/path.h>

#include <system_error>

#include <utils/fileError.h>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace utils {

namespace {

// Makes a rename in `directory` survive a crash by flushing the directory
// itself. Best effort: some file systems cannot fsync a directory, and the
// rename has already happened either way.
void syncDirectory([[maybe_unused]] const std::filesystem::path& directory) {
#ifndef _WIN32
  const std::filesystem::path dir = directory.empty() ? std::filesystem::path(".") : directory;
  const int fd = ::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  (void)fsync(fd);
  ::close(fd);
#endif
}

}  // namespace

#ifdef _WIN32
path::path(const char* p) : p_(std::u8string(reinterpret_cast<const char8_t*>(p ? p : ""))) {}
path::path(const std::string& p)
    : p_(std::u8string(reinterpret_cast<const char8_t*>(p.data()), p.size())) {}

std::string path::string() const {
  const std::u8string u8 = p_.u8string();
  return std::string(reinterpret_cast<const char*>(u8.data()), u8.size());
}

std::wstring path::wstring() const {
  return p_.native();
}
#else
path::path(const char* p) : p_(p ? p : "") {}
path::path(const std::string& p) : p_(p) {}

std::string path::string() const {
  return p_.native();
}

// Decodes UTF-8 by hand: std::filesystem would go through the locale and throw
// for any non-ASCII name in the C locale.
std::wstring path::wstring() const {
  const std::string& s = p_.native();
  std::wstring out;
  out.reserve(s.size());
  for (std::size_t i = 0; i < s.size();) {
    const auto b = static_cast<unsigned char>(s[i]);
    const int extra = b < 0x80         ? 0
                      : (b >> 5) == 6  ? 1
                      : (b >> 4) == 14 ? 2
                      : (b >> 3) == 30 ? 3
                                       : -1;
    char32_t c = extra == 0 ? b : extra == 1 ? (b & 0x1f) : extra == 2 ? (b & 0x0f) : (b & 0x07);
    bool ok = extra >= 0 && i + static_cast<std::size_t>(extra) < s.size();
    for (int k = 1; ok && k <= extra; ++k) {
      const auto t = static_cast<unsigned char>(s[i + static_cast<std::size_t>(k)]);
      ok = (t & 0xc0) == 0x80;
      c = (c << 6) | (t & 0x3f);
    }
    // Overlong forms, surrogates and values past U+10FFFF are not UTF-8.
    static constexpr char32_t kMin[4] = {0, 0x80, 0x800, 0x10000};
    if (ok && extra > 0 && (c < kMin[extra] || c > 0x10ffff || (c >= 0xd800 && c <= 0xdfff))) {
      ok = false;
    }
    if (!ok) {
      out += static_cast<wchar_t>(0xfffd);
      ++i;
      continue;
    }
    if constexpr (sizeof(wchar_t) == 2) {
      if (c >= 0x10000) {
        out += static_cast<wchar_t>(0xd800 + ((c - 0x10000) >> 10));
        out += static_cast<wchar_t>(0xdc00 + ((c - 0x10000) & 0x3ff));
        i += static_cast<std::size_t>(extra) + 1;
        continue;
      }
    }
    out += static_cast<wchar_t>(c);
    i += static_cast<std::size_t>(extra) + 1;
  }
  return out;
}
#endif

bool path::exists() const {
  std::error_code ec;
  return std::filesystem::exists(p_, ec);
}

path path::replaceFilename(const std::filesystem::path& filename) const {
  std::filesystem::path copy = p_;
  copy.replace_filename(filename);
  return path(std::move(copy));
}

SdkError path::rename(const path& from, const path& to) {
  std::error_code ec;
  clearFileFailure();
  std::filesystem::rename(from.p_, to.p_, ec);  // replaces an existing target
  if (ec)
    return recordFileFailure(errc::fileIoError, "rename", from,
                             ec.default_error_condition().value());
  syncDirectory(to.p_.parent_path());
  return errc::ok;
}

SdkError path::renameNoReplace(const path& from, const path& to) {
  clearFileFailure();
#ifdef _WIN32
  if (!MoveFileExW(from.p_.c_str(), to.p_.c_str(), MOVEFILE_WRITE_THROUGH)) {
    const DWORD error = GetLastError();
    return recordFileFailure(
        errc::fileIoError, "rename", from,
        error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS ? EEXIST : EIO);
  }
#else
#ifdef RENAME_NOREPLACE
  int rc = ::renameat2(AT_FDCWD, from.p_.c_str(), AT_FDCWD, to.p_.c_str(), RENAME_NOREPLACE);
#else
  int rc = -1;
  errno = ENOSYS;
#endif
  if (rc != 0 && (errno == EINVAL || errno == ENOSYS)) {
    // A file system that cannot refuse by itself: look first (a small race).
    struct stat st {};
    if (::lstat(to.p_.c_str(), &st) == 0) {
      errno = EEXIST;
    } else {
      rc = ::rename(from.p_.c_str(), to.p_.c_str());
    }
  }
  if (rc != 0) return recordFileFailure(errc::fileIoError, "rename", from, errno);
  syncDirectory(to.p_.parent_path());
#endif
  return errc::ok;
}

}  // namespace utils
