#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

#include <utils/export.h>

namespace utils {

// A four-part version number, "1.2.3.4" in text. 0.0.0.0 is not a valid version.
struct UTILS_API Version {
  std::array<std::uint32_t, 4> parts{};

  constexpr Version() = default;
  constexpr Version(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d)
      : parts{a, b, c, d} {}

  std::string toString() const;

  // Reads one to four dot-separated decimal numbers ("2", "1.2", "1.2.3.4");
  // missing trailing parts are 0. On anything else the version becomes 0.0.0.0
  // and false is returned.
  bool fromString(std::string_view text);

  bool isValid() const { return parts != std::array<std::uint32_t, 4>{}; }

  auto operator<=>(const Version&) const = default;

  // The version of this build, from the project version.
  static const Version g_sdkBuildVersion;
};

}  // namespace utils
