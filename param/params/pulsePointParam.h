#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// Pulse-point marking of a pen (key "pulsePoint"): points are shot with a
// fixed number of pulses instead of a dwell time.
struct PARAM_API PulsePointParam {
  bool bEnable = false;
  std::uint32_t pulsePerPoint = 10;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
