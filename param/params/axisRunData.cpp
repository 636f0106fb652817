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

SdkError AxisRunData::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError AxisRunData::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
