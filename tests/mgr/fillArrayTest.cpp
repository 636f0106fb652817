#include <gtest/gtest.h>

#include <param/params/arrayParam.h>
#include <param/params/dataRecordParam.h>
#include <param/params/fillParam.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::parsed;

namespace {

FillLayerParam enabledLayer(std::uint8_t type) {
  FillLayerParam layer;
  layer.enabled = true;
  layer.fillType = type;
  return layer;
}

}  // namespace

TEST(Fill, LayerEffectFollowsThePatternGroup) {
  FillLayerParam a, b;
  a.fillAngle = 30;  // disabled layers: nothing else matters
  EXPECT_TRUE(a.isSameEffect(b));

  a = enabledLayer(0);
  EXPECT_FALSE(a.isSameEffect(a));  // type 0 never matches

  a = enabledLayer(2);
  b = a;
  b.startOffset = 0.00005;
  EXPECT_TRUE(a.isSameEffect(b));
  b.startOffset = 0.0002;
  EXPECT_FALSE(a.isSameEffect(b));
  a.enableFillEvenly = b.enableFillEvenly = true;
  EXPECT_TRUE(a.isSameEffect(b));
  b.fillAngle = 1e-12;  // line patterns compare the angle exactly
  EXPECT_FALSE(a.isSameEffect(b));

  a = enabledLayer(7);
  b = a;
  b.fillAngle = 45;  // ray patterns ignore the angle...
  b.fillSpace = 3;
  EXPECT_TRUE(a.isSameEffect(b));
  b.rayLineCount = 12;  // ...but not the ray count
  EXPECT_FALSE(a.isSameEffect(b));

  a = enabledLayer(5);
  b = a;
  b.enableCrossFill = true;
  EXPECT_TRUE(a.isSameEffect(b));
  b.clipType = 1;
  EXPECT_FALSE(a.isSameEffect(b));
  a = enabledLayer(9);
  EXPECT_FALSE(a.isSameEffect(a));
}

TEST(Fill, RangeBeyondTheOutline) {
  FillLayerParam layer = enabledLayer(1);
  double range = -1;
  layer.outlineOffset = -0.3;
  layer.fillAffectOnShapeRange(range);
  EXPECT_DOUBLE_EQ(range, 0.3);
  layer.outlineOffset = 0.3;
  layer.fillAffectOnShapeRange(range);
  EXPECT_EQ(range, 0.0);
  layer.enabled = false;
  layer.outlineOffset = -0.3;
  layer.fillAffectOnShapeRange(range);
  EXPECT_EQ(range, 0.0);

  FillParam fill;
  fill.layers[1] = enabledLayer(1);
  fill.layers[1].outlineOffset = -0.5;
  fill.layers[2] = enabledLayer(1);
  fill.layers[2].outlineOffset = -0.2;
  EXPECT_TRUE(fill.fillAffectOnShapeRange(range));
  EXPECT_DOUBLE_EQ(range, 0.5);
  EXPECT_EQ(fill.enabledFillLayerCount(), 2u);
  EXPECT_TRUE(fill.disableFill());
  EXPECT_FALSE(fill.isFillEnabled());
  EXPECT_FALSE(fill.disableFill());
}

TEST(Fill, SettingsCompareLayersByPosition) {
  FillParam a, b;
  a.enableEdge = true;  // nothing enabled: edge switches do not matter
  EXPECT_TRUE(a.isSameEffect(b));
  a.layers[0] = enabledLayer(1);
  EXPECT_FALSE(a.isSameEffect(b));
  b.layers[1] = enabledLayer(1);
  b.enableEdge = true;
  EXPECT_FALSE(a.isSameEffect(b));  // same layer, other position
  b.layers[0] = a.layers[0];
  b.layers[1] = FillLayerParam();
  EXPECT_TRUE(a.isSameEffect(b));
}

