#include <param/params/axRotTextCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxRotTextCtrlData> auto& r) {
  io("axisId", r.axisId);
  io("mainDir", r.mainDir);
  io("diameter", r.diameter);
  io("bPathHeadOn", r.bPathHeadOn);
  io("bToZero", r.bToZero);
  io("bRedMarkToZero", r.bRedMarkToZero);
  io("blockGapCompensate", r.blockGapCompensate);
  return io.result();
}
}  // namespace

AxRotTextCtrlData::~AxRotTextCtrlData() = default;
AxRotTextCtrlData* AxRotTextCtrlData::clone() const {
  return new AxRotTextCtrlData(*this);
}
PARAM_RECORD_IO(AxRotTextCtrlData)

}  // namespace param
