#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/seri/seriObject.h>

namespace param {

// A ruler scale marked round a rotary axis: `tickCount` ticks at least
// `minSpace` apart on a cylinder of `diameter`.
// Members are named after their JSON keys and saved in this order.
//
// `rType` has no default: the default constructor leaves it holding whatever
// the storage held, so it is defined only after a load that read "rType", or
// after being set, copied or assigned from a record where it was defined.
// Copying, cloning or saving a record whose `rType` was never defined reads an
// indeterminate value: set it first.
struct PARAM_API AxSupRulerCtrlData : ExtParam {
  std::int32_t rType;  // not initialised, see above
  std::int32_t axisId = 0;
  std::int32_t mainDir = 0;
  std::int32_t tickCount = 10;
  float minSpace = 1.0f;
  float diameter = 10.0f;
  bool bToZero = false;
  bool bRedMarkToZero = false;

  // Defined out of line so that even value-initialisation (`AxSupRulerCtrlData{}`)
  // leaves `rType` alone.
  AxSupRulerCtrlData();
  AxSupRulerCtrlData(const AxSupRulerCtrlData&) = default;
  AxSupRulerCtrlData& operator=(const AxSupRulerCtrlData&) = default;
  ~AxSupRulerCtrlData() override;

  AxSupRulerCtrlData* clone() const override;
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  [[nodiscard]] SdkError save(SeriObject& obj) const override;
};

}  // namespace param
