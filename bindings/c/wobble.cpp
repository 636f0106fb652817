// Wobble paths from plain arrays of doubles.

#include <cmath>
#include <limits>
#include <vector>

#include <param/params/wobbleParam.h>
#include <param/wobble/wobblePathProc.h>

#include "internal/capi.h"

namespace {
constexpr double kMaxPoints = 1e8;  // 1.6 GB of output
}  // namespace

extern "C" {

param_error param_wobble(const double* wobble, size_t wobble_count, const double* xy,
                         size_t point_count, double** out_xy, size_t* out_count) {
  if (out_xy == nullptr || out_count == nullptr) return PARAM_C_INVALID_ARGUMENT;
  *out_xy = nullptr;
  *out_count = 0;
  if (wobble == nullptr || wobble_count != PARAM_WOBBLE_PARAM_COUNT ||
      (xy == nullptr && point_count > 0) ||
      point_count > std::numeric_limits<std::size_t>::max() / (2 * sizeof(double))) {
    return PARAM_C_INVALID_ARGUMENT;
  }
  for (std::size_t i = 0; i < wobble_count; ++i) {
    if (!std::isfinite(wobble[i])) return PARAM_C_INVALID_ARGUMENT;
  }
  // The type is an integer field: refuse what it cannot hold rather than wrap.
  if (wobble[1] != std::floor(wobble[1]) || std::fabs(wobble[1]) > 2147483647.0) {
    return PARAM_C_INVALID_ARGUMENT;
  }
  return param_c::guarded([&] {
    param::WobbleParam p;
    p.bEnable = wobble[0] != 0.0;
    p.wobbleType = static_cast<std::int32_t>(wobble[1]);
    p.wobbleDiaX = static_cast<float>(wobble[2]);
    p.wobbleDiaY = static_cast<float>(wobble[3]);
    p.wobbleSpace = static_cast<float>(wobble[4]);
    std::vector<param::Point2d> in(point_count);
    for (std::size_t i = 0; i < point_count; ++i)
      in[i] = param::Point2d(xy[2 * i], xy[2 * i + 1]);
    // 48 points per period: refuse a figure too fine for its path rather than
    // exhaust memory (a host passing 1e-3 mm over a 1 km line, say).
    double length = 0;
    for (std::size_t i = 1; i < point_count; ++i)
      length += std::hypot(in[i].x - in[i - 1].x, in[i].y - in[i - 1].y);
    if (p.bEnable && p.wobbleSpace > 0 && length / p.wobbleSpace * 48.0 > kMaxPoints) {
      return param_error{utils::errc::payloadTooLarge};
    }
    std::vector<param::Point2d> out;
    param::WobblePathProc proc;
    proc.setWobblePar(p);
    proc.doWobble(in, out);
    auto* buffer = static_cast<double*>(std::malloc(out.size() * 2 * sizeof(double) + 1));
    if (buffer == nullptr) return param_error{param::errc::outOfMemory};
    for (std::size_t i = 0; i < out.size(); ++i) {
      buffer[2 * i] = out[i].x;
      buffer[2 * i + 1] = out[i].y;
    }
    *out_xy = buffer;
    *out_count = out.size();
    return param_error{0};
  });
}

}  // extern "C"
