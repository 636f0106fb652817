#pragma once

// The job of the peer benchmark (bench/peers.cpp), a pen table and a board
// record, and the table of their keys that the JSON readers and writers
// written by hand with other libraries walk.
//
// The library's own key lists sit beside each record and are not visible from
// here, so the hand-written mappings carry a table of their own, as a host
// using another JSON library would. The check at the start of the benchmark
// compares what they write with the library's text byte for byte, so a key
// missing here, or one that the library gains later, stops the benchmark.

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include <param/params/lmcParam.h>
#include <param/params/penArray.h>

namespace peers {

// The document's information block.
struct Info {
  std::string ver;
  std::string os;
  std::uint8_t arch = 0;
  std::string extension;
};

// What is read and written: {"pens": {"params": [...]}, "board": {...},
// "__SERIALIZE__INFORMATION__": {...}}.
struct Job {
  param::PenArray pens;
  param::LmcParam board;
  Info info;
};

// `R` is `T`, or derived from it, const or not: one table serves reading and writing.
template <class R, class T>
concept Of = std::derived_from<std::remove_const_t<R>, T>;

// A record array as the plain list of its elements.
template <class T>
std::vector<T>& asList(param::ParamArray<T>& a) {
  return a;
}
template <class T>
const std::vector<T>& asList(const param::ParamArray<T>& a) {
  return a;
}

// ---- The kinds of member a reader or writer meets ----

template <class T>
struct IsStdArray : std::false_type {};
template <class T, std::size_t N>
struct IsStdArray<std::array<T, N>> : std::true_type {};

template <class T>
struct IsVector : std::false_type {};
template <class T, class A>
struct IsVector<std::vector<T, A>> : std::true_type {};

template <class T>
concept CharArray = std::is_array_v<T> && std::same_as < std::remove_extent_t<T>,
char > ;

// ---- The key table: one function per record, keys in the library's order ----

void fields(auto& v, Of<param::Point2d> auto& r) {
  v("x", r.x);
  v("y", r.y);
}

void fields(auto& v, Of<param::PulsePointParam> auto& r) {
  v("bEnable", r.bEnable);
  v("pulsePerPoint", r.pulsePerPoint);
}

void fields(auto& v, Of<param::StepMarkParam> auto& r) {
  v("bEnable", r.bEnable);
  v("stepDelay", r.stepDelay);
  v("stepLen", r.stepLen);
}

void fields(auto& v, Of<param::WobbleParam> auto& r) {
  v("bEnable", r.bEnable);
  v("wobbleType", r.wobbleType);
  v("wobbleDiaX", r.wobbleDiaX);
  v("wobbleDiaY", r.wobbleDiaY);
  v("wobbleSpace", r.wobbleSpace);
}

void fields(auto& v, Of<param::OptimizeFocusParam> auto& r) {
  v("bEnable", r.bEnable);
  v("startTime", r.startTime);
  v("endTime", r.endTime);
  v("interrupAngle", r.interrupAngle);
}

// The pens of this benchmark carry no extension: "extParam" is an empty object.
void fields(auto&, Of<param::ExtParamProxy> auto&) {}

void fields(auto& v, Of<param::PenParam> auto& r) {
  v("penId", r.penId);
  v("penName", r.penName);
  v("bEnable", r.bEnable);
  v("markCount", r.markCount);
  v("runSpeed", r.runSpeed);
  v("laserPower", r.laserPower);
  v("effectWaitTime", r.effectWaitTime);
  v("current", r.current);
  v("laserFreq", r.laserFreq);
  v("pulseWidth", r.pulseWidth);
  v("mopaPulse", r.mopaPulse);
  v("openDelay", r.openDelay);
  v("shutDelay", r.shutDelay);
  v("endDelay", r.endDelay);
  v("cornerDelay", r.cornerDelay);
  v("bChangeCornerDelay", r.bChangeCornerDelay);
  v("pointTime", r.pointTime);
  v("openBehind", r.openBehind);
  v("jumpSpeed", r.jumpSpeed);
  v("jumpMinDelay", r.jumpMinDelay);
  v("jumpMaxDelay", r.jumpMaxDelay);
  v("jumpMaxDist", r.jumpMaxDist);
  v("pulsePoint", r.pulsePoint);
  v("stepMark", r.stepMark);
  v("wobble", r.wobble);
  v("optFocus", r.optFocus);
  v("extParam", r.extParam);
}

void fields(auto& v, Of<param::PenArray> auto& r) {
  v("params", asList(r));
}

void fields(auto& v, Of<param::GpoPar> auto& r) {
  v("bEnable", r.bEnable);
  v("index", r.index);
  v("bLevel", r.bLevel);
  v("outTime", r.outTime);
  v("delayMode", r.delayMode);
  v("delayValue", r.delayValue);
}

void fields(auto& v, Of<param::GpiPar> auto& r) {
  v("bEnable", r.bEnable);
  v("index", r.index);
  v("bLevel", r.bLevel);
  v("fliterTime", r.fliterTime);
}

void fields(auto& v, Of<param::LaserCheckParam> auto& r) {
  v("bEnable", r.bEnable);
  v("pinState", r.pinState);
}

void fields(auto& v, Of<param::LaserParamCO2> auto& r) {
  v("pwmEnable", r.pwmEnable);
  v("preionEnable", r.preionEnable);
  v("preionPw", r.preionPw);
  v("preionFreq", r.preionFreq);
  v("fpsEnable", r.fpsEnable);
  v("fpsStartPower", r.fpsStartPower);
  v("fpsPowerStep", r.fpsPowerStep);
  v("powerMap", r.powerMap);
  v("daEnable", r.daEnable);
  v("daPowerMap", r.daPowerMap);
  v("leakType", r.leakType);
  v("moOnTime", r.moOnTime);
  v("moOffTime", r.moOffTime);
}

void fields(auto& v, Of<param::LaserParamYAG> auto& r) {
  v("pwmEnable", r.pwmEnable);
  v("pwmPulseInverse", r.pwmPulseInverse);
  v("fpsEnable", r.fpsEnable);
  v("fpsEndOpenPwm", r.fpsEndOpenPwm);
  v("fpsTime", r.fpsTime);
  v("daEnable", r.daEnable);
  v("daCurrentMap", r.daCurrentMap);
  v("leakType", r.leakType);
  v("moOnTime", r.moOnTime);
  v("moOffTime", r.moOffTime);
}

void fields(auto& v, Of<param::LaserParamUV> auto& r) {
  v("pwmEnable", r.pwmEnable);
  v("pwmPulseInverse", r.pwmPulseInverse);
  v("powerEnable", r.powerEnable);
  v("fpsEnable", r.fpsEnable);
  v("fpsEndOpenPwm", r.fpsEndOpenPwm);
  v("fpsTime", r.fpsTime);
  v("daEnable", r.daEnable);
  v("daCurrentMap", r.daCurrentMap);
  v("leakType", r.leakType);
  v("moOnTime", r.moOnTime);
  v("moOffTime", r.moOffTime);
}

// Fiber and MOPA (derived from it) have the same keys.
void fields(auto& v, Of<param::LaserParamFiber> auto& r) {
  v("powerMap", r.powerMap);
  v("leakType", r.leakType);
  v("moOnTime", r.moOnTime);
  v("moOffTime", r.moOffTime);
}

void fields(auto& v, Of<param::LaserParamQCW> auto& r) {
  v("pwmEnable", r.pwmEnable);
  v("daEnable", r.daEnable);
  v("daPowerMap", r.daPowerMap);
  v("daDelay", r.daDelay);
  v("daLeakType", r.daLeakType);
  v("pwm2Enable", r.pwm2Enable);
  v("da2Enable", r.da2Enable);
  v("da2PowerMap", r.da2PowerMap);
  v("leakType", r.leakType);
  v("moOnTime", r.moOnTime);
  v("moOffTime", r.moOffTime);
}

void fields(auto& v, Of<param::LaserParamWeldYAG> auto& r) {
  v("laserEnable", r.laserEnable);
  v("vWaveSelGpo", r.vWaveSelGpo);
}

void fields(auto& v, Of<param::LaserParam> auto& r) {
  v("laserType", r.laserType);
  v("checkPar", r.checkPar);
  v("co2Par", r.co2Par);
  v("yagPar", r.yagPar);
  v("uvPar", r.uvPar);
  v("fiberPar", r.fiberPar);
  v("mopaPar", r.mopaPar);
  v("qcwPar", r.qcwPar);
  v("weldYagPar", r.weldYagPar);
}

void fields(auto& v, Of<param::GalvoBox> auto& r) {
  v("bucketX", r.bucketX);
  v("bucketY", r.bucketY);
  v("prrlX", r.prrlX);
  v("prrlY", r.prrlY);
  v("trapeX", r.trapeX);
  v("trapeY", r.trapeY);
  v("scaleX", r.scaleX);
  v("scaleY", r.scaleY);
}

void fields(auto& v, Of<param::GalvoEquiScale> auto& r) {
  v("bEquiScaleCor", r.bEquiScaleCor);
  v("equiCorNum", r.equiCorNum);
  v("setValX", r.setValX);
  v("actualValX", r.actualValX);
  v("setValY", r.setValY);
  v("actualValY", r.actualValY);
  v("fsrX", r.fsrX);
  v("fsrY", r.fsrY);
}

void fields(auto& v, Of<param::GalvoParam> auto& r) {
  v("galvoSize", r.galvoSize);
  v("workSize", r.workSize);
  v("nResolution", r.nResolution);
  v("offset", r.offset);
  v("rotateAngle", r.rotateAngle);
  v("rotateCenter", r.rotateCenter);
  v("bXYFlip", r.bXYFlip);
  v("bXInvert", r.bXInvert);
  v("bYInvert", r.bYInvert);
  v("boxCorPar", r.boxCorPar);
  v("equiCorPar", r.equiCorPar);
  v("bUseCorFile", r.bUseCorFile);
  v("szCorFile", r.szCorFile);
  v("corType", r.corType);
}

void fields(auto& v, Of<param::MarkParam> auto& r) {
  v("markLineMaxLen", r.markLineMaxLen);
  v("afterMarkPosMode", r.afterMarkPosMode);
  v("afterMarkPos", r.afterMarkPos);
  v("jumpNoCloseLaserDist", r.jumpNoCloseLaserDist);
  v("heartTime", r.heartTime);
  v("watchDogEnable", r.watchDogEnable);
  v("watchDogTimes", r.watchDogTimes);
}

void fields(auto& v, Of<param::RedlightParam> auto& r) {
  v("outlineType", r.outlineType);
  v("focusOffset", r.focusOffset);
  v("offset", r.offset);
  v("scale", r.scale);
  v("speed", r.speed);
  v("bInnerSrc", r.bInnerSrc);
}

void fields(auto& v, Of<param::IOParam> auto& r) {
  v("markEndGpo", r.markEndGpo);
  v("markingGpo", r.markingGpo);
  v("markLightGpo", r.markLightGpo);
  v("redLightGpo", r.redLightGpo);
  v("redFocusGpo", r.redFocusGpo);
  v("triggerMarkGpi", r.triggerMarkGpi);
}

void fields(auto& v, Of<param::AxisSetting> auto& r) {
  v("axisId", r.axisId);
  v("axisEnable", r.axisEnable);
  v("bRevRot", r.bRevRot);
  v("bRotAxis", r.bRotAxis);
  v("pitchPulse", r.pitchPulse);
  v("screwPitch", r.screwPitch);
  v("maxRunSpeed", r.maxRunSpeed);
  v("maxStartSpeed", r.maxStartSpeed);
  v("maxAccSpeed", r.maxAccSpeed);
  v("zeroEnable", r.zeroEnable);
  v("zeroRevert", r.zeroRevert);
  v("zeroSignal", r.zeroSignal);
  v("zeroStartSpeed", r.zeroStartSpeed);
  v("zeroRunSpeed", r.zeroRunSpeed);
  v("zeroAcc", r.zeroAcc);
  v("zeroOffset", r.zeroOffset);
  v("zeroPreciseRunSpeed", r.zeroPreciseRunSpeed);
  v("zeroOrder", r.zeroOrder);
  v("zeroTimeout", r.zeroTimeout);
  v("limitEnable", r.limitEnable);
  v("limitLeftPosition", r.limitLeftPosition);
  v("limitRightPosition", r.limitRightPosition);
  v("signalValidType", r.signalValidType);
  v("leftLimitValidType", r.leftLimitValidType);
  v("rightLimitValidType", r.rightLimitValidType);
  v("gearRatio", r.gearRatio);
  v("gapCompensate", r.gapCompensate);
}

void fields(auto& v, Of<param::AxisRunData> auto& r) {
  v("startSpeed", r.startSpeed);
  v("runSpeed", r.runSpeed);
  v("accSpeed", r.accSpeed);
  v("bPreciseZero", r.bPreciseZero);
}

void fields(auto& v, Of<param::ExtAxisPar> auto& r) {
  v("setting", r.setting);
  v("runData", r.runData);
}

void fields(auto& v, Of<param::FlyParam> auto& r) {
  v("bufferCount", r.bufferCount);
  v("sortMode", r.sortMode);
  v("startPosMode", r.startPosMode);
  v("startMarkPoint", r.startMarkPoint);
  v("triggerType", r.triggerType);
  v("continuousSignal", r.continuousSignal);
  v("continuousDelayDistance", r.continuousDelayDistance);
  v("triggerDelayMode", r.triggerDelayMode);
  v("triggerDelayDistance", r.triggerDelayDistance);
  v("triggerDelayTime", r.triggerDelayTime);
  v("triggerIntervalMode", r.triggerIntervalMode);
  v("triggerIntervalDistance", r.triggerIntervalDistance);
  v("triggerIntervalTime", r.triggerIntervalTime);
  v("flyRtoL", r.flyRtoL);
  v("flowLineType", r.flowLineType);
  v("encodeRevert", r.encodeRevert);
  v("encodeNoDirection", r.encodeNoDirection);
  v("encodePusleLen", r.encodePusleLen);
  v("flyEncoderID", r.flyEncoderID);
  v("flowFixSpeed", r.flowFixSpeed);
  v("pipeMode", r.pipeMode);
  v("pipeDistance", r.pipeDistance);
  v("pipeTime", r.pipeTime);
  v("pipeMarkCount", r.pipeMarkCount);
  v("pipeMaxDistance", r.pipeMaxDistance);
}

void fields(auto& v, Of<param::LmcParam> auto& r) {
  v("laserParam", r.laserParam);
  v("galvoParam", r.galvoParam);
  v("markParam", r.markParam);
  v("redParam", r.redParam);
  v("ioParam", r.ioParam);
  v("axParArray", asList(r.axParArray));
  v("flyParam", r.flyParam);
}

void fields(auto& v, Of<Info> auto& r) {
  v("ver", r.ver);
  v("os", r.os);
  v("arch", r.arch);
  v("extension", r.extension);
}

void fields(auto& v, Of<Job> auto& r) {
  v("pens", r.pens);
  v("board", r.board);
  v("__SERIALIZE__INFORMATION__", r.info);
}

// A type with a key table: stored as a JSON object.
struct AnyVisitor {
  template <class T>
  void operator()(const char*, T&) {}
};
template <class T>
concept Record = requires(AnyVisitor& v, T& r) {
  fields(v, r);
};

// ---- The sample job ----

// `pens` pens and a board in which every member has a value of its own (none
// keeps its default), so that a reader that skips or mixes up a key is caught.
// Numbers are the short decimals people type ("12.5", "0.37"); the information
// block is the one this build of the library writes for a ".cfg" file.
Job sampleJob(std::size_t pens);

}  // namespace peers
