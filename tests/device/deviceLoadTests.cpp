#include <gtest/gtest.h>

#include <climits>
#include <tuple>

#include <param/params/lmcParam.h>
#include <param/seri/seriDocument.h>

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
  EXPECT_EQ(loadJson(check, R"({"bEnable":true,"pinState":[1,200]})"), errc::outOfRange);
  EXPECT_EQ(check.pinState, (std::array<std::int8_t, 6>{1, -1, -1, -1, -1, -1}));
  EXPECT_EQ(loadJson(check, R"({"bEnable":true,"pinState":{"0":1}})"), errc::wrongType);

  // A bad entry: the entries before it are kept, later ones untouched; only
  // Ignore goes on with the later keys.
  for (auto answer : {ErrorResponseType::Ignore, ErrorResponseType::Abort}) {
    const bool abort = answer == ErrorResponseType::Abort;
    RecordingHandler h(answer);
    LaserParamMopa mopa;
    EXPECT_EQ(loadJson(mopa, R"({"powerMap":[5,6,"x",8],"leakType":4,"moOnTime":1,"moOffTime":2})"),
              abort ? errc::wrongType : 0u);
    EXPECT_EQ(mopa.powerMap, (PowerMap{5, 6, 20, 30, 40, 50, 60, 70, 80, 90, 100}));
    EXPECT_EQ(mopa.leakType, abort ? 0 : 4);
    EXPECT_EQ(h.codes, Codes{errc::wrongType});
  }
}

TEST(LaserLoad, WeldingWaveSelectListIsReplacedOnlyWhenWhole) {
  const std::string gpo = jsonOf(GpoPar{});
  const std::string def = edit(jsonOf(LaserParam{}), R"("laserType":2)", R"("laserType":5)");
  const std::string bad =
      edit(def, R"("vWaveSelGpo":[])", "\"vWaveSelGpo\":[" + gpo + "," + gpo + ",7]");
  for (auto answer : {ErrorResponseType::Ignore, ErrorResponseType::Abort}) {
    const bool abort = answer == ErrorResponseType::Abort;
    RecordingHandler h(answer);
    LaserParam laser;
    laser.weldYagPar.vWaveSelGpo.resize(1);
    laser.weldYagPar.vWaveSelGpo[0].index = 11;
    EXPECT_EQ(loadJson(laser, bad), abort ? errc::wrongType : 0u);
    // On Abort the welding record and the laser record each report it.
    EXPECT_EQ(h.codes, Codes(abort ? 2 : 1, errc::wrongType));
    EXPECT_EQ(laser.laserType, 5);
    ASSERT_EQ(laser.weldYagPar.vWaveSelGpo.size(), 1u);
    EXPECT_EQ(laser.weldYagPar.vWaveSelGpo[0].index, 11);
  }
}

TEST(IoMarkFlyLoad, RangeAndArrayRules) {
  RecordingHandler lenient(ErrorResponseType::Ignore);
  MarkParam mark;
  EXPECT_EQ(loadJson(mark, R"({"heartTime":7,"watchDogTimes":70000})"), 0u);
  EXPECT_EQ(mark.watchDogTimes, 1000);
  EXPECT_EQ(mark.heartTime, 7);
  EXPECT_EQ(lenient.codes.back(), errc::outOfRange);

  FlyParam fly;
  fly.pipeTime = 5;
  EXPECT_EQ(loadJson(fly, R"({"encodeRevert":[true],"encodeNoDirection":[1,true],)"
                          R"("encodePusleLen":[2.5,3,4],"pipeMaxDistance":12.5})"),
            0u);
  EXPECT_EQ(fly.encodeRevert, (std::array<bool, 2>{true, false}));
  EXPECT_EQ(fly.encodeNoDirection, (std::array<bool, 2>{false, false}));  // 1 is no bool
  EXPECT_EQ(fly.encodePusleLen, (std::array<float, 2>{2.5f, 3.0f}));
  EXPECT_EQ(fly.pipeTime, 5u);
  EXPECT_EQ(fly.pipeMaxDistance, 12.5f);
}

