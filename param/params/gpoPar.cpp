#include <param/params/gpoPar.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GpoPar> auto& r) {
  io("bEnable", r.bEnable);
  io("index", r.index);
  io("bLevel", r.bLevel);
  io("outTime", r.outTime);
  io("delayMode", r.delayMode);
  io("delayValue", r.delayValue);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(GpoPar)

}  // namespace param
