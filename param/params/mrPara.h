#pragma once

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/seri/seriObject.h>

namespace param {

// An offset and rotation correction of the marked job: a shift by (`fDx`,
// `fDy`) and a rotation by `fRa` about the centre (`fCx`, `fCy`).
// Members are named after their JSON keys and saved in this order.
struct PARAM_API MRPara : ExtParam {
  double fDx = 0.0;
  double fDy = 0.0;
  double fRa = 0.0;
  double fCx = 0.0;
  double fCy = 0.0;

  MRPara() = default;
  MRPara(const MRPara&) = default;
  MRPara& operator=(const MRPara&) = default;
  ~MRPara() override;

  MRPara* clone() const override;
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  [[nodiscard]] SdkError save(SeriObject& obj) const override;
};

}  // namespace param
