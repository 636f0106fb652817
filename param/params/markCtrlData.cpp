#include <param/params/markCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<MarkCtrlData> auto& r) {
  io("markType", r.markType);
  io("bAsyn", r.bAsyn);
  io("bOnline", r.bOnline);
  io("markCount", r.markCount);
  io("bContinuousMark", r.bContinuousMark);
  io("bSelectMark", r.bSelectMark);
  io("bRedLightMark", r.bRedLightMark);
  io("bSimulateMark", r.bSimulateMark);
  io("bNoLightMode", r.bNoLightMode);
  io("pointTime", r.pointTime);
  return io.result();
}
}  // namespace

MarkCtrlData& MarkCtrlData::operator=(MarkCtrlData&& other) {
  return *this = static_cast<const MarkCtrlData&>(other);
}

PARAM_RECORD_IO(MarkCtrlData)

}  // namespace param
