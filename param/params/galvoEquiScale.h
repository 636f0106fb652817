#pragma once

#include <cstdint>
#include <vector>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// The equidistant scale correction of the scan head ("equiCorPar" of
// GalvoParam): commanded versus measured positions per axis. Each list is
// loaded at the stored array's length, whatever equiCorNum says; a list that
// cannot be read whole keeps its current content.
struct PARAM_API GalvoEquiScale {
  bool bEquiScaleCor = false;
  std::int32_t equiCorNum = 9;  // count of correction points
  std::vector<double> setValX;
  std::vector<double> actualValX;
  std::vector<double> setValY;
  std::vector<double> actualValY;
  std::vector<double> fsrX;
  std::vector<double> fsrY;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
