#include <utils/path.h>

#include <system_error>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
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
  std::filesystem::rename(from.p_, to.p_, ec);  // replaces an existing target
  if (ec) return errc::fileIoError;
  syncDirectory(to.p_.parent_path());
  return errc::ok;
}

}  // namespace utils
