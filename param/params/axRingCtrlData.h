#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/seri/seriObject.h>

namespace param {

// Ring marking: a closed band round a cylinder of `diameter`, marked while the
// rotary axis `axisId` turns it.
// Members are named after their JSON keys and saved in this order.
struct PARAM_API AxRingCtrlData : ExtParam {
  std::int32_t axisId = 0;
  std::int32_t mainDir = 0;
  float diameter = 20.0f;
  bool bPathHeadOn = false;
  bool bToZero = false;
  bool bRedMarkToZero = false;

  AxRingCtrlData() = default;
  AxRingCtrlData(const AxRingCtrlData&) = default;
  AxRingCtrlData& operator=(const AxRingCtrlData&) = default;
  ~AxRingCtrlData() override;

  AxRingCtrlData* clone() const override;
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  [[nodiscard]] SdkError save(SeriObject& obj) const override;
};

}  // namespace param
