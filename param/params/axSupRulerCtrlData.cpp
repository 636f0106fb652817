#include <param/params/axSupRulerCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxSupRulerCtrlData> auto& r) {
  io("rType", r.rType);
  io("axisId", r.axisId);
  io("mainDir", r.mainDir);
  io("tickCount", r.tickCount);
  io("minSpace", r.minSpace);
  io("diameter", r.diameter);
  io("bToZero", r.bToZero);
  io("bRedMarkToZero", r.bRedMarkToZero);
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
