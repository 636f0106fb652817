#include <param/params/axSupRulerCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxSupRulerCtrlData> auto& r) {
  io("rType", r.rType, "ruler type (number); it has no default");
  io("axisId", r.axisId, "number of the extension axis used");
  io("mainDir", r.mainDir, "main direction (number)");
  io("tickCount", r.tickCount, "number of ticks");
  io("minSpace", r.minSpace, "smallest spacing of the ticks");
  io("diameter", r.diameter, "diameter of the workpiece on the rotary axis");
  io("bToZero", r.bToZero, "return the axis to zero");
  io("bRedMarkToZero", r.bRedMarkToZero, "return the axis to zero when marking with the red light");
  return io.result();
}
}  // namespace

// User-provided on purpose: `rType` stays uninitialised (see the header).
AxSupRulerCtrlData::AxSupRulerCtrlData() = default;
AxSupRulerCtrlData::~AxSupRulerCtrlData() = default;
AxSupRulerCtrlData* AxSupRulerCtrlData::clone() const {
  return new AxSupRulerCtrlData(*this);
}
PARAM_RECORD_IO(AxSupRulerCtrlData)

}  // namespace param
