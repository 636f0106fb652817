#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// The wobble figure of a pen (key "wobble"): the beam circles, weaves or traces
// a figure-eight around the path while it travels along it.
struct PARAM_API WobbleParam {
  bool bEnable = false;
  std::int32_t wobbleType = 0;  // 0 circle, 1 sine, 2 ellipse, 3 eight across, else eight along
  float wobbleDiaX = 1.0f;      // size along the path
  float wobbleDiaY = 1.0f;      // size across the path
  float wobbleSpace = 0.5f;     // path length of one period

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
