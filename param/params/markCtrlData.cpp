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

SdkError MarkCtrlData::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError MarkCtrlData::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
