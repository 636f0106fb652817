#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// The static description of one extension axis (linear stage or rotary axis):
// mechanics, speed limits, homing and limit switches. Units are those of the
// board's motion commands.
//
// load and save are virtual (the first two virtual slots, in that order) so
// that a host can extend the record.
struct PARAM_API AxisSetting {
  std::int32_t axisId = 0;
  bool axisEnable = true;
  bool bRevRot = false;             // reverse direction of rotation
  bool bRotAxis = false;            // rotary, not linear
  std::int32_t pitchPulse = 10000;  // pulses per revolution
  float screwPitch = 10.0f;         // travel per revolution
  float maxRunSpeed = 320.0f;
  float maxStartSpeed = 100.0f;
  float maxAccSpeed = 255.0f;
  bool zeroEnable = false;  // homing
  bool zeroRevert = false;  // home in the reverse direction
  std::int32_t zeroSignal = 0;
  float zeroStartSpeed = 2.0f;
  float zeroRunSpeed = 100.0f;
  float zeroAcc = 100.0f;
  float zeroOffset = 0.0f;
  float zeroPreciseRunSpeed = 10.0f;
  std::int32_t zeroOrder = 0;
  std::int32_t zeroTimeout = 100;
  bool limitEnable = false;  // software travel limits
  float limitLeftPosition = -9999.0f;
  float limitRightPosition = 9999.0f;
  std::int32_t signalValidType = 0;  // active level of the home signal, 0 or 1
  std::int32_t leftLimitValidType = 0;
  std::int32_t rightLimitValidType = 0;
  float gearRatio = 1.0f;
  float gapCompensate = 0.0f;  // backlash compensation

  AxisSetting() = default;
  AxisSetting(const AxisSetting&) = default;
  AxisSetting(AxisSetting&&) = default;
  AxisSetting& operator=(const AxisSetting&) = default;
  AxisSetting& operator=(AxisSetting&&) = default;

  [[nodiscard]] virtual SdkError load(const SeriObject& obj);
  [[nodiscard]] virtual SdkError save(SeriObject& obj) const;
  // Declared after load and save, which keep the first two virtual slots.
  virtual ~AxisSetting() = default;

  std::int32_t id() const { return axisId; }
  // Inverts the home signal level: 0 becomes 1, anything else becomes 0.
  void revertZeroLevel() { signalValidType = signalValidType == 0 ? 1 : 0; }
};

}  // namespace param
