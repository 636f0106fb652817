#include <param/params/extAxisPar.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<ExtAxisPar> auto& r) {
  io("setting", r.setting, "the axis's mechanics, speed limits, homing and limit switches");
  io("runData", r.runData, "the motion profile used when the axis runs");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(ExtAxisPar)

}  // namespace param
