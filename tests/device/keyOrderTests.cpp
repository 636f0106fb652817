#include <gtest/gtest.h>

#include <type_traits>

#include <param/params/galvoCalPar.h>
#include <param/params/lmcParam.h>

#include "support/testSupport.h"

using testing_support::jsonOf;
using testing_support::keyLine;
using namespace param;

// Records whose default text is compared below are left out here.
TEST(DeviceKeyOrder, EveryRecordSavesItsKeysInOrder) {
  EXPECT_EQ(keyLine(GpiPar{}), "bEnable,index,bLevel,fliterTime");
  EXPECT_EQ(keyLine(IOParam{}),
            "markEndGpo,markingGpo,markLightGpo,redLightGpo,redFocusGpo,triggerMarkGpi");
  EXPECT_EQ(keyLine(FlyParam{}),
            "bufferCount,sortMode,startPosMode,startMarkPoint,triggerType,continuousSignal,"
            "continuousDelayDistance,triggerDelayMode,triggerDelayDistance,triggerDelayTime,"
            "triggerIntervalMode,triggerIntervalDistance,triggerIntervalTime,flyRtoL,"
            "flowLineType,encodeRevert,encodeNoDirection,encodePusleLen,flyEncoderID,"
            "flowFixSpeed,pipeMode,pipeDistance,pipeTime,pipeMarkCount,pipeMaxDistance");
  EXPECT_EQ(keyLine(LaserParamCO2{}),
            "pwmEnable,preionEnable,preionPw,preionFreq,fpsEnable,fpsStartPower,fpsPowerStep,"
            "powerMap,daEnable,daPowerMap,leakType,moOnTime,moOffTime");
  EXPECT_EQ(keyLine(LaserParamYAG{}),
            "pwmEnable,pwmPulseInverse,fpsEnable,fpsEndOpenPwm,fpsTime,daEnable,daCurrentMap,"
            "leakType,moOnTime,moOffTime");
  EXPECT_EQ(keyLine(LaserParamUV{}),
            "pwmEnable,pwmPulseInverse,powerEnable,fpsEnable,fpsEndOpenPwm,fpsTime,daEnable,"
            "daCurrentMap,leakType,moOnTime,moOffTime");
  EXPECT_EQ(keyLine(LaserParamMopa{}), "powerMap,leakType,moOnTime,moOffTime");
  EXPECT_EQ(keyLine(LaserParamQCW{}),
            "pwmEnable,daEnable,daPowerMap,daDelay,daLeakType,pwm2Enable,da2Enable,da2PowerMap,"
            "leakType,moOnTime,moOffTime");
  EXPECT_EQ(keyLine(LaserParamWeldYAG{}), "laserEnable,vWaveSelGpo");
  EXPECT_EQ(keyLine(LaserParam{}),
            "laserType,checkPar,co2Par,yagPar,uvPar,fiberPar,mopaPar,qcwPar,weldYagPar");
  EXPECT_EQ(keyLine(GalvoBox{}), "bucketX,bucketY,prrlX,prrlY,trapeX,trapeY,scaleX,scaleY");
  EXPECT_EQ(keyLine(GalvoEquiScale{}),
            "bEquiScaleCor,equiCorNum,setValX,actualValX,setValY,actualValY,fsrX,fsrY");
  EXPECT_EQ(keyLine(GalvoParam{}),
            "galvoSize,workSize,nResolution,offset,rotateAngle,rotateCenter,bXYFlip,bXInvert,"
            "bYInvert,boxCorPar,equiCorPar,bUseCorFile,szCorFile,corType");
  EXPECT_EQ(keyLine(AxisSetting{}),
            "axisId,axisEnable,bRevRot,bRotAxis,pitchPulse,screwPitch,maxRunSpeed,maxStartSpeed,"
            "maxAccSpeed,zeroEnable,zeroRevert,zeroSignal,zeroStartSpeed,zeroRunSpeed,zeroAcc,"
            "zeroOffset,zeroPreciseRunSpeed,zeroOrder,zeroTimeout,limitEnable,limitLeftPosition,"
            "limitRightPosition,signalValidType,leftLimitValidType,rightLimitValidType,"
            "gearRatio,gapCompensate");
  EXPECT_EQ(keyLine(AxisRunData{}), "startSpeed,runSpeed,accSpeed,bPreciseZero");
  EXPECT_EQ(keyLine(ExtAxisPar{}), "setting,runData");
  EXPECT_EQ(keyLine(LmcParam{}),
            "laserParam,galvoParam,markParam,redParam,ioParam,axParArray,flyParam");
}

// The exact text of default records: JSON types and defaults at once.
TEST(DeviceDefaults, SavedTextOfDefaultRecords) {
  EXPECT_EQ(jsonOf(GpoPar{}),
            R"({"bEnable":false,"index":-1,"bLevel":false,"outTime":100,"delayMode":1,)"
            R"("delayValue":0})");
  EXPECT_EQ(jsonOf(RedlightParam{}),
            R"({"outlineType":0,"focusOffset":{"x":0,"y":0},"offset":{"x":0,"y":0},)"
            R"("scale":{"x":1,"y":1},"speed":3000,"bInnerSrc":false})");
  EXPECT_EQ(jsonOf(MarkParam{}),
            R"({"markLineMaxLen":2,"afterMarkPosMode":0,"afterMarkPos":{"x":0,"y":0},)"
            R"("jumpNoCloseLaserDist":0.02,"heartTime":100,"watchDogEnable":false,)"
            R"("watchDogTimes":1000})");
  EXPECT_EQ(jsonOf(LaserParamFiber{}),
            R"({"powerMap":[0,10,20,30,40,50,60,70,80,90,100],"leakType":0,"moOnTime":8000,)"
            R"("moOffTime":0})");
  EXPECT_EQ(jsonOf(LaserCheckParam{}), R"({"bEnable":false,"pinState":[-1,-1,-1,-1,-1,-1]})");
}

TEST(DeviceDefaults, MembersOfUnsavedRecordsAndLaserSources) {
  const LaserParam laser;
  EXPECT_TRUE(laser.co2Par.pwmEnable && laser.co2Par.preionFreq == 5.0f);
  EXPECT_EQ(laser.yagPar.moOnTime + laser.fiberPar.moOnTime + laser.mopaPar.moOnTime, 24000);
  EXPECT_EQ(laser.uvPar.moOnTime + laser.qcwPar.moOnTime, 0);
  EXPECT_EQ(laser.qcwPar.daDelay, 100.0f);
  EXPECT_EQ(DASISDPara{}.flag + PowerSISDPara{}.flag + PWMSISDPara{}.flag, 3);

  const CalDataPt9 pt9;
  // clang-format off
  const double head[] = {0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 50, 50, 50, 50, 0, 0, 1, 1, 1, 1, 1, 1,
                         0, 0, 0, 0, 0, 0, 1.5707963267948966};
  // clang-format on
  ASSERT_EQ(pt9.values.size(), std::size(head) + 28);
  for (std::size_t i = 0; i < pt9.values.size(); ++i) {
    EXPECT_EQ(pt9.values[i], i < std::size(head) ? head[i] : 0.0) << i;
  }
  EXPECT_EQ(StackData{}.count * 10 + StackData{}.mode, 51);
  EXPECT_EQ(GalvoCalPar{}.gridDim, 21);
  static_assert(std::is_trivially_copyable_v<IOParam> && std::is_trivially_copyable_v<FlyParam>);
}
