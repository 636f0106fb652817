#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/circularArrayParam.h>
#include <param/params/rectArrayParam.h>
#include <param/seri/seriObject.h>

namespace param {

// Whether and how a marked object is repeated: in a grid ("type" 0) or around
// a circle ("type" 1). Members are named after their JSON keys and saved in this
// order; "rect" holds the stored default of RectArrayParam (see there).
struct PARAM_API ArrayParam {
  bool enabled = false;
  std::uint8_t type = 0;
  bool disableSeriChange = false;
  RectArrayParam rect;
  CircularArrayParam circular;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

  // Both disabled, or both enabled with the same type and an equal layout of
  // that type ("disableSeriChange" and the other layout do not count).
  bool isSameEffect(const ArrayParam& other) const;
};

}  // namespace param
