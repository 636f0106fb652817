#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/seri/seriObject.h>

namespace param {

// Text marked along the rotation of a cylinder of `diameter`: the rotary axis
// `axisId` turns the workpiece under the scanner character by character.
// Members are named after their JSON keys and saved in this order.
struct PARAM_API AxRotTextCtrlData : ExtParam {
  std::int32_t axisId = 0;
  std::int32_t mainDir = 0;
  float diameter = 20.0f;
  bool bPathHeadOn = false;
  bool bToZero = false;
  bool bRedMarkToZero = false;
  float blockGapCompensate = 0.0f;

  AxRotTextCtrlData() = default;
  AxRotTextCtrlData(const AxRotTextCtrlData&) = default;
  AxRotTextCtrlData& operator=(const AxRotTextCtrlData&) = default;
  ~AxRotTextCtrlData() override;

  AxRotTextCtrlData* clone() const override;
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  [[nodiscard]] SdkError save(SeriObject& obj) const override;
};

}  // namespace param
