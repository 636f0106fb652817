#include <param/params/stepMarkParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<StepMarkParam> auto& r) {
  io("bEnable", r.bEnable);
  io("stepDelay", r.stepDelay);
  io("stepLen", r.stepLen);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(StepMarkParam)

}  // namespace param
