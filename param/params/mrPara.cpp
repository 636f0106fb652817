#include <param/params/mrPara.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<MRPara> auto& r) {
  io("fDx", r.fDx);
  io("fDy", r.fDy);
  io("fRa", r.fRa);
  io("fCx", r.fCx);
  io("fCy", r.fCy);
  return io.result();
}
}  // namespace

MRPara::~MRPara() = default;
MRPara* MRPara::clone() const {
  return new MRPara(*this);
}
PARAM_RECORD_IO(MRPara)

}  // namespace param
