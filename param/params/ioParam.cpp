#include <param/params/ioParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<IOParam> auto& r) {
  io("markEndGpo", r.markEndGpo);
  io("markingGpo", r.markingGpo);
  io("markLightGpo", r.markLightGpo);
  io("redLightGpo", r.redLightGpo);
  io("redFocusGpo", r.redFocusGpo);
  io("triggerMarkGpi", r.triggerMarkGpi);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(IOParam)

}  // namespace param
