#include <param/params/laserParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {

SdkError keys(auto&& io, RecordOf<LaserParamCO2> auto& r) {
  io("pwmEnable", r.pwmEnable);
  io("preionEnable", r.preionEnable);
  io("preionPw", r.preionPw);
  io("preionFreq", r.preionFreq);
  io("fpsEnable", r.fpsEnable);
  io("fpsStartPower", r.fpsStartPower);
  io("fpsPowerStep", r.fpsPowerStep);
  io("powerMap", r.powerMap);
  io("daEnable", r.daEnable);
  io("daPowerMap", r.daPowerMap);
  io("leakType", r.leakType);
  io("moOnTime", r.moOnTime);
  io("moOffTime", r.moOffTime);
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserParamYAG> auto& r) {
  io("pwmEnable", r.pwmEnable);
  io("pwmPulseInverse", r.pwmPulseInverse);
  io("fpsEnable", r.fpsEnable);
  io("fpsEndOpenPwm", r.fpsEndOpenPwm);
  io("fpsTime", r.fpsTime);
  io("daEnable", r.daEnable);
  io("daCurrentMap", r.daCurrentMap);
  io("leakType", r.leakType);
  io("moOnTime", r.moOnTime);
  io("moOffTime", r.moOffTime);
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserParamUV> auto& r) {
  io("pwmEnable", r.pwmEnable);
  io("pwmPulseInverse", r.pwmPulseInverse);
  io("powerEnable", r.powerEnable);
  io("fpsEnable", r.fpsEnable);
  io("fpsEndOpenPwm", r.fpsEndOpenPwm);
  io("fpsTime", r.fpsTime);
  io("daEnable", r.daEnable);
  io("daCurrentMap", r.daCurrentMap);
  io("leakType", r.leakType);
  io("moOnTime", r.moOnTime);
  io("moOffTime", r.moOffTime);
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserParamFiber> auto& r) {
  io("powerMap", r.powerMap);
  io("leakType", r.leakType);
  io("moOnTime", r.moOnTime);
  io("moOffTime", r.moOffTime);
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserParamQCW> auto& r) {
  io("pwmEnable", r.pwmEnable);
  io("daEnable", r.daEnable);
  io("daPowerMap", r.daPowerMap);
  io("daDelay", r.daDelay);
  io("daLeakType", r.daLeakType);
  io("pwm2Enable", r.pwm2Enable);
  io("da2Enable", r.da2Enable);
  io("da2PowerMap", r.da2PowerMap);
  io("leakType", r.leakType);
  io("moOnTime", r.moOnTime);
  io("moOffTime", r.moOffTime);
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserParamWeldYAG> auto& r) {
  io("laserEnable", r.laserEnable);
  io("vWaveSelGpo", r.vWaveSelGpo);
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserCheckParam> auto& r) {
  io("bEnable", r.bEnable);
  io("pinState", r.pinState);
  return io.result();
}

SdkError keys(auto&& io, RecordOf<LaserParam> auto& r) {
  io("laserType", r.laserType);
  io("checkPar", r.checkPar);
  io("co2Par", r.co2Par);
  io("yagPar", r.yagPar);
  io("uvPar", r.uvPar);
  io("fiberPar", r.fiberPar);
  io("mopaPar", r.mopaPar);
  io("qcwPar", r.qcwPar);
  io("weldYagPar", r.weldYagPar);
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
