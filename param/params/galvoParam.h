#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <param/export.h>
#include <param/params/galvoBox.h>
#include <param/params/galvoCalPar.h>
#include <param/params/galvoEquiScale.h>
#include <param/seri/seriObject.h>
#include <param/shape/point2dConcept.h>

namespace param {

// The scan-head section of the board record ("galvoParam"): the optical field,
// the scanner's digital resolution, the mapping of the work field onto it and
// the built-in corrections. Lengths are in millimetres, angles in degrees.
//
// halfRange, halfRangeSq and unitsPerMm follow from nResolution and galvoSize.
// load does not refresh them: after loading, call setResolution(nResolution).
struct PARAM_API GalvoParam {
  double galvoSize = 120.0;          // side of the optical scan field
  Point2d workSize{110.0, 110.0};    // usable work area
  std::int32_t nResolution = 65535;  // full-scale command value across galvoSize
  Point2d offset{0.0, 0.0};
  float rotateAngle = 0.0f;
  Point2d rotateCenter{0.0, 0.0};
  bool bXYFlip = false;
  bool bXInvert = false;
  bool bYInvert = false;
  GalvoBox boxCorPar;
  GalvoEquiScale equiCorPar;
  bool bUseCorFile = false;  // use the correction file szCorFile
  std::string szCorFile;
  GalvoCalPar calPar;  // not saved
  std::uint8_t corType = 0;

  // Held for the host's calibration; not saved.
  double calGalvoSize = 120.0;
  std::int32_t calResolution = 65535;
  bool bCalFlag1 = false;
  bool bCalFlag2 = false;
  bool bCalFlag3 = false;
  std::vector<CalData> calPoints;
  std::vector<double> calValues;

  // Derived from nResolution and galvoSize; not saved.
  std::int32_t halfRange = 0;
  double halfRangeSq = 0.0;
  double unitsPerMm = 0.0;

  GalvoParam() { setResolution(nResolution); }

  // Stores n and refreshes the derived members: halfRange = (n + 1) / 2 (integer
  // division), halfRangeSq = halfRange squared, and unitsPerMm = n / galvoSize
  // when galvoSize is positive (otherwise unitsPerMm keeps its value).
  void setResolution(int n);

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
