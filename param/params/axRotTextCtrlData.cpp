#include <param/params/axRotTextCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxRotTextCtrlData> auto& r) {
  io("axisId", r.axisId, "number of the extension axis used");
  io("mainDir", r.mainDir, "main direction (number)");
  io("diameter", r.diameter, "diameter of the workpiece on the rotary axis");
  io("bPathHeadOn", r.bPathHeadOn, "path head-on switch");
  io("bToZero", r.bToZero, "return the axis to zero");
  io("bRedMarkToZero", r.bRedMarkToZero, "return the axis to zero when marking with the red light");
  io("blockGapCompensate", r.blockGapCompensate, "compensation of the gap between blocks");
  return io.result();
}
}  // namespace

AxRotTextCtrlData::~AxRotTextCtrlData() = default;
AxRotTextCtrlData* AxRotTextCtrlData::clone() const {
  return new AxRotTextCtrlData(*this);
}
PARAM_RECORD_IO(AxRotTextCtrlData)

}  // namespace param
