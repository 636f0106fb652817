#include <param/params/gpoPar.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GpoPar> auto& r) {
  io("bEnable", r.bEnable);
  io("index", r.index);
  io("bLevel", r.bLevel);
  io("outTime", r.outTime);
  io("delayMode", r.delayMode);
  io("delayValue", r.delayValue);
  return io.result();
}
}  // namespace

SdkError GpoPar::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError GpoPar::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