TEST(Fill, LayerArrayLoadsInPlace) {
  FillParam fill;
  ASSERT_EQ(fill.load(parsed(R"({"layer":[{"enabled":true}],"simplify":true})")), 0u);
  EXPECT_TRUE(fill.layers[0].enabled);
  EXPECT_FALSE(fill.layers[1].enabled);
  EXPECT_TRUE(fill.simplify);
  std::string five = R"({"layer":[)";
  for (int i = 0; i < 5; ++i)
    five += (i ? "," : "") + std::string(R"({"penID":)") + char('1' + i) + "}";
  ASSERT_EQ(fill.load(parsed(five + "]}")), 0u);
  EXPECT_EQ(fill.layers[2].penID, 3);

  SeriObject saved(utils::JsonSave::instance);
  ASSERT_EQ(fill.save(saved), 0u);
  EXPECT_EQ(saved.keys(),
            (std::vector<std::string>{"layer", "enableEdge", "edgeFirst", "simplify"}));
  FillParam back;
  ASSERT_EQ(back.load(saved), 0u);
  EXPECT_TRUE(back.isSameEffect(fill));
  EXPECT_EQ(back.layers[2].penID, 3);
}

TEST(ArrayCopy, ToleranceBoundaries) {
  RectArrayParam::Flags f, g;
  f.value = 0x1F;
  g.value = 0xE0;
  g.detail = f.detail;
  EXPECT_EQ(g.value, 0xFF);
  g = f;
  EXPECT_EQ(g.value, 0x1F);

  ArrayParam a, b;
  a.rect.rowCount = 9;  // disabled: layouts do not matter
  EXPECT_TRUE(a.isSameEffect(b));
  a.enabled = b.enabled = true;
  b.rect = a.rect;
  b.rect.rowDistIncrease += 0.00005;
  b.circular.radius = 99;  // not the selected layout
  EXPECT_TRUE(a.isSameEffect(b));
  b.rect.rowDistIncrease = a.rect.rowDistIncrease + 0.001;
  EXPECT_FALSE(a.isSameEffect(b));
  b.rect.rowDistIncrease = a.rect.rowDistIncrease;
  b.rect.flags.value = 1;
  EXPECT_FALSE(a.isSameEffect(b));

  CircularArrayParam c, d;
  d.radius = c.radius + 1e-9;
  EXPECT_FALSE(c == d);
  d.radius = c.radius;
  d.startAngle += 0.00009;
  EXPECT_TRUE(c == d);

  a.type = b.type = 2;
  EXPECT_FALSE(a.isSameEffect(b));
  a.type = b.type = 1;
  b.circular = a.circular;
  EXPECT_TRUE(a.isSameEffect(b));

  SeriObject saved(utils::JsonSave::instance);
  ASSERT_EQ(a.save(saved), 0u);
  EXPECT_EQ(saved.keys(),
            (std::vector<std::string>{"enabled", "type", "disableSeriChange", "rect", "circular"}));
}

TEST(DataRecord, ResetTimeIsKeptOnLoading) {
  DataRecordParam record;
  SeriObject saved(utils::JsonSave::instance);
  ASSERT_EQ(record.save(saved), 0u);
  EXPECT_EQ(saved.stringfy(),
            R"({"writeToFile":false,"enableDupCheck":false,"writeTimeToFile":true,)"
            R"("writeAfterMark":true,"overwrite":false,"timedReset":false,)"
            R"("resetTime":"1970-01-01T08:00:00","filePath":""})");

  ASSERT_EQ(record.load(parsed(R"({"timedReset":true,"resetTime":"1970-01-01T20:30:00",)"
                               R"("filePath":"log.csv"})")),
            0u);
  EXPECT_TRUE(record.timedReset);
  EXPECT_EQ(record.resetTime.hour(), 8);
  EXPECT_EQ(record.filePath, "log.csv");

  DataRecordParam a, b;
  EXPECT_TRUE(a.isSameEffect(b));
  b.filePath = "other";
  EXPECT_FALSE(a.isSameEffect(b));
  b = a;
  b.resetTime.setTime(8, 0, 1);
  EXPECT_FALSE(a.isSameEffect(b));
}
