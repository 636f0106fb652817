#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>
#include <param/shape/point2dConcept.h>

namespace param {

// Board-level marking behaviour and the connection watchdog (key "markParam" of
// the board record).
struct PARAM_API MarkParam {
  float markLineMaxLen = 2.0f;         // longest line piece sent as one move
  std::int32_t afterMarkPosMode = 0;   // where the head goes after marking
  Point2d afterMarkPos{0.0, 0.0};      // the position that mode uses
  float jumpNoCloseLaserDist = 0.02f;  // jumps up to this length keep the laser on
  std::int32_t heartTime = 100;        // heartbeat interval of the board connection
  bool watchDogEnable = false;
  std::uint16_t watchDogTimes = 1000;  // a stored value above 65535 is refused on loading

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
