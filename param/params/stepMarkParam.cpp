#include <param/params/stepMarkParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<StepMarkParam> auto& r) {
  io("bEnable", r.bEnable, "step marking on");
  io("stepDelay", r.stepDelay, "delay at each step");
  io("stepLen", r.stepLen, "length of one step");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(StepMarkParam)

}  // namespace param
