#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include <utils/keyPath.h>

#include <param/params/lmcParam.h>
#include <param/params/penArray.h>
#include <param/seri/loadReport.h>
#include <param/seri/recordIo.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::edit;
using testing_support::jsonOf;
using testing_support::LogCapture;
using testing_support::parsed;
using utils::ErrorResponseType;
namespace uerr = utils::errc;

namespace {

// Remembers the load path at every call of the error handler, with the code.
class PathRecorder {
 public:
  explicit PathRecorder(ErrorResponseType answer)
      : guard_([this, answer](SdkError code, unsigned) {
          calls.emplace_back(code, utils::KeyPath::current().str());
          return answer;
        }) {}

  // The paths of the calls raised with `code`.
  std::vector<std::string> pathsOf(SdkError code) const {
    std::vector<std::string> out;
    for (const auto& [c, p] : calls)
      if (c == code) out.push_back(p);
    return out;
  }

  std::vector<std::pair<SdkError, std::string>> calls;

 private:
  utils::ScopedErrorHandler guard_;
};

// Two pens told apart by their values, saved.
std::string twoPens() {
  PenArray pens(2);
  pens[1].laserPower = 61;
  pens[1].wobble.wobbleDiaX = 7.5f;
  return jsonOf(pens);
}

// A record that fails to save, carried by one that loads it from "inner".
struct Unsavable {
  int value = 4;
  SdkError load(const SeriObject& obj) { return RecordLoader(obj)("value", value).result(); }
  SdkError save(SeriObject&) const { return errorStep(0x99); }
};
struct Holder {
  Unsavable inner;
  SdkError load(const SeriObject& obj) { return RecordLoader(obj)("inner", inner).result(); }
  SdkError save(SeriObject& obj) const { return RecordSaver(obj)("inner", inner).result(); }
};

}  // namespace

TEST(LoadReport, PathsFollowNestedRecordsArraysAndLists) {
  const std::string pens = twoPens();
  {
    // Ignore: each bad key is raised once, where it is.
    PathRecorder handler(ErrorResponseType::Ignore);
    PenArray loaded;
    ASSERT_EQ(loaded.load(parsed(edit(edit(pens, "\"laserPower\":61", "\"laserPower\":\"75\""),
                                      "\"wobbleDiaX\":7.5", "\"wobbleDiaX\":\"big\""))),
              0u);
    EXPECT_EQ(handler.calls.size(), 2u);
    EXPECT_EQ(handler.pathsOf(uerr::wrongType),
              (std::vector<std::string>{"params[1].laserPower", "params[1].wobble.wobbleDiaX"}));
  }
  {
    // Abort: every level raises the failure again and still names the key that failed.
    PathRecorder handler(ErrorResponseType::Abort);
    PenArray loaded(2);
    EXPECT_EQ(loaded.load(parsed(edit(pens, "\"wobbleDiaX\":7.5", "\"wobbleDiaX\":1e40"))),
              uerr::outOfRange);
    EXPECT_EQ(handler.pathsOf(uerr::outOfRange),
              std::vector<std::string>(3, "params[1].wobble.wobbleDiaX"));
    EXPECT_EQ(utils::KeyPath::current().str(), "");  // after the load: no path
    EXPECT_EQ(utils::KeyPath::current().depth(), 0u);
  }
  {
    // The board: a fixed array, a list of records, the bare axis array; an
    // element that is no object; "params" that is no array.
    LmcParam board;
    board.axParArray[1].setting.maxRunSpeed = 77;
    std::string text = jsonOf(board);
    text = edit(text, "\"powerMap\":[", "\"powerMap\":[0,1,\"x\",");
    text = edit(text, "\"vWaveSelGpo\":[]", "\"vWaveSelGpo\":[{},{\"index\":\"x\"},5]");
    text = edit(text, "\"maxRunSpeed\":77", "\"maxRunSpeed\":true");
    PathRecorder handler(ErrorResponseType::Ignore);
    ASSERT_EQ(board.load(parsed(text)), 0u);
    EXPECT_EQ(handler.pathsOf(uerr::wrongType),
              (std::vector<std::string>{
                  "laserParam.co2Par.powerMap[2]", "laserParam.weldYagPar.vWaveSelGpo[1].index",
                  "laserParam.weldYagPar.vWaveSelGpo[2]", "axParArray[1].setting.maxRunSpeed"}));
    // The list's first element misses every key: raised at its own paths.
    EXPECT_EQ(handler.pathsOf(uerr::keyMissing).front(),
              "laserParam.weldYagPar.vWaveSelGpo[0].bEnable");

    PathRecorder again(ErrorResponseType::Ignore);
    PenArray table(1);
    EXPECT_EQ(table.load(parsed(R"({"params":{"0":{}}})")), 0u);
    EXPECT_EQ(again.calls,
              (std::vector<std::pair<SdkError, std::string>>{{uerr::wrongType, "params"}}));
  }
}

