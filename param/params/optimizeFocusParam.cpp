#include <param/params/optimizeFocusParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<OptimizeFocusParam> auto& r) {
  io("bEnable", r.bEnable);
  io("startTime", r.startTime);
  io("endTime", r.endTime);
  io("interrupAngle", r.interrupAngle);
  return io.result();
}
}  // namespace

SdkError OptimizeFocusParam::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError OptimizeFocusParam::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
