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

PARAM_RECORD_IO(GalvoBox)

}  // namespace param
