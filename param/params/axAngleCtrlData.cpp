#include <param/params/axAngleCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxAngleCtrlData> auto& r) {
  io("axisId", r.axisId, "number of the extension axis used");
  io("mainDir", r.mainDir, "main direction (number)");
  io("rotType", r.rotType, "rotation type (number)");
  io("circleCount", r.circleCount, "number of circles");
  io("angleGap", r.angleGap, "angle between two steps");
  io("bToZero", r.bToZero, "return the axis to zero");
  return io.result();
}
}  // namespace

AxAngleCtrlData::~AxAngleCtrlData() = default;
AxAngleCtrlData* AxAngleCtrlData::clone() const {
  return new AxAngleCtrlData(*this);
}
PARAM_RECORD_IO(AxAngleCtrlData)

}  // namespace param
