#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/seri/seriObject.h>

namespace param {

// Marking on a cylinder in angle steps: the rotary axis `axisId` turns by
// `angleGap` degrees between marked sections, `circleCount` times round.
// Members are named after their JSON keys and saved in this order.
struct PARAM_API AxAngleCtrlData : ExtParam {
  std::int32_t axisId = 0;
  std::int32_t mainDir = 0;
  std::int32_t rotType = 1;
  std::int32_t circleCount = 5;
  float angleGap = 10.0f;
  bool bToZero = false;  // return the axis to zero after the job

  AxAngleCtrlData() = default;
  AxAngleCtrlData(const AxAngleCtrlData&) = default;
  AxAngleCtrlData& operator=(const AxAngleCtrlData&) = default;
  ~AxAngleCtrlData() override;

  AxAngleCtrlData* clone() const override;
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  [[nodiscard]] SdkError save(SeriObject& obj) const override;
};

}  // namespace param
