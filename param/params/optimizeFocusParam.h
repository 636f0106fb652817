#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// Focus optimisation of a pen (key "optFocus").
struct PARAM_API OptimizeFocusParam {
  bool bEnable = false;
  std::uint32_t startTime = 1000;
  std::uint32_t endTime = 1000;
  float interrupAngle = 0.0f;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
