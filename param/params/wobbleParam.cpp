#include <param/params/wobbleParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<WobbleParam> auto& r) {
  io("bEnable", r.bEnable);
  io("wobbleType", r.wobbleType);
  io("wobbleDiaX", r.wobbleDiaX);
  io("wobbleDiaY", r.wobbleDiaY);
  io("wobbleSpace", r.wobbleSpace);
  return io.result();
}
}  // namespace

SdkError WobbleParam::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError WobbleParam::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
