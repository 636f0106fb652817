#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <utils/json.h>

#include "../support/testSupport.h"

using testing_support::parsed;
using utils::JsonArray;
using utils::JsonLoad;
using utils::JsonObject;
using utils::SdkError;
namespace errc = utils::errc;

namespace {

// Hands `text` over in pieces of `piece` bytes, each in a buffer of its own
// that is freed at the next call (a parser keeping a pointer into an old piece
// reads freed memory), then ends with `endCode`.
class PieceSource : public utils::JsonTextSource {
 public:
  PieceSource(std::string text, std::size_t piece, SdkError endCode = 0)
      : text_(std::move(text)), piece_(piece), endCode_(endCode) {}

  SdkError next(const char*& data, std::size_t& size) override {
    size = std::min(piece_, text_.size() - at_);
    if (size == 0) return endCode_;
    buffer_ = std::make_unique<char[]>(size);
    std::copy_n(text_.data() + at_, size, buffer_.get());
    at_ += size;
    data = buffer_.get();
    return 0;
  }

 private:
  std::string text_;
  std::size_t piece_;
  SdkError endCode_;
  std::size_t at_ = 0;
  std::unique_ptr<char[]> buffer_;
};

}  // namespace

// Every token may be cut anywhere between two pieces: the tree is the one the
// whole text gives.
TEST(ParsedTree, TextInPiecesParsesAsTheWholeText) {
  const std::string text =
      R"({"int":-1234567,"big":18446744073709551615,"real":-0.000123456789e-7,)"
      R"("exact":0.1,"negZero":-0.0,"tiny":1e-400,"exp":6.02214076E+23,)"
      R"("esc":"q\"b\\s\/\n\t\u00e9\ud83d\ude00 end","k\u0065y":[true,false,null,[],{}],)"
      R"("nest":{"a":[1,2.5,{"b":"a string longer than the inline size"}]}})";
  const std::string whole = parsed(text).stringfy();
  for (std::size_t piece : {1, 2, 3, 5, 7, 11, 64}) {
    PieceSource source(text, piece);
    JsonObject o(JsonLoad::instance);
    ASSERT_EQ(o.parser(source), 0u) << piece;
    EXPECT_EQ(o.stringfy(), whole) << piece;
  }
}

// A code from the source wins over bad text; either leaves the content as it was.
TEST(ParsedTree, TextInPiecesErrors) {
  struct Case {
    std::string text;
    SdkError endCode;
    SdkError expected;
  };
  const Case cases[] = {
      {R"({"a":1)", 0, errc::parseError},
      {R"({"a":1} x)", 0, errc::parseError},
      {"[1]", 0, errc::wrongType},
      {R"({"a":1e400})", 0, errc::outOfRange},
      {"", 0, errc::parseError},
      {R"({"a":1})", errc::badBase64, errc::badBase64},
      {R"({"a":)", errc::badBase64, errc::badBase64},
  };
  for (const Case& c : cases) {
    for (std::size_t piece : {1, 3, 100}) {
      JsonObject o = parsed(R"({"kept":true})");
      PieceSource source(c.text, piece, c.endCode);
      EXPECT_EQ(o.parser(source), c.expected) << c.text << " in pieces of " << piece;
      EXPECT_EQ(o.stringfy(), R"({"kept":true})");
    }
  }
}

