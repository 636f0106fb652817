#include <param/params/optimizeFocusParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<OptimizeFocusParam> auto& r) {
  io("bEnable", r.bEnable);
  io("startTime", r.startTime);
  io("endTime", r.endTime);
  io("interrupAngle", r.interrupAngle);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(OptimizeFocusParam)

}  // namespace param
