#include <param/params/optimizeFocusParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<OptimizeFocusParam> auto& r) {
  io("bEnable", r.bEnable, "focus optimisation on");
  io("startTime", r.startTime, "start time of the focus optimisation");
  io("endTime", r.endTime, "end time of the focus optimisation");
  io("interrupAngle", r.interrupAngle, "interruption angle of the focus optimisation");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(OptimizeFocusParam)

}  // namespace param
