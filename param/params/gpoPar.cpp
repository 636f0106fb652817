#include <param/params/gpoPar.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GpoPar> auto& r) {
  io("bEnable", r.bEnable, "the output is used");
  io("index", r.index, "output number; -1 = none assigned");
  io("bLevel", r.bLevel, "active level");
  io("outTime", r.outTime, "how long the output is held");
  io("delayMode", r.delayMode, "delay mode number");
  io("delayValue", r.delayValue, "delay of the output");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(GpoPar)

}  // namespace param
