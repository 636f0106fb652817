#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <utils/json.h>

#include "../support/jsonDescribe.h"

using utils::JsonArray;
using utils::JsonLoad;
using utils::JsonObject;
using utils::SdkError;
namespace errc = utils::errc;

namespace {

std::string nested(int depth) {
  std::string text = "{\"a\":";
  for (int i = 1; i < depth; ++i)
    text += "[";
  text += "0";
  for (int i = 1; i < depth; ++i)
    text += "]";
  return text + "}";
}

}  // namespace

// A parsed object is read in place when its text is plain and as a tree
// otherwise; a change turns it into a tree the full parser builds. Both must
// read alike through every accessor, for plain text and for each kind of text
// that is left to the full parser.
TEST(ParsedText, ReadsAsTheFullParserDoes) {
  const std::vector<std::string> texts = {
      // Read in place.
      R"({"int":-1234567,"min":-9223372036854775808,"max":9223372036854775807,)"
      R"("umax":9446744073709551615,"real":-0.000123456789e-7,"one":1.0,"exp":6.02E+23,)"
      R"("esc":"q\"b\\s\/\b\f\n\r\t\u00e9\u20ac\u0000 end","t":true,"f":false,"n":null,)"
      R"("nest":{"a":[1,2.5,{"b":"a string longer than sixteen bytes"}],"e":{},"l":[]},)"
      R"("s":"NaN","i":"-Infinity","float":3.4028235e38,"over":3.5e38})",
      " \t\r\n{ \"a\" : [ 1 , { } , [ ] ] , \"b\" : \"x\" } \n",
      R"({"latin1":"caf)"
      "\xe9"
      R"(","l":123456789012345678901234567890.5,"e":-1e-250})",
      nested(255),
      // Left to the full parser.
      R"({"k\u0065y":1,"key":2})",    // an escaped key
      R"({"dup":1,"x":[],"dup":2})",  // a key twice: the last is kept
      R"({"pair":"\ud83d\ude00"})",   // a surrogate pair
      R"({"umax":18446744073709551615,"big":18446744073709551616})",
      R"({"neg":-9223372036854775809,"z":-0,"tiny":1e-400,"huge":1e300})",
      nested(256),
  };
  for (const std::string& text : texts) {
    JsonObject read(JsonLoad::instance);
    JsonObject tree(JsonLoad::instance);
    ASSERT_EQ(read.parser(text.data(), text.size()), 0u) << text;
    ASSERT_EQ(tree.parser(text.data(), text.size()), 0u) << text;
    testing_json::settle(tree);
    EXPECT_EQ(testing_json::describe(read), testing_json::describe(tree)) << text;
    EXPECT_EQ(read.stringfy(), tree.stringfy());
    EXPECT_EQ(read.stringfy(2), tree.stringfy(2));
  }

  // Bad text gives the full parser's codes, and leaves the content as it was.
  JsonObject o(JsonLoad::instance);
  ASSERT_EQ(o.parser("{\"kept\":1}", 10), 0u);
  const std::vector<std::pair<std::string, SdkError>> bad = {
      {"{\"a\":\"\x01\"}", errc::parseError},
      {"{\"a\":1e400}", errc::outOfRange},
      {"{\"a\":01}", errc::parseError},
      {"{\"a\":1.}", errc::parseError},
      {"{\"a\":1}x", errc::parseError},
      {std::string("{\"a\":1}\0", 8), errc::parseError},
      {"{\"a\":tru}", errc::parseError},
      {"{\"a\":\"\\x\"}", errc::parseError},
      {"{\"a\":[1,]}", errc::parseError},
      {"{\"a\" 1}", errc::parseError},
      {"[1]", errc::wrongType},
      {"", errc::parseError},
      {nested(258), errc::parseError},
      {"{\"a\":\"\\u12\"}", errc::parseError},
      {"{\"lone\":\"\\ud800\"}", errc::parseError},
  };
  for (const auto& [text, code] : bad) {
    EXPECT_EQ(o.parser(text.data(), text.size()), code) << text;
    EXPECT_EQ(o.stringfy(), R"({"kept":1})");
  }
  JsonArray a(JsonLoad::instance);
  EXPECT_EQ(a.parser("{}", 2), errc::wrongType);
  ASSERT_EQ(a.parser("[1,\"x\",[2]]", 11), 0u);
  EXPECT_EQ(a.size(), 3u);
  EXPECT_EQ(a.elementText(2), "[2]");
}

