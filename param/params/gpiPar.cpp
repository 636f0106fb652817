#include <param/params/gpiPar.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GpiPar> auto& r) {
  io("bEnable", r.bEnable, "the input is used");
  io("index", r.index, "input number; -1 = none assigned");
  io("bLevel", r.bLevel, "active level");
  io("fliterTime", r.fliterTime, "input filter (debounce) time");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(GpiPar)

}  // namespace param
