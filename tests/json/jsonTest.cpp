#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include <utils/json.h>

#include "../support/testSupport.h"

using testing_support::parsed;
using utils::JsonArray;
using utils::JsonLoad;
using utils::JsonObject;
using utils::JsonSave;
namespace errc = utils::errc;

TEST(Json, NumbersAreWrittenAsPeopleWriteThem) {
  JsonObject o(JsonSave::instance);
  o.set("f", 0.02f);
  o.set("d", 0.1);
  o.set("big", 2000.0);
  o.set("half", 1.5f);
  o.set("tiny", 1e-7);
  o.set("neg", -3);
  o.set("u64", std::numeric_limits<std::uint64_t>::max());
  o.set("i64", std::numeric_limits<std::int64_t>::min());
  o.set("negzero", -0.0);
  enum class Kind : std::uint8_t { A = 1, B = 200 };
  o.set("kind", Kind::B);
  EXPECT_EQ(o.stringfy(),
            R"({"f":0.02,"d":0.1,"big":2000,"half":1.5,"tiny":1e-07,"neg":-3,)"
            R"("u64":18446744073709551615,"i64":-9223372036854775808,"negzero":-0.0,"kind":200})");

  JsonObject back = parsed(o.stringfy());
  float f = 0;
  double negzero = 1;
  std::uint64_t u = 0;
  std::int64_t i = 0;
  EXPECT_EQ(back.get("f", f), 0u);
  EXPECT_EQ(f, 0.02f);
  EXPECT_EQ(back.get("u64", u), 0u);
  EXPECT_EQ(u, std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(back.get("i64", i), 0u);
  EXPECT_EQ(i, std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(back.get("negzero", negzero), 0u);
  EXPECT_TRUE(std::signbit(negzero));
  Kind kind = Kind::A;
  EXPECT_EQ(back.get("kind", kind), 0u);
  EXPECT_EQ(kind, Kind::B);
}

TEST(Json, EveryFloatAndDoubleReadsBackExactly) {
  std::mt19937_64 rng(7);
  JsonObject o(JsonSave::instance);
  std::vector<float> floats;
  std::vector<double> doubles;
  for (int k = 0; k < 2000; ++k) {
    std::uint32_t fb = static_cast<std::uint32_t>(rng());
    std::uint64_t db = rng();
    float f;
    double d;
    std::memcpy(&f, &fb, 4);
    std::memcpy(&d, &db, 8);
    if (!std::isfinite(f)) f = 1.25f;
    if (!std::isfinite(d)) d = -2.5;
    floats.push_back(f);
    doubles.push_back(d);
    o.set(("f" + std::to_string(k)).c_str(), f);
    o.set(("d" + std::to_string(k)).c_str(), d);
  }
  JsonObject back = parsed(o.stringfy());
  for (int k = 0; k < 2000; ++k) {
    float f = 0;
    double d = 0;
    ASSERT_EQ(back.get(("f" + std::to_string(k)).c_str(), f), 0u);
    ASSERT_EQ(back.get(("d" + std::to_string(k)).c_str(), d), 0u);
    ASSERT_EQ(std::memcmp(&f, &floats[k], 4), 0) << floats[k];
    ASSERT_EQ(std::memcmp(&d, &doubles[k], 8), 0) << doubles[k];
  }
}

TEST(Json, NonFiniteNumbersSurviveAsStrings) {
  JsonObject o(JsonSave::instance);
  o.set("nan", std::numeric_limits<double>::quiet_NaN());
  o.set("inf", std::numeric_limits<float>::infinity());
  o.set("ninf", -std::numeric_limits<double>::infinity());
  EXPECT_EQ(o.stringfy(), R"({"nan":"NaN","inf":"Infinity","ninf":"-Infinity"})");
  JsonObject back = parsed(o.stringfy());
  double nan = 0, ninf = 0;
  float inf = 0;
  EXPECT_EQ(back.get("nan", nan), 0u);
  EXPECT_EQ(back.get("inf", inf), 0u);
  EXPECT_EQ(back.get("ninf", ninf), 0u);
  EXPECT_TRUE(std::isnan(nan));
  EXPECT_EQ(inf, std::numeric_limits<float>::infinity());
  EXPECT_EQ(ninf, -std::numeric_limits<double>::infinity());
  std::string text;
  EXPECT_EQ(back.get("nan", text), 0u);  // still an ordinary string to a string reader
}

// No double holds 1e400: such text is refused with the out-of-range code
// wherever the number stands, so a tree never holds an infinity that would be
// written back as a token no parser reads. Below the double range a number
// reads as zero; the largest doubles still parse.
TEST(Json, NumbersBeyondTheDoubleRangeAreRefused) {
  JsonObject o = parsed(R"({"keep":1})");
  const std::string bads[] = {R"({"a":1e400})", R"({"a":-1e400})", R"({"variant":{"a":[0,1e309]}})",
                              R"({"a":1.8e308})", "{\"a\":1" + std::string(400, '0') + "}"};
  for (const std::string& bad : bads) {
    EXPECT_EQ(o.parser(bad.data(), bad.size()), errc::outOfRange) << bad;
  }
  EXPECT_EQ(o.stringfy(), R"({"keep":1})");
  JsonArray a(JsonLoad::instance);
  const std::string arrayText = "[1,-2e400]";
  EXPECT_EQ(a.parser(arrayText.data(), arrayText.size()), errc::outOfRange);

  JsonObject edge = parsed(R"({"tiny":1e-400,"max":1.7976931348623157e308,"min":-4.9e-324})");
  double tiny = 1, max = 0, min = 0;
  EXPECT_EQ(edge.get("tiny", tiny) | edge.get("max", max) | edge.get("min", min), 0u);
  EXPECT_EQ(tiny, 0.0);
  EXPECT_EQ(max, std::numeric_limits<double>::max());
  EXPECT_EQ(min, -std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(edge.stringfy(), R"({"tiny":0,"max":1.7976931348623157e+308,"min":-5e-324})");
}

TEST(Json, TypedGetChecksKindAndRangeAndLeavesTargetOnError) {
  JsonObject o = parsed(R"({"u8":255,"big":300,"neg":-1,"frac":1.5,"whole":5.0,"huge":1e40,)"
                        R"("s":"7","b":true,"obj":{},"arr":[],"u16":70000})");
  std::uint8_t u8 = 9;
  EXPECT_EQ(o.get("u8", u8), 0u);
  EXPECT_EQ(u8, 255);
  u8 = 9;
  EXPECT_EQ(o.get("big", u8), errc::outOfRange);
  EXPECT_EQ(u8, 9);
  std::uint32_t u32 = 4;
  EXPECT_EQ(o.get("neg", u32), errc::outOfRange);
  std::uint16_t u16 = 4;
  EXPECT_EQ(o.get("u16", u16), errc::outOfRange);
  EXPECT_EQ(u16, 4);
  std::int32_t i32 = 4;
  EXPECT_EQ(o.get("frac", i32), errc::outOfRange);
  EXPECT_EQ(o.get("whole", i32), 0u);
  EXPECT_EQ(i32, 5);
  float f = 2;
  EXPECT_EQ(o.get("huge", f), errc::outOfRange);
  EXPECT_EQ(f, 2);
  double d = 0;
  EXPECT_EQ(o.get("huge", d), 0u);

  // Strings are not numbers, numbers are not bools, and containers are neither.
  EXPECT_EQ(o.get("s", i32), errc::wrongType);
  EXPECT_EQ(o.get("u8", *std::make_unique<bool>()), errc::wrongType);
  bool b = false;
  EXPECT_EQ(o.get("b", b), 0u);
  EXPECT_TRUE(b);
  std::string s = "keep";
  EXPECT_EQ(o.get("obj", s), errc::wrongType);
  EXPECT_EQ(o.get("arr", s), errc::wrongType);
  EXPECT_EQ(s, "keep");
  EXPECT_EQ(o.get("absent", s), errc::keyMissing);

  JsonObject child(JsonLoad::instance);
  JsonArray arr(JsonLoad::instance);
  EXPECT_EQ(o.getJsonObject("arr", child), errc::wrongType);
  EXPECT_EQ(o.getJsonArray("obj", arr), errc::wrongType);
  EXPECT_EQ(o.getJsonObject("absent", child), errc::keyMissing);

  EXPECT_EQ(o.load("u8", std::int32_t{-1}), 255);
  EXPECT_EQ(o.load("s", std::int32_t{-1}), -1);
  EXPECT_EQ(o.load("absent", std::uint8_t{3}), 3);
}

TEST(Json, MembersKeepInsertionOrderAndPlace) {
  JsonObject o(JsonSave::instance);
  o.set("z", 1);
  o.set("a", 2);
  o.set("m", 3);
  o.set("a", 4);  // replaced in place
  EXPECT_EQ(o.keys(), (std::vector<std::string>{"z", "a", "m"}));
  EXPECT_TRUE(o.erase("z"));
  EXPECT_FALSE(o.erase("z"));
  EXPECT_EQ(o.stringfy(), R"({"a":4,"m":3})");
}

TEST(Json, ChildrenAreViewsWithCopyOnWrite) {
  JsonObject root = parsed(R"({"pen":{"power":60,"inner":{"x":1}},"list":[1,2,3]})");

  JsonObject pen(JsonLoad::instance);
  ASSERT_EQ(root.getJsonObject("pen", pen), 0u);
  pen.set("power", 99);  // the child's write does not reach the parent
  EXPECT_EQ(root.stringfy(), R"({"pen":{"power":60,"inner":{"x":1}},"list":[1,2,3]})");
  EXPECT_EQ(pen.stringfy(), R"({"power":99,"inner":{"x":1}})");

  JsonObject inner(JsonLoad::instance);
  ASSERT_EQ(root.getJsonObject("pen", pen), 0u);
  ASSERT_EQ(pen.getJsonObject("inner", inner), 0u);
  root.set("pen", 1);  // nor the parent's write the child's view
  int x = 0;
  EXPECT_EQ(inner.get("x", x), 0u);
  EXPECT_EQ(x, 1);
  EXPECT_EQ(pen.stringfy(), R"({"power":60,"inner":{"x":1}})");

  JsonArray list(JsonLoad::instance);
  ASSERT_EQ(root.getJsonArray("list", list), 0u);
  { JsonObject gone = std::move(root); }  // the view keeps the tree alive
  EXPECT_EQ(list.size(), 3u);
  list.add(4);
  EXPECT_EQ(list.stringfy(), "[1,2,3,4]");

  JsonObject copy = inner.clone();
  copy.set("x", 5);
  EXPECT_EQ(inner.stringfy(), R"({"x":1})");
}

TEST(Json, NestedSetMovesTheChildIn) {
  JsonObject root(JsonSave::instance);
  JsonObject child(JsonSave::instance);
  child.set("a", 1);
  JsonArray arr(JsonSave::instance);
  arr.add(1.5);
  arr.add(std::string("s"));
  JsonObject element(JsonSave::instance);
  element.set("b", true);
  arr.addJsonObject(std::move(element));
  ASSERT_EQ(root.setJsonObject("child", std::move(child)), 0u);
  ASSERT_EQ(root.setJsonArray("arr", std::move(arr)), 0u);
  EXPECT_EQ(root.stringfy(), R"({"child":{"a":1},"arr":[1.5,"s",{"b":true}]})");

  // A view stored elsewhere is copied, not taken from its tree.
  JsonObject view(JsonLoad::instance);
  ASSERT_EQ(root.getJsonObject("child", view), 0u);
  JsonObject other(JsonSave::instance);
  other.setJsonObject("moved", std::move(view));
  EXPECT_EQ(root.stringfy(), R"({"child":{"a":1},"arr":[1.5,"s",{"b":true}]})");
  EXPECT_EQ(other.stringfy(), R"({"moved":{"a":1}})");

  JsonArray items(JsonLoad::instance);
  ASSERT_EQ(root.getJsonArray("arr", items), 0u);
  double d = 0;
  std::string s;
  bool b = true;
  EXPECT_EQ(items.get(0, d), 0u);
  EXPECT_EQ(items.get(1, s), 0u);
  EXPECT_EQ(items.get(1, d), errc::wrongType);
  EXPECT_EQ(items.get(3, d), errc::indexOutOfRange);
  EXPECT_EQ(items.get(2, b), errc::wrongType);
  JsonObject third(JsonLoad::instance);
  EXPECT_EQ(items.getJsonObject(2, third), 0u);
  EXPECT_EQ(items.getJsonObject(0, third), errc::wrongType);
  EXPECT_EQ(items.getJsonObject(9, third), errc::indexOutOfRange);
}

TEST(Json, MembersAreTakenEditedAndPutBackInPlace) {
  JsonObject root = parsed(R"({"a":{"x":1,"keep":[1]},"b":[1,{"y":2},"s"],"c":3})");
  JsonObject before(JsonLoad::instance);
  ASSERT_EQ(root.getJsonObject("a", before), 0u);  // a view that must not change

  JsonObject a(JsonLoad::instance);
  ASSERT_EQ(root.takeJsonObject("a", a), 0u);
  EXPECT_EQ(root.memberText("a"), "{}");  // its place holds an empty object meanwhile
  a.set("x", 5);
  a.set("z", true);
  ASSERT_EQ(root.setJsonObject("a", std::move(a)), 0u);

  JsonArray b(JsonLoad::instance);
  ASSERT_EQ(root.takeJsonArray("b", b), 0u);
  JsonObject second(JsonLoad::instance);
  ASSERT_EQ(b.takeJsonObject(1, second), 0u);
  second.set("y", 7);
  ASSERT_EQ(b.setJsonObject(1, std::move(second)), 0u);
  EXPECT_EQ(b.set(0, std::string("t")), 0u);
  EXPECT_EQ(b.set(3, 4), 0u);  // at the end: appended
  EXPECT_EQ(b.set(9, 4), errc::indexOutOfRange);
  b.truncate(4);
  ASSERT_EQ(root.setJsonArray("b", std::move(b)), 0u);
  EXPECT_EQ(root.stringfy(), R"({"a":{"x":5,"keep":[1],"z":true},"b":["t",{"y":7},"s",4],"c":3})");
  EXPECT_EQ(before.stringfy(), R"({"x":1,"keep":[1]})");

  JsonObject none(JsonLoad::instance);
  JsonArray list(JsonLoad::instance);
  EXPECT_EQ(root.takeJsonObject("c", none), errc::wrongType);
  EXPECT_EQ(root.takeJsonArray("a", list), errc::wrongType);
  EXPECT_EQ(root.takeJsonObject("d", none), errc::keyMissing);
  ASSERT_EQ(root.getJsonArray("b", list), 0u);
  EXPECT_EQ(list.takeJsonObject(0, none), errc::wrongType);
  EXPECT_EQ(list.takeJsonObject(4, none), errc::indexOutOfRange);
  list.truncate(1);
  EXPECT_EQ(list.stringfy(), R"(["t"])");
  EXPECT_EQ(root.memberText("b"), R"(["t",{"y":7},"s",4])");
  EXPECT_EQ(root.memberText("d"), "");
  EXPECT_EQ(list.elementText(0), R"("t")");
  EXPECT_EQ(list.elementText(1), "");
}

TEST(Json, ParserRejectsBadTextAndKeepsContent) {
  JsonObject o = parsed(R"({"keep":1})");
  for (const std::string bad : {"", "{", "{\"a\":}", "nul", "{\"a\":1} x", "{\"a\":01}"}) {
    EXPECT_EQ(o.parser(bad.data(), bad.size()), errc::parseError) << bad;
  }
  const std::string arrayText = "[1,2]";
  EXPECT_EQ(o.parser(arrayText.data(), arrayText.size()), errc::wrongType);
  EXPECT_EQ(o.stringfy(), R"({"keep":1})");

  std::string deep(300, '[');
  deep = "{\"a\":" + deep + std::string(300, ']') + "}";
  EXPECT_EQ(o.parser(deep.data(), deep.size()), errc::parseError);

  JsonArray a(JsonLoad::instance);
  const std::string objText = "{}";
  EXPECT_EQ(a.parser(objText.data(), objText.size()), errc::wrongType);
  EXPECT_EQ(a.parser(arrayText.data(), arrayText.size()), 0u);
  EXPECT_EQ(a.size(), 2u);
}

TEST(Json, StringsRoundTripEscapesAndForeignBytes) {
  JsonObject o(JsonSave::instance);
  const std::string tricky = std::string("quote\" back\\ nl\n tab\t ctl\x01 del\x7f ") +
                             "\xb2\xe2\xca\xd4" /* a local code page, not UTF-8 */ + "\xe4\xb8\xad";
  o.set("s", tricky);
  o.set(tricky.c_str(), 1);
  const std::string text = o.stringfy();
  EXPECT_NE(text.find("\\\""), std::string::npos);
  EXPECT_NE(text.find("\\u0001"), std::string::npos);
  JsonObject back = parsed(text);
  std::string s;
  EXPECT_EQ(back.get("s", s), 0u);
  EXPECT_EQ(s, tricky);
  EXPECT_TRUE(back.contains(tricky.c_str()));
}

TEST(Json, PrettyTextParsesToTheSameTree) {
  JsonObject o = parsed(R"({"a":[1,{"b":2}],"c":{},"d":[]})");
  const std::string pretty = o.stringfy(2);
  EXPECT_EQ(pretty,
            "{\n  \"a\": [\n    1,\n    {\n      \"b\": 2\n    }\n  ],\n"
            "  \"c\": {},\n  \"d\": []\n}");
  EXPECT_EQ(parsed(pretty).stringfy(), o.stringfy());
}

// A node that is only added to keeps its content as text until it is read; it
// must write and read exactly what a tree does.
TEST(Json, ObjectsBuiltByAddingBehaveAsTrees) {
  const auto fill = [](JsonObject& o) {
    o.set("neg0", -0.0f);
    o.set("nan", std::nanf(""));
    o.set("f", 0.1f);
    o.set("d", 1e300);
    o.set("u", std::numeric_limits<std::uint64_t>::max());
    o.set("i", std::numeric_limits<std::int64_t>::min());
    o.set("s", "q\" \\ \n \x01 \xc3\xa9");
    JsonArray a(JsonSave::instance);
    a.add(0.3f);
    a.add("x");
    JsonObject inner(JsonSave::instance);
    inner.set("k", 1);
    EXPECT_EQ(a.set(5, 1), errc::indexOutOfRange);
    EXPECT_EQ(a.set(2, 7), 0u);  // at the end: appended
    a.addJsonObject(std::move(inner));
    o.setJsonArray("a", std::move(a));
    // Large enough to be taken over in pieces rather than copied.
    JsonObject big(JsonSave::instance);
    for (int i = 0; i < 600; ++i)
      big.add("key" + std::to_string(i), i * 0.5);
    o.setJsonObject("big", std::move(big));
    o.set("last", 1);
    o.set("last", 2);  // the last member again: replaced in its place
    o.set("f", 0.2f);  // an earlier one: replaced in its place too
  };
  JsonObject text(JsonSave::instance);
  fill(text);
  JsonObject tree = parsed("{}");
  fill(tree);
  const std::string expected = tree.stringfy();
  EXPECT_EQ(text.size(), tree.size());
  EXPECT_EQ(text.textPieces().joined(), expected);
  EXPECT_EQ(text.stringfy(2), tree.stringfy(2));

  JsonObject pending(JsonSave::instance);
  fill(pending);
  JsonObject copy = pending.clone();
  copy.set("extra", true);
  EXPECT_EQ(pending.stringfy(), expected);
  JsonObject child(JsonSave::instance);
  EXPECT_EQ(pending.takeJsonObject("none", child), errc::keyMissing);
  float neg0 = 1, f = 0;
  std::uint64_t u = 0;
  std::string s;
  EXPECT_EQ(pending.get("neg0", neg0), 0u);
  EXPECT_TRUE(std::signbit(neg0));
  EXPECT_EQ(pending.get("f", f), 0u);
  EXPECT_EQ(f, 0.2f);
  EXPECT_EQ(pending.get("u", u), 0u);
  EXPECT_EQ(u, std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(pending.get("s", s), 0u);
  EXPECT_EQ(s, "q\" \\ \n \x01 \xc3\xa9");
  EXPECT_EQ(pending.stringfy(), expected);
  EXPECT_EQ(copy.size(), tree.size() + 1);

  // An array built by adding is cut and read like a tree.
  JsonArray arr(JsonSave::instance);
  for (int i = 0; i < 5; ++i)
    arr.add(i);
  arr.truncate(3);
  EXPECT_EQ(arr.stringfy(), "[0,1,2]");
}
