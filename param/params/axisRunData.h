#pragma once

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// The motion profile an extension axis runs with. load and save are its first
// two virtual slots, in that order.
struct PARAM_API AxisRunData {
  float startSpeed = 2.0f;
  float runSpeed = 10.0f;
  float accSpeed = 10.0f;
  bool bPreciseZero = true;

  AxisRunData() = default;
  AxisRunData(const AxisRunData&) = default;
  AxisRunData(AxisRunData&&) = default;
  AxisRunData& operator=(const AxisRunData&) = default;
  AxisRunData& operator=(AxisRunData&&) = default;

  [[nodiscard]] virtual SdkError load(const SeriObject& obj);
  [[nodiscard]] virtual SdkError save(SeriObject& obj) const;
  // Declared after load and save, which keep the first two virtual slots.
  virtual ~AxisRunData() = default;
};

}  // namespace param
