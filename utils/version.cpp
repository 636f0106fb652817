#include <utils/version.h>

#include <charconv>

namespace utils {

const Version Version::g_sdkBuildVersion{UTILS_VERSION_MAJOR, UTILS_VERSION_MINOR,
                                         UTILS_VERSION_PATCH, UTILS_VERSION_TWEAK + 0};

std::string Version::toString() const {
  std::string out;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i != 0) out += '.';
    out += std::to_string(parts[i]);
  }
  return out;
}

bool Version::fromString(std::string_view text) {
  std::array<std::uint32_t, 4> read{};
  const char* p = text.data();
  const char* end = p + text.size();
  std::size_t count = 0;
  bool ok = !text.empty();
  while (ok && count < read.size()) {
    auto res = std::from_chars(p, end, read[count]);
    if (res.ec != std::errc() || res.ptr == p) {
      ok = false;
      break;
    }
    ++count;
    p = res.ptr;
    if (p == end) break;
    if (*p != '.' || p + 1 == end) ok = false;
    ++p;
  }
  if (!ok || p != end) {
    parts = {};
    return false;
  }
  parts = read;
  return true;
}

}  // namespace utils
