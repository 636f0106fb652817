#include <param/params/axisRunData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxisRunData> auto& r) {
  io("startSpeed", r.startSpeed);
  io("runSpeed", r.runSpeed);
  io("accSpeed", r.accSpeed);
  io("bPreciseZero", r.bPreciseZero);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(AxisRunData)

}  // namespace param
