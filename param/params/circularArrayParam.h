#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// Copies of a marked object around a circle. Members are named after their
// JSON keys and saved in this order.
struct PARAM_API CircularArrayParam {
  std::uint16_t count = 1;
  double radius = 10.0;
  bool clockwise = false;
  double startAngle = 90.0;
  double angleIncrease = 30.0;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

  // Count and direction equal, the radius exactly equal, the angles within 0.0001.
  bool operator==(const CircularArrayParam& other) const;
};

}  // namespace param
