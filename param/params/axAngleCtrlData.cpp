#include <param/params/axAngleCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxAngleCtrlData> auto& r) {
  io("axisId", r.axisId);
  io("mainDir", r.mainDir);
  io("rotType", r.rotType);
  io("circleCount", r.circleCount);
  io("angleGap", r.angleGap);
  io("bToZero", r.bToZero);
  return io.result();
}
}  // namespace

AxAngleCtrlData::~AxAngleCtrlData() = default;
AxAngleCtrlData* AxAngleCtrlData::clone() const {
  return new AxAngleCtrlData(*this);
}
PARAM_RECORD_IO(AxAngleCtrlData)

}  // namespace param
