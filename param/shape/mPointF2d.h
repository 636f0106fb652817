#pragma once

#include <cstdint>

namespace param {

// A path point as the marking side stores it: coordinates and a 32-bit flag word.
struct MPointF2d {
  double x = 0.0;
  double y = 0.0;
  std::int32_t flag = 0;

  constexpr MPointF2d() = default;
  constexpr MPointF2d(double px, double py, std::int32_t pflag = 0) : x(px), y(py), flag(pflag) {}

  friend constexpr bool operator==(const MPointF2d&, const MPointF2d&) = default;
};

}  // namespace param
