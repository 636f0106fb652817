#include <gtest/gtest.h>

#include <string>

#include <utils/jsonPath.h>

using namespace utils;

namespace {

JsonObject tree(const std::string& text) {
  JsonObject o(JsonLoad::instance);
  EXPECT_EQ(o.parser(text.data(), text.size()), 0u) << text;
  return o;
}

std::string at(const JsonObject& root, const std::string& path) {
  JsonPath p;
  EXPECT_EQ(parseJsonPath(path, p), 0u) << path;
  std::string text;
  const SdkError e = getJsonText(root, p, text);
  return e ? "error " + std::to_string(e) : text;
}

SdkError put(JsonObject& root, const std::string& path, const std::string& value) {
  JsonPath p;
  if (SdkError e = parseJsonPath(path, p)) return e;
  return setJsonText(root, p, value);
}

}  // namespace

TEST(JsonPath, ParsesEscapesAndRefusesWhatIsNoPath) {
  JsonPath p;
  ASSERT_EQ(parseJsonPath(R"(pens.params[3].laserPower)", p), 0u);
  ASSERT_EQ(p.size(), 4u);
  EXPECT_TRUE(p[2].isIndex);
  EXPECT_EQ(p[2].index, 3u);
  ASSERT_EQ(parseJsonPath(R"(a\.b.c\[1\].d\\)", p), 0u);
  ASSERT_EQ(p.size(), 3u);
  EXPECT_EQ(p[0].key, "a.b");
  EXPECT_EQ(p[1].key, "c[1]");
  EXPECT_EQ(p[2].key, "d\\");
  EXPECT_EQ(formatJsonPath(p), R"(a\.b.c\[1\].d\\)");
  ASSERT_EQ(parseJsonPath("", p), 0u);
  EXPECT_TRUE(p.empty());
  std::string why;
  for (const char* bad : {"a..b", ".a", "a.", "a[", "a[x]", "a[1]b", "a[-1]", "a]", "a\\", "[]"}) {
    EXPECT_EQ(parseJsonPath(bad, p, &why), errc::parseError) << bad;
    EXPECT_FALSE(why.empty()) << bad;
  }
}

TEST(JsonPath, GetsAndSetsInPlaceAtAnyDepth) {
  JsonObject doc = tree(R"({"pens":{"params":[{"laserPower":60,"name":"a"},{"laserPower":61}]},)"
                        R"("x.y":{"3":true},"n":1.5})");
  EXPECT_EQ(at(doc, "pens.params[1].laserPower"), "61");
  EXPECT_EQ(at(doc, "pens.params[0]"), R"({"laserPower":60,"name":"a"})");
  EXPECT_EQ(at(doc, R"(x\.y.3)"), "true");
  EXPECT_EQ(at(doc, "n"), "1.5");
  EXPECT_EQ(at(doc, "pens.params[2]"), "error " + std::to_string(errc::indexOutOfRange));
  EXPECT_EQ(at(doc, "pens.nothing"), "error " + std::to_string(errc::keyMissing));
  EXPECT_EQ(at(doc, "pens[0]"), "error " + std::to_string(errc::wrongType));
  EXPECT_EQ(at(doc, "n.m"), "error " + std::to_string(errc::wrongType));

  // A view taken before the change keeps what it saw (copy on write).
  JsonObject pens(JsonLoad::instance);
  ASSERT_EQ(doc.getJsonObject("pens", pens), 0u);
  ASSERT_EQ(put(doc, "pens.params[0].laserPower", "75"), 0u);
  ASSERT_EQ(put(doc, "pens.params[1].extra", R"({"new":[1,2]})"), 0u);
  ASSERT_EQ(put(doc, "pens.params[2]", "{}"), 0u);  // appends
  ASSERT_EQ(put(doc, "n", R"("text")"), 0u);
  EXPECT_EQ(doc.stringfy(), R"({"pens":{"params":[{"laserPower":75,"name":"a"},)"
                            R"({"laserPower":61,"extra":{"new":[1,2]}},{}]},)"
                            R"("x.y":{"3":true},"n":"text"})");
  EXPECT_EQ(pens.stringfy().find("75"), std::string::npos);

  // Nothing changes when a step or the value is wrong.
  const std::string before = doc.stringfy();
  EXPECT_EQ(put(doc, "a.b", "1"), errc::keyMissing);
  EXPECT_EQ(put(doc, "pens.params[5]", "1"), errc::indexOutOfRange);
  EXPECT_EQ(put(doc, "pens.params.x", "1"), errc::wrongType);
  EXPECT_EQ(put(doc, "n", "{bad"), errc::parseError);
  EXPECT_EQ(put(doc, "n", "1,2"), errc::parseError);
  EXPECT_EQ(put(doc, "n", "1e400"), errc::outOfRange);
  EXPECT_EQ(put(doc, "", "[1]"), errc::wrongType);
  EXPECT_EQ(doc.stringfy(), before);
  ASSERT_EQ(put(doc, "", R"({"only":1})"), 0u);
  EXPECT_EQ(doc.stringfy(), R"({"only":1})");
}
