#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include <param/export.h>

namespace param {

// The motion commands a host sends to an extension axis (see AxisSetting and
// AxisRunData for the axis itself). Plain values with constructors and
// assignment; they are handed to the board, never saved. Positions, speeds and
// accelerations are in the units of the board's motion commands (travel per
// second, travel per second squared; degrees for a rotary axis), as the axis
// records use them. A speed or acceleration of 0 asks the board for the axis's
// own run data.

// Moves one axis to a position, or by a distance.
struct PARAM_API AxisMoveParam {
  std::int32_t axisId = 0;
  float target = 0.0f;      // the position to reach, or the distance when bRelative
  bool bRelative = false;   // target is a distance from the current position
  float startSpeed = 0.0f;  // speed at the start of the ramp
  float runSpeed = 0.0f;    // speed after the ramp
  float accSpeed = 0.0f;    // acceleration of the ramp
  bool bWaitDone = true;    // the command returns only when the axis has stopped

  AxisMoveParam() = default;
  AxisMoveParam(std::int32_t axis, float to, bool relative = false)
      : axisId(axis), target(to), bRelative(relative) {}
};

// Homes one axis: runs to its home switch and makes that position zero.
struct PARAM_API AxisMoveZeroParam {
  std::int32_t axisId = 0;
  float zeroStartSpeed = 0.0f;  // speed at the start of the homing ramp
  float zeroRunSpeed = 0.0f;    // speed towards the switch
  float zeroAcc = 0.0f;         // acceleration of the homing ramp
  bool bPreciseZero = true;     // a second, slow pass onto the switch
  bool bWaitDone = true;        // the command returns only when homing has ended

  AxisMoveZeroParam() = default;
  explicit AxisMoveZeroParam(std::int32_t axis, bool precise = true)
      : axisId(axis), bPreciseZero(precise) {}
};

// Moves several axes together so that they start and arrive at the same time.
struct PARAM_API AxisLinkageParam {
  static constexpr std::int32_t maxAxes = 4;

  std::int32_t axisCount = 0;                      // used entries of axisIds and targets
  std::array<std::int32_t, maxAxes> axisIds = {};  // the axes taking part
  std::array<float, maxAxes> targets = {};         // each axis's position or distance
  bool bRelative = false;                          // targets are distances
  float startSpeed = 0.0f;                         // path speed at the start of the ramp
  float runSpeed = 0.0f;                           // path speed after the ramp
  float accSpeed = 0.0f;                           // path acceleration
  bool bWaitDone = true;                           // return only when all axes stopped

  AxisLinkageParam() = default;
  // Takes the first min(ids.size(), to.size(), maxAxes) axes and targets.
  AxisLinkageParam(std::span<const std::int32_t> ids, std::span<const float> to,
                   bool relative = false)
      : bRelative(relative) {
    const std::size_t n = std::min({ids.size(), to.size(), axisIds.size()});
    std::copy_n(ids.begin(), n, axisIds.begin());
    std::copy_n(to.begin(), n, targets.begin());
    axisCount = static_cast<std::int32_t>(n);
  }
};

// Switches the drive of one axis on or off.
struct PARAM_API AxisEnableParam {
  std::int32_t axisId = 0;
  bool bEnable = true;

  AxisEnableParam() = default;
  AxisEnableParam(std::int32_t axis, bool enable) : axisId(axis), bEnable(enable) {}
};

// Clears one axis's position counter (the current position becomes
// `position`) and, on request, its drive alarm.
struct PARAM_API AxisClearParam {
  std::int32_t axisId = 0;
  bool bClearPosition = true;
  float position = 0.0f;  // the new value of the position counter
  bool bClearAlarm = false;

  AxisClearParam() = default;
  explicit AxisClearParam(std::int32_t axis, float newPosition = 0.0f)
      : axisId(axis), position(newPosition) {}
};

// Stops one axis, or every axis.
struct PARAM_API AxisStopParam {
  std::int32_t axisId = 0;
  bool bAllAxes = false;    // stop every axis; axisId is then ignored
  bool bImmediate = false;  // stop at once instead of on a deceleration ramp
  float decSpeed = 0.0f;    // deceleration of the ramp

  AxisStopParam() = default;
  explicit AxisStopParam(std::int32_t axis, bool immediate = false)
      : axisId(axis), bImmediate(immediate) {}
};

// Sends the mechanics and limits of one axis to the board. Defaults as those
// of a new AxisSetting.
struct PARAM_API AxisConfigParam {
  std::int32_t axisId = 0;
  bool bRotAxis = false;            // rotary (not linear) axis
  bool bRevRot = false;             // reverse direction of rotation
  std::int32_t pitchPulse = 10000;  // pulses per revolution
  float screwPitch = 10.0f;         // travel per revolution
  float gearRatio = 1.0f;
  float maxRunSpeed = 320.0f;
  float maxStartSpeed = 100.0f;
  float maxAccSpeed = 255.0f;
  bool limitEnable = false;  // software travel limits
  float limitLeftPosition = -9999.0f;
  float limitRightPosition = 9999.0f;

  AxisConfigParam() = default;
  AxisConfigParam(std::int32_t axis, bool rotary) : axisId(axis), bRotAxis(rotary) {}
};

}  // namespace param
