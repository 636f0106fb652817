#include <gtest/gtest.h>

#include <string>

#include <param/params/lmcParam.h>
#include <param/params/penArray.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::edit;
using testing_support::jsonOf;
using testing_support::parsed;
using utils::JsonLoad;

namespace {

// A pen extension whose save fails.
struct BrokenExt : ExtParam {
  ExtParam* clone() const override { return new BrokenExt(*this); }
  SdkError save(SeriObject&) const override { return 0x77; }
};

SeriObject member(const SeriObject& o, const char* key) {
  SeriObject c(JsonLoad::instance);
  EXPECT_EQ(o.getSeriObject(key, c), 0u) << key;
  return c;
}

// The text of a document written by a newer build: the pens and a board of
// this build with members this build does not know, at several depths.
std::string newerDocument() {
  PenArray pens(2);
  pens[1].laserPower = 61;
  std::string p = jsonOf(pens);
  p = edit(p, "\"penId\":0,", "\"penId\":0,\"penColor\":[1,2],");
  p = edit(p, "\"wobbleSpace\":0.5}", "\"wobbleSpace\":0.5,\"wobbleZ\":{\"on\":true}}");
  p = edit(p, "]}", "],\"tableVersion\":2}");
  LmcParam board;
  board.galvoParam.galvoSize = 110;
  board.laserParam.co2Par.powerMap = {0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100};
  std::string b = jsonOf(board);
  b = edit(b, "\"galvoParam\":{", "\"galvoParam\":{\"zLens\":{\"f\":163},");
  b = edit(b, "\"vWaveSelGpo\":[]", "\"vWaveSelGpo\":[{\"bEnable\":true,\"pulse\":3},{},{}]");
  b = edit(b, "\"axParArray\":[{", "\"axParArray\":[{\"encoder\":2,");
  b = edit(b, "\"powerMap\":[0,10,20,30,40,50,60,70,80,90,100]",
           "\"powerMap\":[0,10,20,30,40,50,60,70,80,90,100,110,120]");
  return "{\"pens\":" + p + ",\"board\":" + b + ",\"future\":{\"x\":1}}";
}

}  // namespace

TEST(RoundTrip, NewerDocumentKeepsWhatThisBuildDoesNotKnow) {
  const std::string text = newerDocument();
  SeriObject doc = parsed(text);
  const SeriObject untouched = member(doc, "pens");  // a view taken before the edit

  // The host's pattern: load from the document's object, edit, save into the same object.
  SeriObject table = member(doc, "pens");
  PenArray pens;
  ASSERT_EQ(pens.load(table), 0u);
  pens[1].laserPower = 90;
  PenParam added;
  added.penId = 2;
  pens.push_back(added);
  ASSERT_EQ(pens.save(table), 0u);
  ASSERT_EQ(doc.setSeriObject("pens", std::move(table)), 0u);

  SeriObject board = member(doc, "board");
  LmcParam lmc;
  ASSERT_EQ(lmc.load(board), 0u);
  lmc.galvoParam.galvoSize = 150;
  lmc.laserParam.co2Par.powerMap[1] = 11;
  lmc.laserParam.weldYagPar.vWaveSelGpo.resize(1);
  lmc.laserParam.weldYagPar.vWaveSelGpo[0].index = 4;
  ASSERT_EQ(lmc.save(board), 0u);
  ASSERT_EQ(doc.setSeriObject("board", std::move(board)), 0u);

  // Only the edits differ: the pen in place, the new pen as a fresh object,
  // the fixed array's surplus kept, the list cut to its length.
  std::string expected = edit(text, "\"laserPower\":61", "\"laserPower\":90");
  expected = edit(expected, "],\"tableVersion\":2", "," + jsonOf(added) + "],\"tableVersion\":2");
  expected = edit(expected, "\"galvoSize\":110", "\"galvoSize\":150");
  expected = edit(expected, "\"powerMap\":[0,10,", "\"powerMap\":[0,11,");
  GpoPar gpo;
  gpo.bEnable = true;
  gpo.index = 4;
  expected = edit(expected, "[{\"bEnable\":true,\"pulse\":3},{},{}]",
                  "[" + edit(jsonOf(gpo), "true,", "true,\"pulse\":3,") + "]");
  EXPECT_EQ(doc.stringfy(), expected);
  EXPECT_EQ(untouched.stringfy(), member(parsed(text), "pens").stringfy());

  // A fresh object still gets exactly the record's keys.
  PenArray same(3);
  same[1].laserPower = 90;
  EXPECT_EQ(jsonOf(pens), jsonOf(same));
}

TEST(RoundTrip, SavingOverStoredObjectsFollowsTheRecordRules) {
  // Stored: three pens, one with a wobble of the wrong kind and one lacking keys.
  SeriObject table = parsed(R"({"params":[{"penId":0,"future":1,"wobble":5},)"
                            R"({"laserPower":7,"penId":1},{"penId":2,"old":true}]})");
  PenArray pens(2);
  ASSERT_EQ(pens.save(table), 0u);
  SeriArray params(JsonLoad::instance);
  ASSERT_EQ(table.getSeriArray("params", params), 0u);
  ASSERT_EQ(params.size(), 2u);  // the host's table has two pens now
  SeriObject pen0(JsonLoad::instance), pen1(JsonLoad::instance);
  ASSERT_EQ(params.getSeriObject(0, pen0), 0u);
  ASSERT_EQ(params.getSeriObject(1, pen1), 0u);
  // Known keys in their stored places, unknown ones kept, a wrong kind replaced
  // in place, missing known keys appended in the record's order.
  EXPECT_EQ(pen0.keys()[1], "future");
  EXPECT_EQ(pen0.keys()[2], "wobble");
  EXPECT_EQ(pen0.memberText("wobble"), jsonOf(PenParam{}.wobble));
  EXPECT_EQ(pen1.keys()[0], "laserPower");
  EXPECT_EQ(pen1.memberText("laserPower"), "60");
  EXPECT_EQ(pen1.size(), testing_support::savedKeys(PenParam{}).size());

  // A pen that fails to save ends the save quietly: stored objects from it on
  // are kept as they were, a fresh table holds the pens before it.
  utils::ScopedErrorHandler abort(utils::ErrorResponseType::Abort);
  SeriObject stored = parsed(R"({"params":[{"penId":0},{"penId":1},{"penId":2,"old":true}]})");
  PenArray three(3);
  three[1].extParam.setExtParam(BrokenExt{});
  ASSERT_EQ(three.save(stored), 0u);
  ASSERT_EQ(stored.getSeriArray("params", params), 0u);
  EXPECT_EQ(params.size(), 3u);
  EXPECT_EQ(params.elementText(2), R"({"penId":2,"old":true})");
  EXPECT_EQ(jsonOf(three), "{\"params\":[" + jsonOf(PenParam{}) + "]}");
}
