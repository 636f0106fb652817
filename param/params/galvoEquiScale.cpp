#include <param/params/galvoEquiScale.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GalvoEquiScale> auto& r) {
  io("bEquiScaleCor", r.bEquiScaleCor, "equidistant scale correction on");
  io("equiCorNum", r.equiCorNum, "count of correction points");
  io("setValX", r.setValX, "commanded positions, X");
  io("actualValX", r.actualValX, "measured positions for those commands, X");
  io("setValY", r.setValY, "commanded positions, Y");
  io("actualValY", r.actualValY, "measured positions for those commands, Y");
  io("fsrX", r.fsrX, "per-point values named fsr, X");
  io("fsrY", r.fsrY, "per-point values named fsr, Y");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(GalvoEquiScale)

}  // namespace param
