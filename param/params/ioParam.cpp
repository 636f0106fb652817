#include <param/params/ioParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<IOParam> auto& r) {
  io("markEndGpo", r.markEndGpo, "output that signals marking finished");
  io("markingGpo", r.markingGpo, "output that signals marking in progress");
  io("markLightGpo", r.markLightGpo, "output for the marking light");
  io("redLightGpo", r.redLightGpo, "output that signals the red light on");
  io("redFocusGpo", r.redFocusGpo, "output for the red focus light");
  io("triggerMarkGpi", r.triggerMarkGpi, "input that starts marking");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(IOParam)

}  // namespace param
