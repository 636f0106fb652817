#include <utils/path.h>

#include <system_error>

namespace utils {

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
  return ec ? errc::fileIoError : 0;
}

}  // namespace utils