TEST(GalvoParamTest, SetResolutionDerivedMembers) {
  auto derived = [](const GalvoParam& g) {
    return std::tuple(g.halfRange, g.halfRangeSq, g.unitsPerMm);
  };
  GalvoParam g;
  EXPECT_EQ(derived(g), std::tuple(32768, 1073741824.0, 546.125));
  g.setResolution(4);
  EXPECT_EQ(derived(g), std::tuple(2, 4.0, 4.0 / 120.0));
  g.galvoSize = 0.0;  // leaves unitsPerMm as it is
  g.setResolution(1001);
  EXPECT_EQ(derived(g), std::tuple(501, 251001.0, 4.0 / 120.0));
  g.setResolution(INT_MAX);
  EXPECT_EQ(derived(g), std::tuple(1073741824, 1152921504606846976.0, 4.0 / 120.0));

  // Loading stores a new resolution but leaves the derived members alone.
  GalvoParam loaded;
  EXPECT_EQ(loadJson(loaded, R"({"galvoSize":100,"nResolution":1001})"), 0u);
  EXPECT_EQ(loaded.halfRange, 32768);
  loaded.setResolution(loaded.nResolution);
  EXPECT_EQ(loaded.unitsPerMm, 10.01);
}

TEST(GalvoParamTest, NestedCorrectionsAndListsUnderBothResponses) {
  RecordingHandler lenient(ErrorResponseType::Ignore);
  GalvoParam g;
  g.equiCorPar.setValX = {7.0};  // a list that is read replaces the old one
  EXPECT_EQ(loadJson(g, R"({"workSize":{"x":90.5},"boxCorPar":{"bucketX":0.5},)"
                        R"("equiCorPar":{"equiCorNum":9,"setValX":[-10,0,10]},"corType":3})"),
            0u);
  EXPECT_EQ(g.workSize, (Point2d{90.5, 110.0}));
  EXPECT_EQ(g.boxCorPar.bucketX, 0.5);
  EXPECT_EQ(g.boxCorPar.scaleY, 100.0);
  EXPECT_EQ(g.equiCorPar.setValX, (std::vector<double>{-10, 0, 10}));
  EXPECT_EQ(g.corType, 3);
  // A list with a bad element keeps its content; the next list still loads.
  EXPECT_EQ(loadJson(g, R"({"equiCorPar":{"setValX":[1,true,3],"fsrX":[2]}})"), 0u);
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
  EXPECT_EQ(s.signalValidType, 1);

  EXPECT_TRUE(ExtAxisParArray(0).empty() && ExtAxisParArray(-3).empty());
  const ExtAxisParArray three(3);
  ASSERT_EQ(three.size(), 3u);
  EXPECT_EQ(three[2].id(), 2);
  EXPECT_EQ(three.indexOf(1), 1);
  EXPECT_EQ(ExtAxisParArray().indexOf(7), -1);
  ExtAxisPar axis;
  axis.setting.axisId = 7;
  EXPECT_EQ(ExtAxisParArray(axis).indexOf(7), 0);
}

