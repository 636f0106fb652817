#include <gtest/gtest.h>

#include <climits>

#include <param/params/lmcParam.h>

#include "support/testSupport.h"

using testing_support::edit;
using testing_support::jsonOf;
using testing_support::loadJson;
using testing_support::RecordingHandler;
using utils::ErrorResponseType;
using Codes = std::vector<utils::SdkError>;
namespace errc = utils::errc;
using namespace param;

TEST(LaserLoad, FixedArraysTakeOnlyTheEntriesGiven) {
  RecordingHandler strict(ErrorResponseType::Abort);
  LaserParamFiber fiber;
  EXPECT_EQ(loadJson(fiber, R"({"powerMap":[1,2,3,4,5],"leakType":1,"moOnTime":2,"moOffTime":3})"),
            0u);
  EXPECT_EQ(fiber.powerMap, (PowerMap{1, 2, 3, 4, 5, 50, 60, 70, 80, 90, 100}));
  EXPECT_EQ(loadJson(fiber, R"({"powerMap":[0,1,2,3,4,5,6,7,8,9,10.5,11,12]})"), errc::keyMissing);
  EXPECT_EQ(fiber.powerMap, (PowerMap{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10.5f}));
  EXPECT_EQ(fiber.moOnTime, 2);

  LaserCheckParam check;
  EXPECT_EQ(loadJson(check, R"({"bEnable":true,"pinState":[0,1,0,1,0,1,1,1]})"), 0u);
  EXPECT_EQ(check.pinState, (std::array<std::int8_t, 6>{0, 1, 0, 1, 0, 1}));
  EXPECT_EQ(loadJson(check, R"({"bEnable":true,"pinState":[-1,200]})"), errc::outOfRange);
  EXPECT_EQ(check.pinState, (std::array<std::int8_t, 6>{-1, 1, 0, 1, 0, 1}));
  EXPECT_EQ(loadJson(check, R"({"bEnable":true,"pinState":{"0":1}})"), errc::wrongType);
}

TEST(LaserLoad, BadPowerMapUnderBothResponses) {
  const char* badMap = R"({"powerMap":[5,6,"x",8],"leakType":4,"moOnTime":1,"moOffTime":2})";
  {
    RecordingHandler strict(ErrorResponseType::Abort);
    LaserParamMopa mopa;
    EXPECT_EQ(loadJson(mopa, badMap), errc::wrongType);
    // Entries before the bad one are kept; later entries and keys are untouched.
    EXPECT_EQ(mopa.powerMap, (PowerMap{5, 6, 20, 30, 40, 50, 60, 70, 80, 90, 100}));
    EXPECT_EQ(mopa.leakType, 0);
  }
  RecordingHandler lenient(ErrorResponseType::Ignore);
  LaserParamMopa mopa;
  EXPECT_EQ(loadJson(mopa, badMap), 0u);
  EXPECT_EQ(mopa.powerMap[3], 30.0f);
  EXPECT_EQ(mopa.leakType, 4);
  EXPECT_EQ(lenient.codes, (Codes{errc::wrongType}));
}

TEST(LaserLoad, WeldingWaveSelectListIsReplacedOnlyWhenWhole) {
  const std::string gpo = jsonOf(GpoPar{});
  const std::string def = edit(jsonOf(LaserParam{}), R"("laserType":2)", R"("laserType":5)");
  const std::string bad =
      edit(def, R"("vWaveSelGpo":[])", "\"vWaveSelGpo\":[" + gpo + "," + gpo + ",7]");
  LaserParam laser;
  laser.weldYagPar.vWaveSelGpo.resize(1);
  laser.weldYagPar.vWaveSelGpo[0].index = 11;
  {
    // Abort: the welding record and the laser record each report once.
    RecordingHandler strict(ErrorResponseType::Abort);
    EXPECT_EQ(loadJson(laser, bad), errc::wrongType);
    EXPECT_EQ(strict.calls(), 2u);
    EXPECT_EQ(laser.laserType, 5);
  }
  ASSERT_EQ(laser.weldYagPar.vWaveSelGpo.size(), 1u);
  EXPECT_EQ(laser.weldYagPar.vWaveSelGpo[0].index, 11);
  // Ignore: reported once; the list is kept.
  RecordingHandler lenient(ErrorResponseType::Ignore);
  EXPECT_EQ(loadJson(laser, bad), 0u);
  EXPECT_EQ(lenient.codes, (Codes{errc::wrongType}));
  EXPECT_EQ(laser.weldYagPar.vWaveSelGpo[0].index, 11);
}

