#include <param/params/galvoEquiScale.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GalvoEquiScale> auto& r) {
  io("bEquiScaleCor", r.bEquiScaleCor);
  io("equiCorNum", r.equiCorNum);
  io("setValX", r.setValX);
  io("actualValX", r.actualValX);
  io("setValY", r.setValY);
  io("actualValY", r.actualValY);
  io("fsrX", r.fsrX);
  io("fsrY", r.fsrY);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(GalvoEquiScale)

}  // namespace param
