#include <param/params/galvoBox.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GalvoBox> auto& r) {
  io("bucketX", r.bucketX);
  io("bucketY", r.bucketY);
  io("prrlX", r.prrlX);
  io("prrlY", r.prrlY);
  io("trapeX", r.trapeX);
  io("trapeY", r.trapeY);
  io("scaleX", r.scaleX);
  io("scaleY", r.scaleY);
  return io.result();
}
}  // namespace

SdkError GalvoBox::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError GalvoBox::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
