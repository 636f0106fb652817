#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// One general-purpose output of the board: which pin, its active level, and how
// long and after what delay it is driven.
struct PARAM_API GpoPar {
  bool bEnable = false;
  std::int32_t index = -1;  // output number; -1 = none assigned
  bool bLevel = false;      // active level
  std::uint32_t outTime = 100;
  std::int32_t delayMode = 1;
  std::uint32_t delayValue = 0;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
