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

SdkError StepMarkParam::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError StepMarkParam::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
