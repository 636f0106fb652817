#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include <param/errors.h>
#include <param/mgr/colorMgr.h>
#include <param/mgr/defaultParamMgr.h>
#include <param/mgr/initParam.h>
#include <param/params/arrayParam.h>
#include <param/params/dataRecordParam.h>
#include <param/params/fillLayerParam.h>
#include <param/shape/anchorPoint.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::LogCapture;
using testing_support::readFile;
using testing_support::TempDir;
using testing_support::writeFile;
using utils::LogLevel;
namespace fs = std::filesystem;

namespace {

// Every test starts and ends with the library unloaded.
class Managers : public ::testing::Test {
 protected:
  void SetUp() override { param::unload(); }
  void TearDown() override { param::unload(); }

  TempDir dir;
};

bool hasLine(const LogCapture& log, LogLevel level, const std::string& text) {
  for (const auto& line : log.lines) {
    if (line.level == level && line.tag == "Param" && line.text == text) return true;
  }
  return false;
}

}  // namespace

TEST_F(Managers, LifeCycleAndItsLogLines) {
  {
    LogCapture log;
    param::unload();
    ASSERT_EQ(log.lines.size(), 2u);  // unloading what was never loaded only logs
    EXPECT_TRUE(hasLine(log, LogLevel::Verbose, "colorMgr unloaded."));
    EXPECT_TRUE(hasLine(log, LogLevel::Verbose, "defaultParamMgr unloaded."));
    EXPECT_EQ(log.lines[0].text, "colorMgr unloaded.");
  }
  {
    LogCapture log;
    EXPECT_EQ(DefaultParamMgr::instance(), nullptr);
    EXPECT_EQ(ColorMgr::instance(), nullptr);
    EXPECT_TRUE(hasLine(log, LogLevel::Error, "please call DefaultParamMgr::load() first"));
    EXPECT_TRUE(hasLine(log, LogLevel::Error, "please call ColorMgr::load() first"));
  }
  LogCapture log;
  const fs::path missing = dir / "defaults.cfg";
  EXPECT_EQ(param::load({missing}), 0u);
  EXPECT_TRUE(hasLine(log, LogLevel::Error,
                      "load default param from " + missing.string() + " failed, 0x230004"));
  // A file that is not there yet is the first start: the document's own line
  // says so at information level, the only error line is the manager's.
  EXPECT_TRUE(hasLine(log, LogLevel::Info,
                      "open document " + missing.string() + " failed, 0x230004: open " +
                          missing.string() + ": not found"));
  EXPECT_EQ(std::count_if(log.lines.begin(), log.lines.end(),
                          [](const auto& l) { return l.level == LogLevel::Error; }),
            1);
  EXPECT_TRUE(hasLine(log, LogLevel::Verbose, "defaultParamMgr loaded."));
  EXPECT_TRUE(hasLine(log, LogLevel::Verbose, "colorMgr loaded."));
  auto mgr = DefaultParamMgr::instance();
  ASSERT_NE(mgr, nullptr);
  ASSERT_NE(ColorMgr::instance(), nullptr);

  // A second load keeps both managers and the remembered path.
  EXPECT_EQ(param::load({dir / "other.cfg"}), 0u);
  EXPECT_EQ(DefaultParamMgr::instance(), mgr);
  FillLayerParam layer;
  layer.fillSpace = 0.25;
  EXPECT_EQ(DefaultParamMgr::storeDefault("struct FillLayerParam", layer), 0u);
  EXPECT_TRUE(fs::exists(missing));  // the write created the file at the first path
  EXPECT_FALSE(fs::exists(dir / "other.cfg"));

  // A holder keeps its manager alive across unload.
  param::unload();
  EXPECT_EQ(DefaultParamMgr::instance(), nullptr);
  EXPECT_TRUE(mgr->contains("struct FillLayerParam"));

  // A load after unload starts afresh with its own path.
  ASSERT_EQ(param::load({dir / "other.cfg"}), 0u);
  EXPECT_NE(DefaultParamMgr::instance(), mgr);
  EXPECT_EQ(DefaultParamMgr::storeDefault("struct FillLayerParam", layer), 0u);
  EXPECT_TRUE(fs::exists(dir / "other.cfg"));
}

