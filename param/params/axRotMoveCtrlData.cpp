#include <param/params/axRotMoveCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxRotMoveCtrlData> auto& r) {
  io("axisId", r.axisId);
  io("nProjectType", r.nProjectType);
  io("fDiameter", r.fDiameter);
  io("fSpeed", r.fSpeed);
  io("fAccSpeed", r.fAccSpeed);
  io("fSpeedMotor", r.fSpeedMotor);
  io("fAccSpeedMotor", r.fAccSpeedMotor);
  io("fSpeedScan", r.fSpeedScan);
  io("fAccSpeedScan", r.fAccSpeedScan);
  io("fSamePosFilter", r.fSamePosFilter);
  io("fSharpArcFilter", r.fSharpArcFilter);
  io("fSpeedStep", r.fSpeedStep);
  io("bToZero", r.bToZero);
  io("bRedMarkToZero", r.bRedMarkToZero);
  return io.result();
}
}  // namespace

AxRotMoveCtrlData::~AxRotMoveCtrlData() = default;
AxRotMoveCtrlData* AxRotMoveCtrlData::clone() const {
  return new AxRotMoveCtrlData(*this);
}
PARAM_RECORD_IO(AxRotMoveCtrlData)

}  // namespace param