// A parsed tree is copied on its first edit: views taken before keep what
// they saw, and nothing taken out of it depends on the parsed tree's life.
TEST(ParsedTree, EditedAfterParsing) {
  const std::string text = R"({"a":{"b":1,"s":"a string longer than the inline size"},"l":[1,2]})";
  JsonObject doc = parsed(text);
  JsonObject a(JsonLoad::instance);
  ASSERT_EQ(doc.getJsonObject("a", a), 0u);

  EXPECT_EQ(doc.set("x", 2), 0u);
  EXPECT_EQ(a.set("b", 5), 0u);
  EXPECT_EQ(doc.memberText("a"), R"({"b":1,"s":"a string longer than the inline size"})");
  EXPECT_EQ(a.load("b", 0), 5);

  // Taken out, cloned and viewed nodes outlive the tree they came from.
  JsonObject fresh = parsed(text);
  JsonObject taken(JsonLoad::instance);
  JsonArray list(JsonLoad::instance);
  ASSERT_EQ(fresh.takeJsonObject("a", taken), 0u);
  ASSERT_EQ(fresh.getJsonArray("l", list), 0u);
  JsonObject copy = fresh.clone();
  fresh = JsonObject(JsonLoad::instance);
  for (int i = 0; i < 100; ++i)
    EXPECT_EQ(taken.set("s", std::string(40, static_cast<char>('a' + i % 26))), 0u);
  EXPECT_EQ(taken.set("b", 3), 0u);
  EXPECT_EQ(taken.stringfy(), R"({"b":3,"s":")" + std::string(40, 'v') + R"("})");
  EXPECT_EQ(list.stringfy(), "[1,2]");
  EXPECT_EQ(copy.stringfy(), R"({"a":{},"l":[1,2]})");
  ASSERT_EQ(taken.set("more", "x"), 0u);
  ASSERT_EQ(copy.setJsonObject("a", std::move(taken)), 0u);
  EXPECT_EQ(copy.memberText("a"), R"({"b":3,"s":")" + std::string(40, 'v') + R"(","more":"x"})");
}

// Looking keys up from a cursor finds exactly what the plain lookup finds, in
// any order, in small objects and in hashed large ones.
TEST(ParsedTree, CursorLookupFindsWhatPlainLookupFinds) {
  std::string large = "{";
  std::vector<std::string> keys;
  for (int i = 0; i < 30; ++i) {
    keys.push_back("key" + std::to_string(i));
    large += (i ? "," : "") + ("\"" + keys.back() + "\":" + std::to_string(i));
  }
  large += R"(,"ab":100,"a\u0000b":101,"dup":1,"dup":2})";
  const JsonObject big = parsed(large);
  const JsonObject small = parsed(R"({"x":1,"ab":2,"abc":3,"dup":4,"dup":5,"o":{"i":6}})");

  std::vector<std::vector<std::string>> orders = {
      keys,
      {"ab", "a", "abc", "a\u0001b", "dup", "key3", "key2", "missing", "key4", "x", "o"},
  };
  std::vector<std::string> reversed(keys.rbegin(), keys.rend());
  orders.push_back(reversed);
  for (const JsonObject* o : {&big, &small}) {
    for (const auto& order : orders) {
      std::size_t cursor = 0;
      for (const std::string& key : order) {
        int plain = -1, hinted = -1;
        const SdkError e = o->get(key.c_str(), plain);
        EXPECT_EQ(o->get(key.c_str(), hinted, cursor), e) << key;
        EXPECT_EQ(hinted, plain) << key;
        EXPECT_LE(cursor, o->size());
      }
    }
  }

  // In order, each key is at the cursor; a missing key leaves it in place;
  // a key found elsewhere moves it past that key.
  std::size_t cursor = 0;
  int v = 0;
  EXPECT_EQ(small.get("x", v, cursor), 0u);
  EXPECT_EQ(cursor, 1u);
  EXPECT_EQ(small.get("nothing", v, cursor), errc::keyMissing);
  EXPECT_EQ(cursor, 1u);
  EXPECT_EQ(small.get("dup", v, cursor), 0u);
  EXPECT_EQ(v, 5);
  EXPECT_EQ(cursor, 4u);
  JsonObject child(JsonLoad::instance);
  EXPECT_EQ(small.getJsonObject("o", child, cursor), 0u);
  EXPECT_EQ(child.load("i", 0), 6);
  JsonArray wrong(JsonLoad::instance);
  EXPECT_EQ(small.getJsonArray("o", wrong, cursor), errc::wrongType);
  std::string text;
  cursor = 99;
  EXPECT_EQ(small.get("ab", text, cursor), errc::wrongType);
  EXPECT_EQ(cursor, 2u);
}