TEST_F(Managers, StoredDefaultsSurviveARestartAndShapeNewRecords) {
  const fs::path file = dir / "defaults.cfg";
  ASSERT_EQ(param::load({file}), 0u);
  FillLayerParam layer;
  layer.fillType = 6;
  layer.rayLineCount = 90;
  RectArrayParam rect;
  rect.rowCount = 5;
  ASSERT_EQ(DefaultParamMgr::storeDefault("struct FillLayerParam", layer), 0u);
  ASSERT_EQ(DefaultParamMgr::storeDefault("struct RectArrayParam", rect), 0u);
  param::unload();

  ASSERT_EQ(param::load({file}), 0u);
  FillLayerParam fresh;
  EXPECT_EQ(fresh.fillType, 6);
  EXPECT_EQ(fresh.rayLineCount, 90u);
  ArrayParam array;  // its grid takes the stored grid default too
  EXPECT_EQ(array.rect.rowCount, 5);
  EXPECT_EQ(FillLayerParam().fillSpace, 1.0);  // not stored: built in

  // Removing the stored object restores the built-in values.
  DefaultParamMgr::instance()->erase("struct FillLayerParam");
  EXPECT_EQ(FillLayerParam().fillType, 4);
}

TEST_F(Managers, BrokenDefaultFilesAreLoggedAndLeaveBuiltInValues) {
  const std::string valid = [&] {
    const fs::path file = dir / "valid.cfg";
    EXPECT_EQ(param::load({file}), 0u);
    FillLayerParam layer;
    layer.fillType = 7;
    EXPECT_EQ(DefaultParamMgr::storeDefault("struct FillLayerParam", layer), 0u);
    param::unload();
    return readFile(file);
  }();
  const std::pair<const char*, std::string> broken[] = {
      {"empty", ""},
      {"truncated", valid.substr(0, valid.size() / 2)},
      {"not JSON", std::string(8, '\0') + "bm90IGpzb24="},
      {"no header", "{\"struct FillLayerParam\":{}}"},
  };
  // The first store keeps the unreadable file under a name that says so, and a
  // second unreadable file does not replace the first one kept.
  int round = 0;
  for (const auto& [what, bytes] : broken) {
    SCOPED_TRACE(what);
    const fs::path file = dir / "broken.cfg";
    writeFile(file, bytes);
    LogCapture log;
    EXPECT_EQ(param::load({file}), 0u);
    EXPECT_TRUE(log.contains("load default param from"));
    EXPECT_EQ(FillLayerParam().fillType, 4);
    EXPECT_EQ(DefaultParamMgr::storeDefault("struct FillLayerParam", FillLayerParam()), 0u);
    const std::string kept =
        file.string() + ".unreadable" + (round++ ? "-" + std::to_string(round) : "");
    EXPECT_EQ(readFile(kept), bytes);
    EXPECT_TRUE(log.contains("could not be read; it is kept as " + kept));
    param::unload();
    SeriDocument written(utils::JsonLoad::instance);
    EXPECT_EQ(written.readFromFile(file), 0u);
  }

  // A defaults file that cannot be saved says which default stays unsaved.
  {
    ASSERT_EQ(param::load({dir / "gone" / "defaults.cfg"}), 0u);
    LogCapture log;
    EXPECT_EQ(DefaultParamMgr::storeDefault("struct FillLayerParam", FillLayerParam()), 0u);
    EXPECT_TRUE(log.contains("the default \"struct FillLayerParam\" is kept in memory only"));
    EXPECT_TRUE(log.contains("gone/defaults.cfg.tmp: not found"));
    param::unload();
  }

  // A stored default of the wrong shape: the record keeps what it could read.
  SeriDocument doc(utils::JsonSave::instance, "");
  const std::string text = R"({"struct FillLayerParam":[1,2],)"
                           R"("struct RectArrayParam":{"flags":3,"rowCount":"x"}})";
  ASSERT_EQ(doc.parser(text.data(), text.size()), 0u);
  ASSERT_EQ(doc.writeToFile(dir / "shape.cfg", SeriOption()), 0u);
  ASSERT_EQ(param::load({dir / "shape.cfg"}), 0u);
  EXPECT_EQ(FillLayerParam().fillType, 4);
  RectArrayParam rect;
  EXPECT_EQ(rect.flags.value, 3);
  EXPECT_EQ(rect.rowCount, 2);
}

TEST_F(Managers, RecordsBuiltBeforeLoadKeepBuiltInDefaults) {
  LogCapture log;
  DataRecordParam data;
  FillLayerParam layer;
  EXPECT_TRUE(data.writeTimeToFile);
  EXPECT_EQ(data.resetTime.hour(), 8);
  EXPECT_EQ(layer.clipType, 4);
  EXPECT_TRUE(hasLine(log, LogLevel::Error, "please call DefaultParamMgr::load() first"));
  EXPECT_EQ(DefaultParamMgr::loadDefault("struct FillLayerParam", layer), errc::notLoaded);
}

