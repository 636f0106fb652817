#include <param/params/gpiPar.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GpiPar> auto& r) {
  io("bEnable", r.bEnable);
  io("index", r.index);
  io("bLevel", r.bLevel);
  io("fliterTime", r.fliterTime);
  return io.result();
}
}  // namespace

SdkError GpiPar::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError GpiPar::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
