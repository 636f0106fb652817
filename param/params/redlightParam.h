#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>
#include <param/shape/point2dConcept.h>

namespace param {

// The red aiming-light preview (key "redParam" of the board record).
struct PARAM_API RedlightParam {
  std::int32_t outlineType = 0;   // shape previewed (outline mode number)
  Point2d focusOffset{0.0, 0.0};  // offset of the focus-indicator light
  Point2d offset{0.0, 0.0};       // offset of the preview from the marking field
  Point2d scale{1.0, 1.0};        // scale of the preview, X and Y
  float speed = 3000.0f;          // preview scanning speed
  bool bInnerSrc = false;         // light from the internal source

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
