#include <param/params/axRingCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AxRingCtrlData> auto& r) {
  io("axisId", r.axisId);
  io("mainDir", r.mainDir);
  io("diameter", r.diameter);
  io("bPathHeadOn", r.bPathHeadOn);
  io("bToZero", r.bToZero);
  io("bRedMarkToZero", r.bRedMarkToZero);
  return io.result();
}
}  // namespace

AxRingCtrlData::~AxRingCtrlData() = default;
AxRingCtrlData* AxRingCtrlData::clone() const {
  return new AxRingCtrlData(*this);
}
PARAM_RECORD_IO(AxRingCtrlData)

}  // namespace param
