#include <gtest/gtest.h>

#include <param/params/lmcParam.h>
#include <param/seri/seriDocument.h>

#include "support/testSupport.h"

using testing_support::edit;
using testing_support::jsonOf;
using testing_support::loadJson;
using testing_support::RecordingHandler;
using utils::ErrorResponseType;
namespace errc = utils::errc;
using namespace param;

namespace {

// The text of `lmc` saved into a document, read back into a fresh document and a
// fresh default board record, and saved again.
std::pair<std::string, std::string> documentRoundTrip(const LmcParam& lmc) {
  SeriDocument out(utils::JsonSave::instance, ".cfg");
  EXPECT_EQ(lmc.save(out), 0u);
  const std::string first = out.stringfy();
  SeriDocument in(utils::JsonLoad::instance);
  EXPECT_EQ(in.parser(first.data(), first.size()), 0u);
  LmcParam fresh;
  EXPECT_EQ(fresh.load(in), 0u);
  SeriDocument again(utils::JsonSave::instance, ".cfg");
  EXPECT_EQ(fresh.save(again), 0u);
  return {first, again.stringfy()};
}

// The saved text of `lmc` without the section `key`.
std::string withoutSection(const LmcParam& lmc, const char* key) {
  SeriObject obj(utils::JsonSave::instance);
  EXPECT_EQ(lmc.save(obj), 0u);
  EXPECT_TRUE(obj.erase(key));
  return obj.stringfy();
}

}  // namespace

TEST(LmcParamTest, DocumentRoundTripKeepsTheText) {
  RecordingHandler strict(ErrorResponseType::Abort);
  const auto [defaultFirst, defaultAgain] = documentRoundTrip(LmcParam{});
  EXPECT_EQ(defaultFirst, defaultAgain);
  // The axes are the array itself, not wrapped in an object.
  EXPECT_NE(defaultFirst.find(R"("axParArray":[{"setting":{"axisId":0,)"), std::string::npos);

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
  const auto [first, again] = documentRoundTrip(lmc);
  EXPECT_EQ(first, again);
  EXPECT_NE(first, defaultFirst);
}

TEST(LmcParamTest, DefaultBoardSurvivesEveryEncodingOnDisk) {
  testing_support::TempDir dir;
  const std::string expected = [] {
    SeriObject obj(utils::JsonSave::instance);
    EXPECT_EQ(LmcParam().save(obj), 0u);
    return obj.stringfy();
  }();
  for (unsigned encoding = 0; encoding < 4; ++encoding) {
    for (unsigned key = 0; key < 4; ++key) {
      const SeriOption option(static_cast<SeriOption::Encoding>(encoding), key, key);
      SCOPED_TRACE(option.word);
      SeriDocument out(utils::JsonSave::instance, "");
      ASSERT_EQ(LmcParam().save(out), 0u);
      ASSERT_EQ(out.writeToFile(dir / "board.cfg", option), 0u);
      SeriDocument in(utils::JsonLoad::instance);
      ASSERT_EQ(in.readFromFile(dir / "board.cfg"), 0u);
      LmcParam fresh;
      ASSERT_EQ(fresh.load(in), 0u);
      SeriObject again(utils::JsonSave::instance);
      ASSERT_EQ(fresh.save(again), 0u);
      EXPECT_EQ(again.stringfy(), expected);
    }
  }
}

TEST(LmcParamTest, PartialDocumentsChangeOnlyTheirSections) {
  RecordingHandler lenient(ErrorResponseType::Ignore);
  LmcParam lmc;
  EXPECT_EQ(loadJson(lmc, R"({"galvoParam":{"galvoSize":150,"bXYFlip":true}})"), 0u);
  EXPECT_EQ(lmc.galvoParam.galvoSize, 150.0);
  EXPECT_TRUE(lmc.galvoParam.bXYFlip);
  EXPECT_EQ(withoutSection(lmc, "galvoParam"), withoutSection(LmcParam{}, "galvoParam"));

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
  {
    RecordingHandler lenient(ErrorResponseType::Ignore);
    LmcParam lmc;
    lmc.galvoParam.galvoSize = 80.0;
    EXPECT_EQ(loadJson(lmc, text), 0u);
    EXPECT_EQ(lmc.galvoParam.galvoSize, 80.0);
    EXPECT_EQ(lmc.flyParam.bufferCount, 9);
    EXPECT_EQ(lenient.codes, (std::vector<utils::SdkError>{errc::wrongType}));
  }
  {
    RecordingHandler strict(ErrorResponseType::Abort);
    LmcParam lmc;
    EXPECT_EQ(loadJson(lmc, text), errc::wrongType);
    EXPECT_EQ(lmc.flyParam.bufferCount, 1);
    EXPECT_EQ(strict.calls(), 1u);
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
