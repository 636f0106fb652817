#include <param/params/wobbleParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<WobbleParam> auto& r) {
  io("bEnable", r.bEnable);
  io("wobbleType", r.wobbleType);
  io("wobbleDiaX", r.wobbleDiaX);
  io("wobbleDiaY", r.wobbleDiaY);
  io("wobbleSpace", r.wobbleSpace);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(WobbleParam)

}  // namespace param
