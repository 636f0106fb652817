#include <param/params/penParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<PenParam> auto& r) {
  io("penId", r.penId, "pen number that marked objects refer to");
  io("penName", r.penName, "name of the pen");
  io("bEnable", r.bEnable, "the pen is enabled");
  io("markCount", r.markCount, "number of times an object is marked with this pen");
  io("runSpeed", r.runSpeed, "marking speed");
  io("laserPower", r.laserPower, "laser power");
  io("effectWaitTime", r.effectWaitTime, "time to wait for the pen's settings to take effect");
  io("current", r.current, "laser current");
  io("laserFreq", r.laserFreq, "laser frequency");
  io("pulseWidth", r.pulseWidth, "laser pulse width");
  io("mopaPulse", r.mopaPulse, "pulse setting of a MOPA source");
  io("openDelay", r.openDelay, "delay before the laser opens");
  io("shutDelay", r.shutDelay, "delay before the laser shuts");
  io("endDelay", r.endDelay, "delay at the end of a mark");
  io("cornerDelay", r.cornerDelay, "delay at a corner");
  io("bChangeCornerDelay", r.bChangeCornerDelay, "let the corner delay change");
  io("pointTime", r.pointTime, "time the laser dwells on a point");
  io("openBehind", r.openBehind, "laser opening behind the start");
  io("jumpSpeed", r.jumpSpeed, "speed of a jump, a move with the laser off");
  io("jumpMinDelay", r.jumpMinDelay, "shortest delay after a jump");
  io("jumpMaxDelay", r.jumpMaxDelay, "longest delay after a jump");
  io("jumpMaxDist", r.jumpMaxDist, "longest jump distance");
  io("pulsePoint", r.pulsePoint, "the pen's pulses-per-point marking");
  io("stepMark", r.stepMark, "the pen's step marking");
  io("wobble", r.wobble, "the pen's wobble figure");
  io("optFocus", r.optFocus, "the pen's focus optimisation");
  io("extParam", r.extParam, "the pen's extension record; an empty object when it has none");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(PenParam)

}  // namespace param
