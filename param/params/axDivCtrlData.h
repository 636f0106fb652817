#pragma once

#include <cstdint>
#include <vector>

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/seri/seriObject.h>

namespace param {

// Division marking: the job is cut into blocks marked one after the other while
// the rotary axis `axisId` advances the workpiece (of `diameter`) between them.
// Members are named after their JSON keys and saved in this order.
//
// "vDivStep" is loaded all or nothing. A missing key or one that is not an
// array goes through the error-response step like any other key. An element
// that is not a number ends the whole load at once with its code, without
// asking the error handler (the remaining keys are not read), and the list
// keeps its previous content.
struct PARAM_API AxDivCtrlData : ExtParam {
  std::int32_t axisId = 0;
  std::int32_t mainDir = 0;
  float stepLen = 5.0f;
  float diameter = 20.0f;
  bool bDivMark = false;
  std::vector<float> vDivStep;  // per-block steps; empty: every block advances `stepLen`
  bool bToZero = false;
  bool bRedMarkToZero = false;
  float dislocCompensate = 0.0f;
  float blockGapCompensate = 0.0f;

  AxDivCtrlData() = default;
  AxDivCtrlData(const AxDivCtrlData&) = default;
  AxDivCtrlData(AxDivCtrlData&&) noexcept = default;
  AxDivCtrlData& operator=(const AxDivCtrlData&) = default;
  AxDivCtrlData& operator=(AxDivCtrlData&&) noexcept = default;
  ~AxDivCtrlData() override;

  AxDivCtrlData* clone() const override;
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  [[nodiscard]] SdkError save(SeriObject& obj) const override;
};

}  // namespace param
