#include <param/params/axDivCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {

SdkError keys(auto&& io, RecordOf<AxDivCtrlData> auto& r) {
  io("axisId", r.axisId, "number of the extension axis used");
  io("mainDir", r.mainDir, "main direction (number)");
  io("stepLen", r.stepLen, "length of one division step");
  io("diameter", r.diameter, "diameter of the workpiece on the rotary axis");
  io("bDivMark", r.bDivMark, "division marking on");
  io.strictList("vDivStep", r.vDivStep, "the division steps, one number each");
  io("bToZero", r.bToZero, "return the axis to zero");
  io("bRedMarkToZero", r.bRedMarkToZero, "return the axis to zero when marking with the red light");
  io("dislocCompensate", r.dislocCompensate, "dislocation compensation");
  io("blockGapCompensate", r.blockGapCompensate, "compensation of the gap between blocks");
  return io.result();
}
}  // namespace

AxDivCtrlData::~AxDivCtrlData() = default;
AxDivCtrlData* AxDivCtrlData::clone() const {
  return new AxDivCtrlData(*this);
}
PARAM_RECORD_IO(AxDivCtrlData)

}  // namespace param