TEST(LoadReport, CollectsWhatWasFoundAndKeptAndLogsIt) {
  const std::string pens = twoPens();
  LogCapture log;
  LoadReport outer;
  {
    LoadReport report;
    PenArray loaded(2);
    const std::string text =
        edit(edit(edit(pens, "\"laserPower\":61", "\"laserPower\":1e20"), "\"wobbleDiaX\":7.5",
                  "\"wobbleDiaX\":\"big\""),
             "\"penName\":\"Default\",\"bEnable\":true,\"markCount\":1,\"runSpeed\":2000,"
             "\"laserPower\":60",
             "\"bEnable\":true,\"markCount\":1,\"runSpeed\":2000,\"laserPower\":\"75\"");
    ASSERT_EQ(loaded.load(parsed(text)), 0u);
    ASSERT_EQ(report.size(), 4u);
    const auto& e = report.entries();
    EXPECT_EQ(e[0].path, "params[0].penName");
    EXPECT_EQ(e[0].code, uerr::keyMissing);
    EXPECT_EQ(e[0].found, "");
    EXPECT_EQ(e[0].kept, "\"Default\"");
    EXPECT_EQ(e[1].path, "params[0].laserPower");
    EXPECT_EQ(e[1].code, uerr::wrongType);
    EXPECT_EQ(e[1].found, "\"75\"");
    EXPECT_EQ(e[1].kept, "60");
    EXPECT_EQ(e[2].path, "params[1].laserPower");
    EXPECT_EQ(e[2].code, uerr::outOfRange);
    EXPECT_EQ(e[2].found, "1e+20");
    EXPECT_EQ(e[2].kept, "60");
    EXPECT_EQ(e[3].path, "params[1].wobble.wobbleDiaX");
    EXPECT_EQ(e[3].found, "\"big\"");
    EXPECT_EQ(e[3].kept, "1");

    // Missing keys at Info level, the others at Warning level, one line each.
    EXPECT_EQ(log.formatted(),
              (std::vector<std::string>{
                  "1 Param: params[0].penName: key missing; found nothing; kept \"Default\"",
                  "2 Param: params[0].laserPower: value of the wrong JSON type; found \"75\"; "
                  "kept 60",
                  "2 Param: params[1].laserPower: number out of range (of the field, or of a "
                  "double); found 1e+20; kept 60",
                  "2 Param: params[1].wobble.wobbleDiaX: value of the wrong JSON type; found "
                  "\"big\"; kept 1"}));
  }
  EXPECT_TRUE(outer.empty());  // the inner collector received everything

  // A missing section keeps, and shows, the whole record; long values are cut
  // in the log line only.
  log.lines.clear();
  LmcParam board;
  SeriObject saved = parsed(jsonOf(board));
  ASSERT_TRUE(saved.erase("flyParam"));
  ASSERT_EQ(board.load(saved), 0u);
  ASSERT_EQ(outer.size(), 1u);
  EXPECT_EQ(outer.entries()[0].path, "flyParam");
  EXPECT_EQ(outer.entries()[0].kept, jsonOf(board.flyParam));
  ASSERT_EQ(log.lines.size(), 1u);
  EXPECT_EQ(log.lines[0].level, utils::LogLevel::Info);
  EXPECT_LT(log.lines[0].text.size(), outer.entries()[0].kept.size());
  EXPECT_EQ(log.lines[0].text.substr(log.lines[0].text.size() - 3), "...");

  // Showing a kept value that cannot be saved does not bother the handler, and
  // the handler is asked as often as without a collector.
  outer.clear();
  testing_support::RecordingHandler handler(ErrorResponseType::Abort);
  Holder holder;
  EXPECT_EQ(holder.load(parsed(R"({"inner":{"value":"x"}})")), uerr::wrongType);
  EXPECT_EQ(handler.codes, (std::vector<SdkError>{uerr::wrongType, uerr::wrongType}));
  EXPECT_EQ(holder.load(parsed(R"({"inner":5})")), uerr::wrongType);
  EXPECT_EQ(handler.calls(), 3u);
  ASSERT_EQ(outer.size(), 2u);
  EXPECT_EQ(outer.entries()[0].path, "inner.value");
  EXPECT_EQ(outer.entries()[1].path, "inner");
  EXPECT_EQ(outer.entries()[1].found, "5");
  EXPECT_EQ(outer.entries()[1].kept, "");  // its save failed: nothing to show
}
