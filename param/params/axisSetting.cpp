#include <param/params/axisSetting.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxisSetting> auto& r) {
  io("axisId", r.axisId);
  io("axisEnable", r.axisEnable);
  io("bRevRot", r.bRevRot);
  io("bRotAxis", r.bRotAxis);
  io("pitchPulse", r.pitchPulse);
  io("screwPitch", r.screwPitch);
  io("maxRunSpeed", r.maxRunSpeed);
  io("maxStartSpeed", r.maxStartSpeed);
  io("maxAccSpeed", r.maxAccSpeed);
  io("zeroEnable", r.zeroEnable);
  io("zeroRevert", r.zeroRevert);
  io("zeroSignal", r.zeroSignal);
  io("zeroStartSpeed", r.zeroStartSpeed);
  io("zeroRunSpeed", r.zeroRunSpeed);
  io("zeroAcc", r.zeroAcc);
  io("zeroOffset", r.zeroOffset);
  io("zeroPreciseRunSpeed", r.zeroPreciseRunSpeed);
  io("zeroOrder", r.zeroOrder);
  io("zeroTimeout", r.zeroTimeout);
  io("limitEnable", r.limitEnable);
  io("limitLeftPosition", r.limitLeftPosition);
  io("limitRightPosition", r.limitRightPosition);
  io("signalValidType", r.signalValidType);
  io("leftLimitValidType", r.leftLimitValidType);
  io("rightLimitValidType", r.rightLimitValidType);
  io("gearRatio", r.gearRatio);
  io("gapCompensate", r.gapCompensate);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(AxisSetting)

}  // namespace param
