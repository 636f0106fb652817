#include <param/params/galvoParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GalvoParam> auto& r) {
  io("galvoSize", r.galvoSize);
  io("workSize", r.workSize);
  io("nResolution", r.nResolution);
  io("offset", r.offset);
  io("rotateAngle", r.rotateAngle);
  io("rotateCenter", r.rotateCenter);
  io("bXYFlip", r.bXYFlip);
  io("bXInvert", r.bXInvert);
  io("bYInvert", r.bYInvert);
  io("boxCorPar", r.boxCorPar);
  io("equiCorPar", r.equiCorPar);
  io("bUseCorFile", r.bUseCorFile);
  io("szCorFile", r.szCorFile);
  io("corType", r.corType);
  return io.result();
}
}  // namespace

void GalvoParam::setResolution(int n) {
  nResolution = n;
  // In 64 bits so that n = INT_MAX does not overflow; the half fits 32 bits.
  halfRange = static_cast<std::int32_t>((static_cast<std::int64_t>(n) + 1) / 2);
  halfRangeSq = static_cast<double>(halfRange) * static_cast<double>(halfRange);
  if (galvoSize > 0.0) unitsPerMm = static_cast<double>(n) / galvoSize;
}

PARAM_RECORD_IO(GalvoParam)

}  // namespace param