TEST(LmcParamTest, BoardSurvivesEveryEncodingOnDisk) {
  RecordingHandler strict(ErrorResponseType::Abort);
  LmcParam lmc;
  lmc.laserParam.laserType = 4;
  lmc.laserParam.qcwPar.da2PowerMap[10] = 95.5f;
  lmc.laserParam.weldYagPar.vWaveSelGpo.resize(3);
  lmc.laserParam.weldYagPar.vWaveSelGpo[2].outTime = 1234;
  lmc.galvoParam.szCorFile = "lens\\f160.gcd";
  lmc.galvoParam.equiCorPar.actualValY = {0.1, -0.25, 1e-9};
  lmc.redParam.scale = {0.999, 1.001};
  lmc.axParArray.resize(4);
  lmc.axParArray[3].setting.limitLeftPosition = -12.75f;
  lmc.flyParam.pipeMaxDistance = 3.25f;
  const std::string expected = jsonOf(lmc);
  // The axes are the array itself, not wrapped in an object.
  EXPECT_NE(expected.find(R"("axParArray":[{"setting":{"axisId":0,)"), std::string::npos);

  testing_support::TempDir dir;
  for (unsigned encoding = 0; encoding < 4; ++encoding) {
    for (unsigned key = 0; key < 4; ++key) {
      const SeriOption option(static_cast<SeriOption::Encoding>(encoding), key, key);
      SCOPED_TRACE(option.word);
      SeriDocument out(utils::JsonSave::instance, "");
      ASSERT_EQ(lmc.save(out), 0u);
      ASSERT_EQ(out.writeToFile(dir / "board.cfg", option), 0u);
      SeriDocument in(utils::JsonLoad::instance);
      ASSERT_EQ(in.readFromFile(dir / "board.cfg"), 0u);
      LmcParam fresh;
      ASSERT_EQ(fresh.load(in), 0u);
      EXPECT_EQ(jsonOf(fresh), expected);
    }
  }
}

TEST(LmcParamTest, PartialDocumentsChangeOnlyTheirSections) {
  LmcParam lmc;
  EXPECT_EQ(loadJson(lmc, R"({"galvoParam":{"galvoSize":150,"bXInvert":true}})"), 0u);
  EXPECT_TRUE(lmc.galvoParam.galvoSize == 150.0 && lmc.galvoParam.bXInvert);
  lmc.galvoParam.galvoSize = 120.0;
  lmc.galvoParam.bXInvert = false;
  EXPECT_EQ(jsonOf(lmc), jsonOf(LmcParam{}));

  // Three stored axes: the two existing ones are loaded in place, one is appended.
  EXPECT_EQ(loadJson(lmc, R"({"axParArray":[{"setting":{"axisId":5}},{},{"runData":{}}]})"), 0u);
  ASSERT_EQ(lmc.axParArray.size(), 3u);
  EXPECT_EQ(lmc.axParArray[0].id(), 5);
  EXPECT_EQ(lmc.axParArray[1].id(), 1);
  EXPECT_EQ(lmc.axParArray[2].id(), 0);
  // A shorter stored list never shrinks the axes.
  EXPECT_EQ(loadJson(lmc, R"({"axParArray":[]})"), 0u);
  EXPECT_EQ(lmc.axParArray.size(), 3u);
}

TEST(LmcParamTest, BadSectionsUnderBothResponses) {
  const std::string full = jsonOf(LmcParam{});
  // "galvoParam" becomes an array (its old object moves to an unknown key).
  const std::string text = edit(edit(full, R"("galvoParam":{)", R"("galvoParam":[],"unused":{)"),
                                R"("bufferCount":1)", R"("bufferCount":9)");
  for (auto answer : {ErrorResponseType::Ignore, ErrorResponseType::Abort}) {
    const bool abort = answer == ErrorResponseType::Abort;
    RecordingHandler h(answer);
    LmcParam lmc;
    lmc.galvoParam.galvoSize = 80.0;
    EXPECT_EQ(loadJson(lmc, text), abort ? errc::wrongType : 0u);
    EXPECT_EQ(lmc.galvoParam.galvoSize, 80.0);
    EXPECT_EQ(lmc.flyParam.bufferCount, abort ? 1 : 9);
    EXPECT_EQ(h.codes, Codes{errc::wrongType});
  }
  // A bad key deep in an axis: the axis setting, the axis, the array and the
  // board record each report it once before the load stops.
  const std::string badAxis = edit(edit(full, R"("markLineMaxLen":2)", R"("markLineMaxLen":1.5)"),
                                   R"("axisId":0)", R"("axisId":"one")");
  RecordingHandler strict(ErrorResponseType::Abort);
  LmcParam lmc;
  EXPECT_EQ(loadJson(lmc, badAxis), errc::wrongType);
  EXPECT_EQ(strict.calls(), 4u);
  EXPECT_EQ(lmc.markParam.markLineMaxLen, 1.5f);
  EXPECT_EQ(lmc.axParArray[0].id(), 0);
}
