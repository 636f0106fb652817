#include <param/params/axRingCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxRingCtrlData> auto& r) {
  io("axisId", r.axisId, "number of the extension axis used");
  io("mainDir", r.mainDir, "main direction (number)");
  io("diameter", r.diameter, "diameter of the workpiece on the rotary axis");
  io("bPathHeadOn", r.bPathHeadOn, "path head-on switch");
  io("bToZero", r.bToZero, "return the axis to zero");
  io("bRedMarkToZero", r.bRedMarkToZero, "return the axis to zero when marking with the red light");
  return io.result();
}
}  // namespace

AxRingCtrlData::~AxRingCtrlData() = default;
AxRingCtrlData* AxRingCtrlData::clone() const {
  return new AxRingCtrlData(*this);
}
PARAM_RECORD_IO(AxRingCtrlData)

}  // namespace param