TEST_F(Managers, ColourTable) {
  ColorMgr colors;
  EXPECT_EQ(colors.at(5), utils::Color::Transparent);
  EXPECT_EQ(colors.size(), 1u);
  colors[static_cast<std::size_t>(-1)] = utils::Color(10, 20, 30, 40);
  colors[12] = utils::Color(1, 2, 3);
  SeriObject saved(utils::JsonSave::instance);
  ASSERT_EQ(colors.save(saved), 0u);
  SeriObject table(utils::JsonLoad::instance);
  ASSERT_EQ(saved.getSeriObject("color", table), 0u);
  EXPECT_TRUE(table.contains("-1"));
  EXPECT_TRUE(table.contains("12"));
  EXPECT_EQ(saved.load("mode", std::int32_t{0}), 3);
  SeriArray rgba(utils::JsonLoad::instance);
  ASSERT_EQ(table.getSeriArray("-1", rgba), 0u);
  EXPECT_EQ(rgba.stringfy(), "[10,20,30,40]");

  // Loading validates the form and keeps the live table.
  const std::string nine = R"({"mode":9,"color":{"1":[1,2,3,4]}})";
  SeriObject obj(utils::JsonLoad::instance);
  ASSERT_EQ(obj.parser(nine.data(), nine.size()), 0u);
  {
    LogCapture log;
    EXPECT_EQ(colors.load(obj), errc::badFormat);
    EXPECT_TRUE(hasLine(log, LogLevel::Warning, "error color mode: 9"));
  }
  // Keys are decimal indexes within 32 bits, as save writes them; any other
  // member is skipped with a warning that names it and says why.
  const std::string noMode =
      R"({"color":{"1":[9,9,9,9],"x":"bad","2":[1,"y"],"99999999999":[1],"-2147483649":[1],)"
      R"("12a":[1]," 5":[1],"+5":[1],"":[1],"2147483647":[1],"-2147483648":[1],"3":{}}})";
  ASSERT_EQ(obj.parser(noMode.data(), noMode.size()), 0u);
  {
    LogCapture log;
    EXPECT_EQ(colors.load(obj), 0u);
    const std::string index = "\" skipped: not a 32-bit decimal index";
    EXPECT_EQ(log.formatted(), (std::vector<std::string>{
                                   "2 Param: colour \"x" + index,
                                   "2 Param: colour \"2\" skipped: a component is not a number "
                                   "from 0 to 255",
                                   "2 Param: colour \"99999999999" + index,
                                   "2 Param: colour \"-2147483649" + index,
                                   "2 Param: colour \"12a" + index,
                                   "2 Param: colour \" 5" + index,
                                   "2 Param: colour \"+5" + index,
                                   "2 Param: colour \"" + index,
                                   "2 Param: colour \"3\" skipped: not an array",
                               }));
  }
  EXPECT_EQ(colors.size(), 3u);
  EXPECT_EQ(colors[12], utils::Color(1, 2, 3));

  {
    testing_support::RecordingHandler abort(utils::ErrorResponseType::Abort);
    SeriObject empty(utils::JsonLoad::instance);
    EXPECT_EQ(colors.load(empty), utils::errc::keyMissing);
  }
  auto copy = colors.clone();
  (*copy)[12] = utils::Color::Transparent;
  EXPECT_EQ(colors[12], utils::Color(1, 2, 3));
  colors.reset();
  EXPECT_EQ(colors.size(), 0u);
}

TEST_F(Managers, AnchorPointDefaultsAndComparison) {
  const fs::path file = dir / "defaults.cfg";
  ASSERT_EQ(param::load({file}), 0u);
  AnchorPoint plain;
  EXPECT_EQ(plain.type, 4);
  SeriObject saved(utils::JsonSave::instance);
  ASSERT_EQ(plain.save(saved), 0u);
  EXPECT_EQ(saved.stringfy(), R"({"type":4,"point":{"x":0,"y":0}})");

  AnchorPoint stored;
  stored.type = 2;
  stored.point = {1.5, -2};
  ASSERT_EQ(DefaultParamMgr::storeDefault("struct AnchorPoint", stored), 0u);
  AnchorPoint fresh;
  EXPECT_TRUE(fresh == stored);

  AnchorPoint near = stored;
  near.point.x += 0.00005;
  EXPECT_TRUE(near == stored);
  AnchorPoint atZero = stored, apart = stored;
  atZero.point.x = 0;
  apart.point.x = 0.0001;  // exactly the tolerance: not equal
  EXPECT_FALSE(apart == atZero);
  near = stored;
  near.type = 3;
  EXPECT_FALSE(near == stored);
}
