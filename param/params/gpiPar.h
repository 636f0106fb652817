#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// One general-purpose input of the board.
struct PARAM_API GpiPar {
  bool bEnable = false;
  std::int32_t index = -1;        // input number; -1 = none assigned
  bool bLevel = false;            // active level
  std::uint32_t fliterTime = 10;  // debounce time; the key keeps its historical spelling

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
