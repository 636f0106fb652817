#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// Step marking of a pen (key "stepMark"): lines are marked in short steps with
// a pause after each.
struct PARAM_API StepMarkParam {
  bool bEnable = false;
  std::uint32_t stepDelay = 100;
  float stepLen = 0.02f;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