TEST(IoMarkFlyLoad, RangeAndArrayRules) {
  RecordingHandler lenient(ErrorResponseType::Ignore);
  MarkParam mark;
  EXPECT_EQ(loadJson(mark, R"({"heartTime":7,"watchDogTimes":70000})"), 0u);
  EXPECT_EQ(mark.watchDogTimes, 1000);
  EXPECT_EQ(mark.heartTime, 7);
  EXPECT_EQ(lenient.codes.back(), errc::outOfRange);
  mark.jumpNoCloseLaserDist = 0.5f;
  EXPECT_EQ(loadJson(mark, jsonOf(MarkParam{})), 0u);
  EXPECT_EQ(mark.jumpNoCloseLaserDist, 0.02f);

  std::string text =
      edit(jsonOf(FlyParam{}), R"("encodeRevert":[false,false])", R"("encodeRevert":[true])");
  text = edit(text, R"("encodeNoDirection":[false,false])", R"("encodeNoDirection":[1,true])");
  text = edit(text, R"("encodePusleLen":[15,15])", R"("encodePusleLen":[2.5,3,4])");
  text = edit(text, R"("pipeTime":100,)", "");
  text = edit(text, R"("pipeMaxDistance":0)", R"("pipeMaxDistance":12.5)");
  FlyParam fly;
  fly.pipeTime = 5;
  EXPECT_EQ(loadJson(fly, text), 0u);
  EXPECT_EQ(fly.encodeRevert, (std::array<bool, 2>{true, false}));
  EXPECT_EQ(fly.encodeNoDirection, (std::array<bool, 2>{false, false}));  // 1 is no bool
  EXPECT_EQ(fly.encodePusleLen, (std::array<float, 2>{2.5f, 3.0f}));
  EXPECT_EQ(fly.pipeTime, 5u);
  EXPECT_EQ(fly.pipeMaxDistance, 12.5f);
}

TEST(GalvoParamTest, SetResolutionDerivedMembers) {
  GalvoParam g;
  EXPECT_EQ(g.halfRange, 32768);
  EXPECT_EQ(g.halfRangeSq, 1073741824.0);
  EXPECT_EQ(g.unitsPerMm, 546.125);
  g.setResolution(4);
  EXPECT_EQ(g.halfRange, 2);
  EXPECT_EQ(g.halfRangeSq, 4.0);
  g.galvoSize = 0.0;
  g.setResolution(1001);
  EXPECT_EQ(g.halfRange, 501);
  EXPECT_EQ(g.unitsPerMm, 4.0 / 120.0);
  g.setResolution(INT_MAX);
  EXPECT_EQ(g.halfRangeSq, 1152921504606846976.0);

  // Loading stores a new resolution but leaves the derived members alone.
  RecordingHandler lenient(ErrorResponseType::Ignore);
  GalvoParam loaded;
  EXPECT_EQ(loadJson(loaded, R"({"galvoSize":100,"nResolution":1001})"), 0u);
  EXPECT_EQ(loaded.halfRange, 32768);
  loaded.setResolution(loaded.nResolution);
  EXPECT_EQ(loaded.unitsPerMm, 10.01);
}

TEST(GalvoParamTest, NestedCorrectionsAndListsUnderBothResponses) {
  RecordingHandler lenient(ErrorResponseType::Ignore);
  GalvoParam g;
  EXPECT_EQ(loadJson(g, R"({"workSize":{"x":90.5},"boxCorPar":{"bucketX":0.5},)"
                        R"("equiCorPar":{"equiCorNum":9,"setValX":[-10,0,10]},"corType":3})"),
            0u);
  EXPECT_EQ(g.workSize, (Point2d{90.5, 110.0}));
  EXPECT_EQ(g.boxCorPar.bucketX, 0.5);
  EXPECT_EQ(g.boxCorPar.scaleY, 100.0);
  EXPECT_EQ(g.equiCorPar.setValX, (std::vector<double>{-10, 0, 10}));
  EXPECT_EQ(g.corType, 3);
  // A list with a bad element keeps its content; the next list still loads.
  const char* bad = R"({"equiCorPar":{"setValX":[1,true,3],"fsrX":[2]}})";
  EXPECT_EQ(loadJson(g, bad), 0u);
  EXPECT_EQ(g.equiCorPar.setValX, (std::vector<double>{-10, 0, 10}));
  EXPECT_EQ(g.equiCorPar.fsrX, (std::vector<double>{2}));

  RecordingHandler strict(ErrorResponseType::Abort);
  // Abort inside a nested record: the inner and the outer record each report.
  EXPECT_EQ(loadJson(g, edit(jsonOf(GalvoParam{}), R"("setValX":[])", R"("setValX":[1,true])")),
            errc::wrongType);
  EXPECT_EQ(strict.calls(), 2u);
  EXPECT_EQ(g.workSize.x, 110.0);
  EXPECT_EQ(g.boxCorPar.bucketX, 1.0);
  EXPECT_EQ(g.equiCorPar.equiCorNum, 9);
  EXPECT_EQ(g.equiCorPar.fsrX.size(), 1u);
}

TEST(AxisTest, ZeroLevelAndArrayConstruction) {
  AxisSetting s;
  s.signalValidType = 5;
  s.revertZeroLevel();
  EXPECT_EQ(s.signalValidType, 0);
  s.revertZeroLevel();
  s.revertZeroLevel();
  EXPECT_EQ(s.signalValidType, 0);

  EXPECT_TRUE(ExtAxisParArray(0).empty());
  EXPECT_TRUE(ExtAxisParArray(-3).empty());
  const ExtAxisParArray three(3);
  ASSERT_EQ(three.size(), 3u);
  EXPECT_EQ(three[2].id(), 2);
  EXPECT_EQ(three.indexOf(1), 1);
  EXPECT_EQ(ExtAxisParArray().size(), 2u);
  EXPECT_EQ(ExtAxisParArray().indexOf(7), -1);
  ExtAxisPar axis;
  axis.setting.axisId = 7;
  EXPECT_EQ(ExtAxisParArray(axis).indexOf(7), 0);
}
