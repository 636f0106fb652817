#include <param/params/axRotMoveCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxRotMoveCtrlData> auto& r) {
  io("axisId", r.axisId, "number of the extension axis used");
  io("nProjectType", r.nProjectType, "projection type (number)");
  io("fDiameter", r.fDiameter, "diameter of the workpiece on the rotary axis");
  io("fSpeed", r.fSpeed, "marking speed");
  io("fAccSpeed", r.fAccSpeed, "marking acceleration");
  io("fSpeedMotor", r.fSpeedMotor, "speed of the axis motor");
  io("fAccSpeedMotor", r.fAccSpeedMotor, "acceleration of the axis motor");
  io("fSpeedScan", r.fSpeedScan, "speed of the scanner");
  io("fAccSpeedScan", r.fAccSpeedScan, "acceleration of the scanner");
  io("fSamePosFilter", r.fSamePosFilter, "filter of repeated positions");
  io("fSharpArcFilter", r.fSharpArcFilter, "filter of sharp arcs");
  io("fSpeedStep", r.fSpeedStep, "speed step");
  io("bToZero", r.bToZero, "return the axis to zero");
  io("bRedMarkToZero", r.bRedMarkToZero, "return the axis to zero when marking with the red light");
  return io.result();
}
}  // namespace

AxRotMoveCtrlData::~AxRotMoveCtrlData() = default;
AxRotMoveCtrlData* AxRotMoveCtrlData::clone() const {
  return new AxRotMoveCtrlData(*this);
}
PARAM_RECORD_IO(AxRotMoveCtrlData)

}  // namespace param
