#include <param/params/mrPara.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<MRPara> auto& r) {
  io("fDx", r.fDx, "offset along x");
  io("fDy", r.fDy, "offset along y");
  io("fRa", r.fRa, "rotation angle");
  io("fCx", r.fCx, "x of the rotation centre");
  io("fCy", r.fCy, "y of the rotation centre");
  return io.result();
}
}  // namespace

MRPara::~MRPara() = default;
MRPara* MRPara::clone() const {
  return new MRPara(*this);
}
PARAM_RECORD_IO(MRPara)

}  // namespace param
