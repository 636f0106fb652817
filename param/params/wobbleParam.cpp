#include <param/params/wobbleParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<WobbleParam> auto& r) {
  io("bEnable", r.bEnable, "wobble the path while marking it");
  io("wobbleType", r.wobbleType,
     "figure: 0 circle, 1 sine, 2 ellipse, 3 eight across the path, else eight along it");
  io("wobbleDiaX", r.wobbleDiaX, "size of the figure along the path");
  io("wobbleDiaY", r.wobbleDiaY, "size of the figure across the path");
  io("wobbleSpace", r.wobbleSpace, "path length covered by one period of the figure");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(WobbleParam)

}  // namespace param
