#include <param/params/galvoParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<GalvoParam> auto& r) {
  io("galvoSize", r.galvoSize, "side of the optical scan field, millimetres");
  io("workSize", r.workSize, "usable work area, millimetres");
  io("nResolution", r.nResolution, "full-scale scanner command value across the scan field");
  io("offset", r.offset, "shift of the work field, millimetres");
  io("rotateAngle", r.rotateAngle, "rotation of the work field, degrees");
  io("rotateCenter", r.rotateCenter, "centre of the work field's rotation");
  io("bXYFlip", r.bXYFlip, "exchange the X and Y axes");
  io("bXInvert", r.bXInvert, "mirror X");
  io("bYInvert", r.bYInvert, "mirror Y");
  io("boxCorPar", r.boxCorPar, "distortion correction: barrel, parallelogram, trapezoid and scale");
  io("equiCorPar", r.equiCorPar, "scale correction tables of commanded and measured positions");
  io("bUseCorFile", r.bUseCorFile, "use the correction file named by szCorFile");
  io("szCorFile", r.szCorFile, "path of the correction file");
  io("corType", r.corType, "kind of correction file");
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
