#pragma once

// The laser-source section of the board record: one settings record per kind of
// source the board can drive, so that switching the source type keeps each
// kind's settings, plus the laser-state check and the SISD command records.

#include <array>
#include <cstdint>
#include <vector>

#include <param/export.h>
#include <param/params/gpoPar.h>
#include <param/seri/seriObject.h>

namespace param {

// Output value per 10 % step of the commanded power: entry i is what is output
// for a command of 10 * i %. Loading reads the first min(length, 11) entries.
using PowerMap = std::array<float, 11>;
inline constexpr PowerMap kIdentityPowerMap{0.0f,  10.0f, 20.0f, 30.0f, 40.0f, 50.0f,
                                            60.0f, 70.0f, 80.0f, 90.0f, 100.0f};

// CO2 source ("co2Par").
struct PARAM_API LaserParamCO2 {
  bool pwmEnable = true;
  bool preionEnable = false;  // pre-ionisation (tickle) pulse
  std::int32_t preionPw = 1;
  float preionFreq = 5.0f;
  bool fpsEnable = false;  // first-pulse suppression ramp
  float fpsStartPower = 1.0f;
  float fpsPowerStep = 1.0f;
  PowerMap powerMap = kIdentityPowerMap;
  bool daEnable = false;
  PowerMap daPowerMap = kIdentityPowerMap;
  std::int32_t leakType = 0;
  std::int32_t moOnTime = 0;
  std::int32_t moOffTime = 0;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

// Lamp- or diode-pumped YAG source ("yagPar").
struct PARAM_API LaserParamYAG {
  bool pwmEnable = false;
  bool pwmPulseInverse = false;
  bool fpsEnable = false;
  bool fpsEndOpenPwm = false;  // PWM on at the end of first-pulse suppression
  std::int32_t fpsTime = 10;
  bool daEnable = false;
  PowerMap daCurrentMap = kIdentityPowerMap;
  std::int32_t leakType = 0;
  std::int32_t moOnTime = 8000;
  std::int32_t moOffTime = 0;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

// UV source ("uvPar").
struct PARAM_API LaserParamUV {
  bool pwmEnable = true;
  bool pwmPulseInverse = false;
  bool powerEnable = false;
  bool fpsEnable = false;
  bool fpsEndOpenPwm = false;
  std::int32_t fpsTime = 10;
  bool daEnable = false;
  PowerMap daCurrentMap = kIdentityPowerMap;
  std::int32_t leakType = 0;
  std::int32_t moOnTime = 0;
  std::int32_t moOffTime = 0;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

// Fiber source ("fiberPar").
struct PARAM_API LaserParamFiber {
  PowerMap powerMap = kIdentityPowerMap;
  std::int32_t leakType = 0;
  std::int32_t moOnTime = 8000;
  std::int32_t moOffTime = 0;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

// MOPA fiber source ("mopaPar"): the same settings, keys and behaviour as the
// fiber source, kept separately so that switching sources keeps both.
struct PARAM_API LaserParamMopa : LaserParamFiber {};

// Quasi-continuous-wave source with two outputs ("qcwPar"). Members are in
// memory order; the keys are saved in another order (daLeakType right after
// daDelay, see laserParam.cpp).
struct PARAM_API LaserParamQCW {
  bool pwmEnable = false;
  bool daEnable = false;
  PowerMap daPowerMap = kIdentityPowerMap;
  float daDelay = 100.0f;
  bool pwm2Enable = false;
  bool da2Enable = false;
  PowerMap da2PowerMap = kIdentityPowerMap;
  std::int32_t daLeakType = 0;
  std::int32_t leakType = 0;
  std::int32_t moOnTime = 0;
  std::int32_t moOffTime = 0;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

// Welding YAG source ("weldYagPar"): the output that switches the laser on and
// the outputs that select the stored waveform. A "vWaveSelGpo" list that cannot
// be read whole leaves the current list as it is.
struct PARAM_API LaserParamWeldYAG {
  GpoPar laserEnable;
  std::vector<GpoPar> vWaveSelGpo;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

// The laser-state check before marking ("checkPar"): one expected state per
// laser status pin, -1 for each pin by default.
struct PARAM_API LaserCheckParam {
  bool bEnable = false;
  std::array<std::int8_t, 6> pinState{-1, -1, -1, -1, -1, -1};

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

// The laser-source section ("laserParam" of the board record). The meaning of
// each laserType number is the host's and the board's; it is only stored here.
struct PARAM_API LaserParam {
  std::int32_t laserType = 2;
  LaserCheckParam checkPar;
  LaserParamCO2 co2Par;
  LaserParamYAG yagPar;
  LaserParamUV uvPar;
  LaserParamFiber fiberPar;
  LaserParamMopa mopaPar;
  LaserParamQCW qcwPar;
  LaserParamWeldYAG weldYagPar;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

// Single-instruction commands to the board's analogue, power and PWM outputs.
// They are built and copied only; they have no saved form.
struct PARAM_API DASISDPara {
  std::uint16_t value1 = 0;
  std::uint16_t value2 = 0;
  std::uint16_t value3 = 0;
  std::uint8_t flag = 1;
};

struct PARAM_API PowerSISDPara {
  std::uint16_t value1 = 0;
  std::uint16_t value2 = 0;
  std::uint16_t value3 = 0;
  std::uint8_t flag = 1;
};

struct PARAM_API PWMSISDPara {
  std::uint32_t value1 = 0;
  std::uint32_t value2 = 0;
  std::uint32_t value3 = 0;
  std::uint8_t flag = 1;
};

}  // namespace param
