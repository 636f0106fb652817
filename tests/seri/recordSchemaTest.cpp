#include <gtest/gtest.h>

#include <set>
#include <string>

#include <param/mgr/initParam.h>
#include <param/params/penParam.h>
#include <param/seri/recordRegistry.h>
#include <param/seri/recordSchema.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::TempDir;
using utils::JsonLoad;
using utils::JsonSave;

namespace {

class RecordSchema : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(param::load({dir / "defaults.cfg"}), 0u); }
  void TearDown() override { param::unload(); }
  TempDir dir;
};

SeriObject child(const SeriObject& parent, const char* key) {
  SeriObject out(JsonLoad::instance);
  EXPECT_EQ(parent.getSeriObject(key, out), 0u) << key;
  return out;
}

}  // namespace

TEST_F(RecordSchema, EveryRegisteredTypeDescribesExactlyTheKeysItSaves) {
  const auto types = RecordRegistry::types();
  std::set<std::string> names;
  for (const RecordType& t : types)
    names.insert(std::string(t.name));
  for (const char* name : {"PenParam", "PenArray", "LmcParam", "GalvoParam", "LaserParam",
                           "FillParam", "ArrayParam", "MarkCtrlData", "ExtAxisParArray"}) {
    EXPECT_EQ(names.count(name), 1u) << name;
  }

  SeriObject schema(JsonSave::instance);
  ASSERT_EQ(recordSchema("", schema), 0u);
  const SeriObject defs = child(schema, "$defs");
  for (const RecordType& t : types) {
    SCOPED_TRACE(std::string(t.name));
    // A record loaded from nothing saves its defaults: the schema lists the
    // same keys in the same order, and each default is what save wrote.
    SeriObject saved(JsonSave::instance);
    ASSERT_EQ(t.loadAndSave(testing_support::parsed("{}"), saved), 0u);
    // A fresh object takes each key without a lookup: a key list that named a
    // key twice would write it twice.
    const std::size_t written = saved.size();
    EXPECT_EQ(saved.keys().size(), written);
    const SeriObject properties = child(child(defs, std::string(t.name).c_str()), "properties");
    ASSERT_EQ(properties.keys(), saved.keys());
    for (const std::string& key : saved.keys()) {
      const SeriObject prop = child(properties, key.c_str());
      std::string ref;
      if (prop.get("$ref", ref) == 0) {
        EXPECT_EQ(defs.keys().size(), names.size());
        EXPECT_EQ(names.count(ref.substr(std::string("#/$defs/").size())), 1u) << ref;
      }
      // Every key says what it means, a nested record ("$ref") as much as a
      // number: a key added without a few words fails here.
      std::string meaning;
      EXPECT_EQ(prop.get("description", meaning), 0u) << key;
      EXPECT_FALSE(meaning.empty()) << key;
      // A character array's own text on its length is not a meaning; the
      // meaning comes first.
      if (prop.contains("maxLength")) {
        EXPECT_NE(meaning.rfind("at most ", 0), 0u) << key;
      }
    }
  }
}

TEST_F(RecordSchema, PenParamPropertiesCarryTypesRangesAndDefaults) {
  SeriObject schema(JsonSave::instance);
  ASSERT_EQ(recordSchema("PenParam", schema), 0u);
  const std::string text = schema.stringfy();
  EXPECT_NE(text.find(R"("$ref":"#/$defs/PenParam")"), std::string::npos);
  const SeriObject pen = child(child(child(schema, "$defs"), "PenParam"), "properties");
  const SeriObject power = child(pen, "laserPower");
  std::string type;
  EXPECT_EQ(power.get("type", type), 0u);
  EXPECT_EQ(type, "integer");
  std::int64_t maximum = 0;
  EXPECT_EQ(power.get("maximum", maximum), 0u);
  EXPECT_EQ(maximum, 2147483647);
  EXPECT_NE(child(pen, "runSpeed").stringfy().find(R"("enum":["NaN","Infinity","-Infinity"])"),
            std::string::npos);
  const SeriObject name = child(pen, "penName");
  int maxLength = 0;
  EXPECT_EQ(name.get("maxLength", maxLength), 0u);
  EXPECT_EQ(maxLength, 31);
  const SeriObject wobble = child(pen, "wobble");
  std::string ref;
  EXPECT_EQ(wobble.get("$ref", ref), 0u);
  EXPECT_EQ(ref, "#/$defs/WobbleParam");
  // The key list's few words on each key are the description.
  std::string meaning;
  const SeriObject wobbleKeys = child(child(child(schema, "$defs"), "WobbleParam"), "properties");
  EXPECT_EQ(child(wobbleKeys, "wobbleDiaY").get("description", meaning), 0u);
  EXPECT_EQ(meaning, "size of the figure across the path");

  // The nested default is the whole default sub-record.
  EXPECT_EQ(child(wobble, "default").stringfy(), testing_support::jsonOf(WobbleParam()));

  SeriObject none(JsonSave::instance);
  EXPECT_EQ(recordSchema("NoSuchRecord", none), utils::errc::keyMissing);
}
