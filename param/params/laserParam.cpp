#include <param/params/laserParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {

// Keys that several laser kinds share, in the order each of them saves them.

// First-pulse suppression and the analogue current output (YAG, UV).
void suppressionAndCurrentKeys(auto&& io, auto& r) {
  io("fpsEnable", r.fpsEnable, "first-pulse suppression on");
  io("fpsEndOpenPwm", r.fpsEndOpenPwm,
     "switch the PWM output on at the end of first-pulse suppression");
  io("fpsTime", r.fpsTime, "first-pulse suppression time");
  io("daEnable", r.daEnable, "drive the analogue (DA) output");
  io("daCurrentMap", r.daCurrentMap, "analogue current output for commands of 0, 10 ... 100 %");
}

// Leak handling and the master oscillator: the last keys of most kinds.
SdkError leakAndOscillatorKeys(auto&& io, auto& r) {
  io("leakType", r.leakType, "leak-handling mode number");
  io("moOnTime", r.moOnTime, "on time of the master-oscillator output");
  io("moOffTime", r.moOffTime, "off time of the master-oscillator output");
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserParamCO2> auto& r) {
  io("pwmEnable", r.pwmEnable, "drive the PWM (pulse) output");
  io("preionEnable", r.preionEnable, "pre-ionisation (tickle) pulse on");
  io("preionPw", r.preionPw, "pulse width of the pre-ionisation pulse");
  io("preionFreq", r.preionFreq, "frequency of the pre-ionisation pulse");
  io("fpsEnable", r.fpsEnable, "first-pulse suppression on");
  io("fpsStartPower", r.fpsStartPower, "start power of the first-pulse suppression ramp");
  io("fpsPowerStep", r.fpsPowerStep, "power increase per step of the first-pulse suppression ramp");
  io("powerMap", r.powerMap, "PWM power output for commands of 0, 10 ... 100 %");
  io("daEnable", r.daEnable, "drive the analogue (DA) output");
  io("daPowerMap", r.daPowerMap, "analogue output for commands of 0, 10 ... 100 %");
  return leakAndOscillatorKeys(io, r);
}

SdkError keys(auto&& io, RecordOf<LaserParamYAG> auto& r) {
  io("pwmEnable", r.pwmEnable, "drive the PWM (pulse) output");
  io("pwmPulseInverse", r.pwmPulseInverse, "invert the PWM output polarity");
  suppressionAndCurrentKeys(io, r);
  return leakAndOscillatorKeys(io, r);
}

SdkError keys(auto&& io, RecordOf<LaserParamUV> auto& r) {
  io("pwmEnable", r.pwmEnable, "drive the PWM (pulse) output");
  io("pwmPulseInverse", r.pwmPulseInverse, "invert the PWM output polarity");
  io("powerEnable", r.powerEnable, "power output on");
  suppressionAndCurrentKeys(io, r);
  return leakAndOscillatorKeys(io, r);
}

SdkError keys(auto&& io, RecordOf<LaserParamFiber> auto& r) {
  io("powerMap", r.powerMap, "PWM power output for commands of 0, 10 ... 100 %");
  return leakAndOscillatorKeys(io, r);
}

SdkError keys(auto&& io, RecordOf<LaserParamQCW> auto& r) {
  io("pwmEnable", r.pwmEnable, "drive the first PWM (pulse) output");
  io("daEnable", r.daEnable, "drive the first analogue (DA) output");
  io("daPowerMap", r.daPowerMap, "first analogue output for commands of 0, 10 ... 100 %");
  io("daDelay", r.daDelay, "delay of the analogue output");
  io("daLeakType", r.daLeakType, "leak-handling mode number of the analogue output");
  io("pwm2Enable", r.pwm2Enable, "drive the second PWM output");
  io("da2Enable", r.da2Enable, "drive the second analogue output");
  io("da2PowerMap", r.da2PowerMap, "second analogue output for commands of 0, 10 ... 100 %");
  return leakAndOscillatorKeys(io, r);
}

SdkError keys(auto&& io, RecordOf<LaserParamWeldYAG> auto& r) {
  io("laserEnable", r.laserEnable, "output that switches the welding laser on");
  io("vWaveSelGpo", r.vWaveSelGpo, "outputs that select the stored waveform");
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserCheckParam> auto& r) {
  io("bEnable", r.bEnable, "check the laser state before marking");
  io("pinState", r.pinState, "expected state of each of the six laser status pins");
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserParam> auto& r) {
  io("laserType", r.laserType, "kind of laser source in use (number set by the host and board)");
  io("checkPar", r.checkPar, "the laser state check before marking");
  io("co2Par", r.co2Par, "settings of a CO2 source");
  io("yagPar", r.yagPar, "settings of a YAG source");
  io("uvPar", r.uvPar, "settings of a UV source");
  io("fiberPar", r.fiberPar, "settings of a fibre source");
  io("mopaPar", r.mopaPar, "settings of a MOPA source (fibre with adjustable pulse)");
  io("qcwPar", r.qcwPar, "settings of a QCW (quasi-continuous-wave) source");
  io("weldYagPar", r.weldYagPar, "settings of a welding YAG source");
  return io.result();
}

}  // namespace

PARAM_RECORD_IO(LaserParamCO2)
PARAM_RECORD_IO(LaserParamYAG)
PARAM_RECORD_IO(LaserParamUV)
PARAM_RECORD_IO(LaserParamFiber)
PARAM_RECORD_IO(LaserParamQCW)
PARAM_RECORD_IO(LaserParamWeldYAG)
PARAM_RECORD_IO(LaserCheckParam)
PARAM_RECORD_IO(LaserParam)

}  // namespace param
