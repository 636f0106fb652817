#pragma once

#include <param/export.h>
#include <param/params/gpiPar.h>
#include <param/params/gpoPar.h>
#include <param/seri/seriObject.h>

namespace param {

// The board's general-purpose IO assignments (key "ioParam" of the board record):
// the outputs that signal marking states and the input that starts marking.
struct PARAM_API IOParam {
  GpoPar markEndGpo;      // marking finished
  GpoPar markingGpo;      // marking in progress
  GpoPar markLightGpo;    // marking light
  GpoPar redLightGpo;     // red light on
  GpoPar redFocusGpo;     // red focus light
  GpiPar triggerMarkGpi;  // starts marking

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