// Objects of many members keep a key table, arrays an element index: every
// member and element is found, in any order, with or without a cursor.
TEST(ParsedText, FindsMembersOfLargeObjectsAndElementsOfLongArrays) {
  for (int members : {1, 8, 9, 32, 33, 200}) {
    std::string text = "{";
    for (int i = 0; i < members; ++i)
      text += (i ? ",\"m" : "\"m") + std::to_string(i) + "\":" + std::to_string(i);
    text += ",\"list\":[";
    for (int i = 0; i < 1000; ++i)
      text += (i ? "," : "") + std::to_string(i * 3);
    text += "]}";
    JsonObject o(JsonLoad::instance);
    ASSERT_EQ(o.parser(text.data(), text.size()), 0u);
    EXPECT_EQ(o.size(), static_cast<std::size_t>(members) + 1);
    std::size_t cursor = 0;
    for (int i = members - 1; i >= 0; --i) {
      const std::string key = "m" + std::to_string(i);
      int v = -1;
      EXPECT_EQ(o.get(key.c_str(), v), 0u);
      EXPECT_EQ(v, i);
      EXPECT_EQ(o.get(key.c_str(), v, cursor), 0u);
      EXPECT_EQ(v, i);
    }
    int v = -1;
    EXPECT_EQ(o.get("m", v), errc::keyMissing);
    EXPECT_EQ(o.get("m0 ", v, cursor), errc::keyMissing);
    EXPECT_EQ(o.keys().size(), static_cast<std::size_t>(members) + 1);
    JsonArray list(JsonLoad::instance);
    ASSERT_EQ(o.getJsonArray("list", list), 0u);
    ASSERT_EQ(list.size(), 1000u);
    for (std::size_t i : {999u, 0u, 500u, 1u}) {
      EXPECT_EQ(list.get(i, v), 0u);
      EXPECT_EQ(v, static_cast<int>(i) * 3);
    }
    EXPECT_EQ(list.get(1000, v), errc::indexOutOfRange);
  }

  // A cursor left by lookups in a child, pointing at one of the child's own
  // keys, finds the parent's member of that name.
  const std::string text = R"({"b":{"x":0,"k":1},"k":2})";
  JsonObject parent(JsonLoad::instance);
  JsonObject child(JsonLoad::instance);
  ASSERT_EQ(parent.parser(text.data(), text.size()), 0u);
  ASSERT_EQ(parent.getJsonObject("b", child), 0u);
  std::size_t cursor = 0;
  int v = -1;
  ASSERT_EQ(child.get("x", v, cursor), 0u);
  EXPECT_EQ(parent.get("k", v, cursor), 0u);
  EXPECT_EQ(v, 2);
}

// Views of a parsed text share it; a change copies only the node changed,
// and what is stored elsewhere is written in the writer's own form.
TEST(ParsedText, ChangesLeaveOtherViewsAsTheyWere) {
  const std::string text = R"({ "a" : { "x" : 1.0 , "y" : [ 1E2 ] }, "b" : 2 })";
  JsonObject doc(JsonLoad::instance);
  ASSERT_EQ(doc.parser(text.data(), text.size()), 0u);
  JsonObject a(JsonLoad::instance);
  ASSERT_EQ(doc.getJsonObject("a", a), 0u);
  const JsonObject copy = doc.clone();

  ASSERT_EQ(a.set("x", 5), 0u);
  EXPECT_EQ(a.stringfy(), R"({"x":5,"y":[100]})");
  EXPECT_EQ(doc.stringfy(), R"({"a":{"x":1,"y":[100]},"b":2})");

  JsonObject again(JsonLoad::instance);
  ASSERT_EQ(doc.getJsonObject("a", again), 0u);
  ASSERT_EQ(doc.set("b", 3), 0u);
  EXPECT_EQ(again.memberText("x"), "1");
  EXPECT_EQ(copy.memberText("b"), "2");

  // A parsed child stored into an object being built, and taken out of a
  // parsed parent.
  JsonObject built(utils::JsonSave::instance);
  ASSERT_EQ(built.addJsonObject("a", std::move(again)), 0u);
  JsonArray y(JsonLoad::instance);
  JsonObject fromCopy = copy.clone();
  JsonObject taken(JsonLoad::instance);
  ASSERT_EQ(fromCopy.takeJsonObject("a", taken), 0u);
  ASSERT_EQ(taken.takeJsonArray("y", y), 0u);
  ASSERT_EQ(y.add(7), 0u);
  ASSERT_EQ(built.addJsonArray("y", std::move(y)), 0u);
  EXPECT_EQ(built.stringfy(), R"({"a":{"x":1,"y":[100]},"y":[100,7]})");
  EXPECT_EQ(fromCopy.stringfy(), R"({"a":{},"b":2})");
}
