#include <param/params/axisRunData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxisRunData> auto& r) {
  io("startSpeed", r.startSpeed, "start speed of a run");
  io("runSpeed", r.runSpeed, "running speed");
  io("accSpeed", r.accSpeed, "acceleration");
  io("bPreciseZero", r.bPreciseZero, "home with the precise pass");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(AxisRunData)

}  // namespace param
