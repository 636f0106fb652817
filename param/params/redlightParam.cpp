#include <param/params/redlightParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<RedlightParam> auto& r) {
  io("outlineType", r.outlineType, "shape previewed with the red light (outline mode number)");
  io("focusOffset", r.focusOffset, "offset of the focus-indicator light");
  io("offset", r.offset, "offset of the red preview relative to the marking field");
  io("scale", r.scale, "scale of the red preview, X and Y");
  io("speed", r.speed, "preview scanning speed");
  io("bInnerSrc", r.bInnerSrc, "red light from the internal source");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(RedlightParam)

}  // namespace param
