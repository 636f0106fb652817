#pragma once

#include <array>
#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>
#include <param/shape/point2dConcept.h>

namespace param {

// On-the-fly marking on a moving conveyor (key "flyParam" of the board record):
// the product is detected by a trigger input and followed by an encoder or a
// fixed speed, including the repeated "pipe" mode.
//
// Members are in memory order; the saved key order differs in one place
// ("pipeMaxDistance" is saved last, see flyParam.cpp).
struct PARAM_API FlyParam {
  std::int32_t bufferCount = 1;
  std::int32_t sortMode = 0;
  std::int32_t startPosMode = 0;
  Point2d startMarkPoint{0.0, 0.0};
  std::int32_t triggerType = 0;
  bool continuousSignal = false;
  float continuousDelayDistance = 0.0f;
  std::int32_t triggerDelayMode = 0;
  float triggerDelayDistance = 0.0f;
  float triggerDelayTime = 0.0f;
  std::int32_t triggerIntervalMode = 0;
  float triggerIntervalDistance = 0.0f;
  float triggerIntervalTime = 0.0f;
  bool flyRtoL = false;  // product moves from right to left
  std::int32_t flowLineType = 2;
  // Per encoder axis. Loading reads the first min(length, 2) entries.
  std::array<bool, 2> encodeRevert{false, false};
  std::array<bool, 2> encodeNoDirection{false, false};
  std::array<float, 2> encodePusleLen{15.0f, 15.0f};
  std::int32_t flyEncoderID = 0;
  float flowFixSpeed = 10.0f;  // conveyor speed when no encoder is used
  std::int32_t pipeMode = 0;
  float pipeDistance = 100.0f;
  float pipeMaxDistance = 0.0f;
  std::uint32_t pipeTime = 100;
  std::uint16_t pipeMarkCount = 0;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
