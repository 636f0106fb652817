#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/params/optimizeFocusParam.h>
#include <param/params/pulsePointParam.h>
#include <param/params/stepMarkParam.h>
#include <param/params/wobbleParam.h>
#include <param/seri/seriObject.h>

namespace param {

// A pen: the process parameters that a marked object refers to by pen number.
// Members are named after their JSON keys and saved in this order.
struct PARAM_API PenParam {
  std::int32_t penId = 0;
  // At most 31 bytes of UTF-8 text; a longer name is cut on loading before the
  // first character that does not fit whole.
  char penName[32] = "Default";
  bool bEnable = true;
  std::int32_t markCount = 1;
  float runSpeed = 2000.0f;
  std::int32_t laserPower = 60;
  std::int32_t effectWaitTime = 20;
  float current = 1.0f;
  float laserFreq = 30.0f;
  float pulseWidth = 25.0f;
  std::int32_t mopaPulse = 10;
  std::int32_t openDelay = 0;
  std::int32_t shutDelay = 100;
  std::int32_t endDelay = 50;
  std::int32_t cornerDelay = 80;
  bool bChangeCornerDelay = true;
  std::int32_t pointTime = 100;
  std::int32_t openBehind = 0;
  float jumpSpeed = 4000.0f;
  std::int32_t jumpMinDelay = 100;
  std::int32_t jumpMaxDelay = 500;
  float jumpMaxDist = 20.0f;
  PulsePointParam pulsePoint;
  StepMarkParam stepMark;
  WobbleParam wobble;
  OptimizeFocusParam optFocus;
  // Saved as "extParam" always (an empty object without an extension); on
  // loading, the object must be there, and the held extension reads it.
  ExtParamProxy extParam;

  std::int32_t id() const { return penId; }

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
