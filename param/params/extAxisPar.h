#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/axisRunData.h>
#include <param/params/axisSetting.h>
#include <param/seri/seriObject.h>

namespace param {

// One extension axis: its static setting and its motion profile. load and
// save are its first two virtual slots, in that order.
struct PARAM_API ExtAxisPar {
  AxisSetting setting;
  AxisRunData runData;

  ExtAxisPar() = default;
  ExtAxisPar(const ExtAxisPar&) = default;
  ExtAxisPar(ExtAxisPar&&) = default;
  ExtAxisPar& operator=(const ExtAxisPar&) = default;
  ExtAxisPar& operator=(ExtAxisPar&&) = default;

  [[nodiscard]] virtual SdkError load(const SeriObject& obj);
  [[nodiscard]] virtual SdkError save(SeriObject& obj) const;
  // Declared after load and save, which keep the first two virtual slots.
  virtual ~ExtAxisPar() = default;

  std::int32_t id() const { return setting.axisId; }
};

}  // namespace param
