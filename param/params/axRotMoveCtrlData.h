#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/seri/seriObject.h>

namespace param {

// Rotary movement marking: the rotary axis `axisId` and the scanner move
// together, the job's path being split between them. The speeds and
// accelerations are those of the combined path, of the motor and of the
// scanner; the two filters drop points closer than `fSamePosFilter` and smooth
// arcs sharper than `fSharpArcFilter`.
// Members are named after their JSON keys and saved in this order.
struct PARAM_API AxRotMoveCtrlData : ExtParam {
  std::int32_t axisId = 0;
  std::int32_t nProjectType = 0;
  float fDiameter = 25.5f;
  float fSpeed = 400.0f;
  float fAccSpeed = 12000.0f;
  float fSpeedMotor = 10.0f;
  float fAccSpeedMotor = 1000.0f;
  float fSpeedScan = 1000.0f;
  float fAccSpeedScan = 10000.0f;
  float fSamePosFilter = 0.1f;
  float fSharpArcFilter = 0.5f;
  float fSpeedStep = 1.0f;
  bool bToZero = false;
  bool bRedMarkToZero = false;

  AxRotMoveCtrlData() = default;
  AxRotMoveCtrlData(const AxRotMoveCtrlData&) = default;
  AxRotMoveCtrlData& operator=(const AxRotMoveCtrlData&) = default;
  ~AxRotMoveCtrlData() override;

  AxRotMoveCtrlData* clone() const override;
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  [[nodiscard]] SdkError save(SeriObject& obj) const override;
};

}  // namespace param
