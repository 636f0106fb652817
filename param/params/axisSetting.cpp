#include <param/params/axisSetting.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxisSetting> auto& r) {
  io("axisId", r.axisId, "axis number");
  io("axisEnable", r.axisEnable, "the axis is in use");
  io("bRevRot", r.bRevRot, "reverse the direction of rotation");
  io("bRotAxis", r.bRotAxis, "rotary (not linear) axis");
  io("pitchPulse", r.pitchPulse, "pulses per revolution");
  io("screwPitch", r.screwPitch, "travel per revolution");
  io("maxRunSpeed", r.maxRunSpeed, "highest running speed");
  io("maxStartSpeed", r.maxStartSpeed, "highest start speed");
  io("maxAccSpeed", r.maxAccSpeed, "highest acceleration");
  io("zeroEnable", r.zeroEnable, "homing enabled");
  io("zeroRevert", r.zeroRevert, "home in the reverse direction");
  io("zeroSignal", r.zeroSignal, "home switch input");
  io("zeroStartSpeed", r.zeroStartSpeed, "homing start speed");
  io("zeroRunSpeed", r.zeroRunSpeed, "homing speed");
  io("zeroAcc", r.zeroAcc, "homing acceleration");
  io("zeroOffset", r.zeroOffset, "offset of the zero position from the home switch");
  io("zeroPreciseRunSpeed", r.zeroPreciseRunSpeed, "slow speed of the precise homing pass");
  io("zeroOrder", r.zeroOrder, "homing order among the axes");
  io("zeroTimeout", r.zeroTimeout, "homing time-out");
  io("limitEnable", r.limitEnable, "software travel limits active");
  io("limitLeftPosition", r.limitLeftPosition, "lower travel limit");
  io("limitRightPosition", r.limitRightPosition, "upper travel limit");
  io("signalValidType", r.signalValidType, "active level of the home signal (0 or 1)");
  io("leftLimitValidType", r.leftLimitValidType, "active level of the lower limit switch");
  io("rightLimitValidType", r.rightLimitValidType, "active level of the upper limit switch");
  io("gearRatio", r.gearRatio, "gear ratio");
  io("gapCompensate", r.gapCompensate, "backlash compensation");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(AxisSetting)

}  // namespace param
