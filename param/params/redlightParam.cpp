#include <param/params/redlightParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<RedlightParam> auto& r) {
  io("outlineType", r.outlineType);
  io("focusOffset", r.focusOffset);
  io("offset", r.offset);
  io("scale", r.scale);
  io("speed", r.speed);
  io("bInnerSrc", r.bInnerSrc);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(RedlightParam)

}  // namespace param
