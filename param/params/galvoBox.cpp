#include <param/params/galvoBox.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GalvoBox> auto& r) {
  io("bucketX", r.bucketX, "barrel/pincushion correction factor, X");
  io("bucketY", r.bucketY, "barrel/pincushion correction factor, Y");
  io("prrlX", r.prrlX, "parallelogram correction factor, X");
  io("prrlY", r.prrlY, "parallelogram correction factor, Y");
  io("trapeX", r.trapeX, "trapezoid correction factor, X");
  io("trapeY", r.trapeY, "trapezoid correction factor, Y");
  io("scaleX", r.scaleX, "scale, X");
  io("scaleY", r.scaleY, "scale, Y");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(GalvoBox)

}  // namespace param
