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

PARAM_RECORD_IO(GpiPar)

}  // namespace param
