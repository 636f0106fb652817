#include <param/params/penParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<PenParam> auto& r) {
  io("penId", r.penId);
  io("penName", r.penName);
  io("bEnable", r.bEnable);
  io("markCount", r.markCount);
  io("runSpeed", r.runSpeed);
  io("laserPower", r.laserPower);
  io("effectWaitTime", r.effectWaitTime);
  io("current", r.current);
  io("laserFreq", r.laserFreq);
  io("pulseWidth", r.pulseWidth);
  io("mopaPulse", r.mopaPulse);
  io("openDelay", r.openDelay);
  io("shutDelay", r.shutDelay);
  io("endDelay", r.endDelay);
  io("cornerDelay", r.cornerDelay);
  io("bChangeCornerDelay", r.bChangeCornerDelay);
  io("pointTime", r.pointTime);
  io("openBehind", r.openBehind);
  io("jumpSpeed", r.jumpSpeed);
  io("jumpMinDelay", r.jumpMinDelay);
  io("jumpMaxDelay", r.jumpMaxDelay);
  io("jumpMaxDist", r.jumpMaxDist);
  io("pulsePoint", r.pulsePoint);
  io("stepMark", r.stepMark);
  io("wobble", r.wobble);
  io("optFocus", r.optFocus);
  io("extParam", r.extParam);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(PenParam)

}  // namespace param
