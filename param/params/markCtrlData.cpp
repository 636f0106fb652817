#include <param/params/markCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<MarkCtrlData> auto& r) {
  io("markType", r.markType,
     "kind of marking job (1 normal; other numbers set by the marking engine)");
  io("bAsyn", r.bAsyn, "run the job asynchronously");
  io("bOnline", r.bOnline, "online job");
  io("markCount", r.markCount, "number of passes to send when not continuous");
  io("bContinuousMark", r.bContinuousMark, "repeat without end");
  io("bSelectMark", r.bSelectMark, "mark only the selection");
  io("bRedLightMark", r.bRedLightMark, "run with the red aiming light instead of the laser");
  io("bSimulateMark", r.bSimulateMark, "simulation run");
  io("bNoLightMode", r.bNoLightMode, "run without emitting light");
  io("pointTime", r.pointTime, "point dwell time");
  return io.result();
}
}  // namespace

MarkCtrlData& MarkCtrlData::operator=(MarkCtrlData&& other) {
  return *this = static_cast<const MarkCtrlData&>(other);
}

PARAM_RECORD_IO(MarkCtrlData)

}  // namespace param
