#include <param/params/axDivCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {

SdkError keys(auto&& io, RecordOf<AxDivCtrlData> auto& r) {
  io("axisId", r.axisId);
  io("mainDir", r.mainDir);
  io("stepLen", r.stepLen);
  io("diameter", r.diameter);
  io("bDivMark", r.bDivMark);
  io.strictList("vDivStep", r.vDivStep);
  io("bToZero", r.bToZero);
  io("bRedMarkToZero", r.bRedMarkToZero);
  io("dislocCompensate", r.dislocCompensate);
  io("blockGapCompensate", r.blockGapCompensate);
  return io.result();
}
}  // namespace

AxDivCtrlData::~AxDivCtrlData() = default;
AxDivCtrlData* AxDivCtrlData::clone() const {
  return new AxDivCtrlData(*this);
}
PARAM_RECORD_IO(AxDivCtrlData)

}  // namespace param
