#include <param/params/pulsePointParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<PulsePointParam> auto& r) {
  io("bEnable", r.bEnable);
  io("pulsePerPoint", r.pulsePerPoint);
  return io.result();
}
}  // namespace

SdkError PulsePointParam::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError PulsePointParam::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
