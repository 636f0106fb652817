#pragma once

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// The scan head's field-distortion correction ("boxCorPar" of GalvoParam):
// barrel/pincushion, parallelogram and trapezoid factors and the scale, per
// axis. The board applies them; this record only holds them.
struct PARAM_API GalvoBox {
  double bucketX = 1.0;
  double bucketY = 1.0;
  double prrlX = 1.0;
  double prrlY = 1.0;
  double trapeX = 1.0;
  double trapeY = 1.0;
  double scaleX = 100.0;
  double scaleY = 100.0;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
