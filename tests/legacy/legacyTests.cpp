#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include <utils/logger.h>

#include <param/legacy/encodingNames.h>
#include <param/legacy/seaWString.h>
#include <param/legacy/sriBase.h>
#include <param/legacy/sriFile.h>
#include <param/legacy/wcharAdapter.h>

using namespace param;

namespace {

constexpr std::size_t npos = static_cast<std::size_t>(-1);

// A stream built byte by byte: the 256-byte header of `version`, then the tokens
// of `body`. "{", "}" and "," are the version's markers, 'text' a length-prefixed
// block, i:N and q:N a 32- and 64-bit integer, u:HEX a 16-bit unit, x:HEX a
// byte; any other token is its own characters.
std::vector<char> stream(int version, const std::string& body, std::uint32_t magic = 0xd097adf2) {
  std::vector<char> out;
  auto put = [&](std::uint64_t v, int n) {
    for (int i = 0; i < n; ++i)
      out.push_back(static_cast<char>(v >> (8 * i)));
  };
  put(magic, 4);
  put(static_cast<std::uint32_t>(version), 4);
  out.resize(256);
  std::istringstream in(body);
  for (std::string t; in >> t;) {
    const std::string m = t == "{" ? "{:*j" : t == "}" ? "}!~p" : t == "," ? ",8^+" : "";
    const bool typed = t.size() > 2 && t[1] == ':' && std::strchr("iqux", t[0]);
    if (!m.empty()) {
      out.insert(out.end(), m.begin(), m.begin() + (version >= 2 ? 4 : 1));
    } else if (t.size() >= 2 && t.front() == '\'' && t.back() == '\'') {
      put(t.size() - 2, 4);
      out.insert(out.end(), t.begin() + 1, t.end() - 1);
    } else if (typed) {
      const std::string v = t.substr(2);
      const int base = t[0] == 'u' || t[0] == 'x' ? 16 : 0;
      put(v[0] == '-' ? std::stoll(v) : std::stoull(v, nullptr, base), t[0] == 'q'   ? 8
                                                                       : t[0] == 'i' ? 4
                                                                       : t[0] == 'u' ? 2
                                                                                     : 1);
    } else {
      out.insert(out.end(), t.begin(), t.end());
    }
  }
  return out;
}

// A stream opened from a heap block of exactly its bytes (or their first `n`), so
// that the asan build catches any read past its end.
struct Opened {
  std::unique_ptr<char[]> block;
  SriFile f;
  bool accepted = false;
};

Opened open(const std::vector<char>& bytes, std::size_t n = npos) {
  Opened o;
  n = std::min(n, bytes.size());
  o.block = std::make_unique<char[]>(n);
  std::copy_n(bytes.begin(), n, o.block.get());
  o.accepted = o.f.readFromStream(o.block.get(), n);
  return o;
}

// Counts log lines, and keeps them off the console, while it lives.
struct CountLog {
  int lines = 0;
  utils::Logger::Sink previous = utils::Logger::setSink(
      [this](utils::LogLevel, std::string_view, std::string_view) { ++lines; });
  ~CountLog() { utils::Logger::setSink(previous); }
};

TEST(SriFile, HeaderPicksMarkersAndBadHeadersAreRefused) {
  // The start marker's length shows which set the version chose.
  for (auto [version, length] : {std::pair(1, 1u), {0, 1u}, {-3, 1u}, {2, 4u}, {7, 4u}}) {
    auto o = open(stream(version, "{"));
    o.f.ReadStart();
    EXPECT_TRUE(o.accepted && o.f.IsOk() && o.f.GetPos() == length) << version;
  }
  const auto header = stream(2, "");
  CountLog log;
  Opened refused[] = {open(stream(2, "{ i:5", 0xd097adf3)), open(header, 255)};
  for (auto& o : refused) {
    int value = 77;
    o.f.ReadInt(value);
    EXPECT_FALSE(o.accepted);
    EXPECT_EQ(std::tuple(o.f.GetState(), o.f.GetPos(), value), std::tuple(2, npos, 77));
    // The state is sticky: even a good stream is refused now.
    EXPECT_FALSE(o.f.readFromStream(header.data(), header.size()));
  }
  EXPECT_EQ(log.lines, 2);
}

TEST(SriFile, PrimitivesAndPositions) {
  const std::string big(2000, 'q');
  auto o = open(stream(2, "i:0x12345678 abc '' 'hello' i:6 u:48 u:e9 u:20ac '" + big + "' i:-1"));
  int i = 0;
  char abc[3];
  o.f.ReadInt(i);
  o.f.SetPos(0, true);
  EXPECT_EQ(o.f.GetPos(), 0u);
  o.f.SetPos(4, false);
  o.f.ReadSize(abc, 3);
  EXPECT_EQ(std::tuple(i, std::string(abc, 3)), std::tuple(0x12345678, "abc"));
  EXPECT_STREQ(o.f.ReadString(), "");
  EXPECT_EQ(o.f.GetPos(), 11u);
  EXPECT_STREQ(o.f.ReadString(), "hello");
  o.f.SetPos(-9, false);
  EXPECT_STREQ(o.f.ReadString(), "hello");
  EXPECT_EQ(std::wstring(o.f.ReadWString()), L"H\u00e9\u20ac");
  EXPECT_EQ(o.f.BufferCapacity(), 1024u);
  EXPECT_EQ(o.f.ReadString(), big);
  EXPECT_EQ(o.f.BufferCapacity(), 4004u);
  EXPECT_STREQ(o.f.ReadString(), "");  // length -1
  EXPECT_EQ(o.f.GetState(), SriFile::stateBadData);
}

// Each read that would cross the end of the block fails with its state, and the
// asan build sees that nothing past the block is touched. A case is the state
// expected, the operations, "|" and the body of a version 2 stream.
TEST(SriFile, ReadsPastTheEndFailInsteadOfReading) {
  for (std::string c : {"2i|abc", "2b|abcd", "2s|x:3 x:0 x:0", "2s|i:10 123456789",
                        "2w|i:0x7fffffff", "2{|", "2{|{:*", "4,|", "4,|}!~", "4,|}!~q", "2>i|i:1",
                        "2<i|i:1", "5m|", "5m|abc,8^", "5]m|i:1"}) {
    const auto bar = c.find('|');
    auto o = open(stream(2, c.substr(bar + 1)));
    for (char op : c.substr(1, bar - 1)) {
      int v = 0;
      char b[5];
      if (op == 'i') o.f.ReadInt(v);
      if (op == 'b') o.f.ReadSize(b, 5);
      if (op == 's') o.f.ReadString();
      if (op == 'w') o.f.ReadWString();
      if (op == '{') o.f.ReadStart();
      if (op == ',') o.f.ReadSplit();
      if (op == 'm') o.f.MoveToDataEnd();
      if (op == '>') o.f.SetPos(2, true);
      if (op == ']') o.f.SetPos(100, true);
      if (op == '<') o.f.RCurSeek(-1000);
    }
    EXPECT_EQ(o.f.GetState(), c[0] - '0') << c;
  }
}

TEST(SriFile, MoveToDataEndStopsInFrontOfTheClosingMarker) {
  // Nested objects (with their own separators) and stray first bytes of markers
  // are stepped over. Each nested marker costs three more bytes of the count, so
  // with one-byte markers the "}" closing "{}}" needs six more bytes after it.
  const std::tuple<int, std::string, std::size_t, int> cases[] = {
      {2, "x{,}y { k , v } z ,", 20, 1}, {1, "a{b,c}d}tttttt", 7, 2}, {1, "{}}zzzzzz", 2, 2},
      {1, "{}}zzzzz", npos, 0},          {2, "{ } }", 8, 2},          {2, "{ , }", npos, 0}};
  for (const auto& [version, body, pos, marker] : cases) {
    auto o = open(stream(version, body));
    o.f.MoveToDataEnd();
    EXPECT_EQ(o.f.GetPos(), pos) << body;
    EXPECT_EQ(o.f.ReadSplit(), marker) << body;
    EXPECT_EQ(o.f.GetState(), pos == npos ? SriFile::stateNoEnd : 0) << body;
  }
}

// The skipping rules applied one byte at a time: the state and the position.
std::pair<int, std::size_t> skipByteByByte(const std::vector<char>& d, std::size_t pos, bool v2) {
  const std::string start = v2 ? "{:*j" : "{", end = v2 ? "}!~p" : "}", split = v2 ? ",8^+" : ",";
  auto at = [&](const std::string& m) {
    return pos - 1 + m.size() <= d.size() && std::string(&d[pos - 1], m.size()) == m;
  };
  long long remaining = static_cast<long long>(d.size() - pos);
  for (int depth = 0; remaining > 0;) {
    --remaining;
    const char c = d[pos++];
    if (c == start[0] && at(start)) {
      ++depth, remaining -= 3, pos += start.size() - 1;
    } else if (c == end[0] && at(end)) {
      if (depth == 0) return {0, pos - 1};
      --depth, remaining -= 3, pos += end.size() - 1;
    } else if (depth == 0 && c == split[0] && at(split)) {
      return {0, pos - 1};
    }
  }
  return {5, npos};
}

TEST(SriFile, JumpingScanAgreesWithTheByteByByteRule) {
  std::mt19937 rng(12345);
  const std::vector<std::string> pieces = {
      " { ", " } ", " , ", "{",   "}",   ",",  "a", std::string(40, 'b'),
      ":*j", "!~p", "8^+", "{:*", "}!~", ",8^"};
  for (int round = 0; round < 20000; ++round) {
    const int version = 1 + round % 2;
    std::string body;
    for (int i = rng() % 24; i > 0; --i)
      body += pieces[rng() % (version == 1 ? 8 : 14)];
    const auto bytes = stream(version, body);
    auto o = open(bytes);
    const std::size_t from = bytes.size() == 256 ? 0 : rng() % (bytes.size() - 256);
    o.f.SetPos(static_cast<int>(from), true);
    o.f.MoveToDataEnd();
    auto [state, pos] = skipByteByByte(bytes, 256 + from, version == 2);
    ASSERT_EQ(o.f.GetState(), state) << round;
    ASSERT_EQ(o.f.GetPos(), state == 0 ? pos - 256 : npos) << round;
  }
}

struct Inner : SriBase {
  int a = 0;
  SeaWString text;
  void AddProps() override { AddProp("a", &a), AddProp("text", &text); }
};

struct Everything : SriBase {
  bool b = false;
  short s = 0;
  unsigned int ui = 0;
  long long ll = 0;
  double d = 0;
  char raw[5] = {};
  wchar_t w[3] = {};
  char16_t u[3] = {};
  Inner inner;
  Inner* owned = nullptr;  // belongs to the registry
  int addPropsCalls = 0;

  void AddProps() override {
    ++addPropsCalls;
    AddProp("b", &b), AddProp("s", &s), AddProp("ui", &ui), AddProp("ll", &ll);
    AddProp("d", &d), AddProp("raw", raw, 5), AddWchar("w", w, 3), AddWchar("u", u, 3);
    AddProp("inner", &inner), AddPropEx("owned", owned = new Inner);
  }
};

// Every kind of reader, unknown properties (a nested object among them) and wide text.
std::vector<char> everything(int version) {
  return stream(version,
                "{ 'b' x:1 , 's' u:fb2e , 'ui' i:4000000000 , 'll' q:-1234567890123 , 'd' "
                "q:0xc002000000000000 , 'raw' R x:0 A x:0 W , 'w' u:e9 u:4e2d u:5a , 'what' i:7 , "
                "'u' u:78 u:79 u:7a , 'other' { 'q' i:1 , 'r' i:2 } , 'inner' { 'a' i:42 , 'text' "
                "i:10 u:68 u:e9 u:6c u:6c u:6f } , 'owned' { 'a' i:-7 } , 'tail' zz }");
}

TEST(SriObject, ReadsEveryPropertyKindInBothVersions) {
  for (int version : {1, 2}) {
    const auto bytes = everything(version);
    auto o = open(bytes);
    Everything e;
    e.Read(&o.f);
    ASSERT_TRUE(o.f.IsOk()) << version << ": " << o.f.GetError();
    EXPECT_EQ(o.f.GetPos(), bytes.size() - 256);
    EXPECT_EQ(std::tuple(e.b, e.s, e.ui, e.ll, e.d),
              std::tuple(true, short{-1234}, 4000000000u, -1234567890123LL, -2.25));
    EXPECT_EQ(std::string(e.raw, 5), std::string("R\0A\0W", 5));
    EXPECT_EQ(std::tuple(std::wstring(e.w, 3), std::u16string(e.u, 3)),
              std::tuple(L"\u00e9\u4e2dZ", u"xyz"));
    EXPECT_EQ(std::tuple(e.inner.a, e.inner.text.str(), e.owned->a),
              std::tuple(42, u"h\u00e9llo", -7));
    // A copy never takes registrations over: it makes its own on first Read.
    Everything copy(e);
    EXPECT_TRUE(copy.IsPropMapEmpty());
    auto again = open(bytes);
    copy.Read(&again.f);
    EXPECT_EQ(std::tuple(again.f.IsOk(), e.addPropsCalls, copy.addPropsCalls, copy.owned->a),
              std::tuple(true, 1, 2, -7));
  }
}

TEST(SriObject, RegistrationRules) {
  SriBase r;
  int x = 0, y = 0;
  r.AddProp("x", &x);
  try {
    r.AddProp("x", &y);
    ADD_FAILURE() << "no exception";
  } catch (const std::logic_error& e) {
    EXPECT_STREQ(e.what(), "name already exists");
  }
  EXPECT_THROW(r.AddPropEx("x", new Inner), std::logic_error);  // destroyed, not leaked
  EXPECT_THROW(r.AddProp(nullptr, &y), std::invalid_argument);
  auto o = open(stream(2, "{ 'x' i:5 }"));
  r.Read(&o.f);
  EXPECT_EQ(std::tuple(o.f.IsOk(), x, y), std::tuple(true, 5, 0));
  // Without registrations every entry is skipped, nested objects included.
  r.SetEmpty();
  auto unknown = open(stream(1, "{ 'q' { 'x' i:1 } 0123 , 'x' i:9 }"));
  r.Read(&unknown.f);
  EXPECT_EQ(std::tuple(unknown.f.IsOk(), x), std::tuple(true, 5));
}

TEST(SriObject, MalformedStreamsEndInAnErrorStateWithText) {
  // Version, body, state, error text, and the value read before the failure.
  const std::tuple<int, std::string, int, std::string, int> cases[] = {
      {2, "x", 2, "ReadStart err::", 0},
      {2, "{ i:5 ab", 2, "strIndex: ::", 0},
      {2, "{ 'ui' x:1 x:2", 2, "Value: ui::", 0},
      {2, "{ 'ui' i:1 bad!", 4, "ReadSplit error::", 1},
      {2, "{ 'ui' q:7 }", 4, "ReadSplit error::", 7},  // the value is longer than its reader
      {2, "{ 'zz' abc", 5, "MoveToDataEnd: zz::", 0},
      {2, "{ 'inner' { 'a' x:1", 2, "Value: a::Value: inner::", 0},
      {2, "{ 'inner' { 'a' i:1 bad!", 4, "ReadSplit error::Value: inner::", 0},
      {1, "{ 'ui' i:3", 4, "ReadSplit error::", 3},
  };
  for (const auto& [version, body, state, error, a] : cases) {
    auto o = open(stream(version, body));
    Everything obj;
    obj.Read(&o.f);
    EXPECT_EQ(std::tuple(o.f.GetState(), o.f.GetError(), obj.ui),
              std::tuple(state, error, static_cast<unsigned>(a)))
        << body;
  }
}

// Every truncation of a good stream fails; no one-byte corruption makes a read
// leave the block (the asan build checks) or end without a state and its text.
TEST(SriObject, TruncatedAndCorruptedStreamsStayInsideTheBlock) {
  CountLog quiet;
  for (int version : {1, 2}) {
    const auto bytes = everything(version);
    for (std::size_t n = 0; n < bytes.size(); ++n) {
      auto o = open(bytes, n);
      Everything().Read(&o.f);
      ASSERT_TRUE(o.f.GetState() != 0 && *o.f.GetError() != '\0') << n;
    }
    for (std::size_t at = 256; at < bytes.size(); ++at) {
      for (char value : {'\0', '\xff', '\x80', '{', '}', ','}) {
        auto corrupted = bytes;
        corrupted[at] = value;
        auto o = open(corrupted);
        Everything().Read(&o.f);
        const auto state = o.f.GetState();
        ASSERT_TRUE(state == 0 || state == 2 || state == 4 || state == 5) << at;
        ASSERT_EQ(state == 0, *o.f.GetError() == '\0') << at;
      }
    }
  }
}

TEST(SeaWStringTest, TextOperationsAndReading) {
  SeaWString text(u"ab");
  text += SeaWString(u'c');
  EXPECT_TRUE(text == SeaWString(u"abc") && text.size() == 3 && text != SeaWString(u"abd"));
  EXPECT_TRUE(text > SeaWString(u"ab") && text < SeaWString(u"b") && !(text < text));
  // Empty, cut at the first zero unit, and an odd last byte as a unit of its own.
  for (auto [value, text] :
       {std::pair("i:0", u""), {"i:10 u:61 u:62 u:0 u:63 u:64", u"ab"}, {"i:3 a x:0 b", u"ab"}}) {
    SeaWString s(u"old");
    SriBase holder;
    holder.AddProp("s", &s);
    auto o = open(stream(2, std::string("{ 's' ") + value + " }"));
    holder.Read(&o.f);
    EXPECT_TRUE(o.f.IsOk() && s.str() == text) << value;
  }
}

TEST(WcharAdapterTest, ConvertsUnitsBothWays) {
  WcharAdapter a;
  const char16_t narrow[3] = {u'a', u'\u00e9', u'\u4e2d'};
  // No surrogate handling: a character beyond 16 bits keeps its low two bytes.
  const char32_t wide[3] = {U'a', U'\u00e9', U'\U0001F600'};
  const char widened[16] = "a\0\0\0\xe9\0\0\0\x2d\x4e\0\0";
  char out[12] = {};
  EXPECT_EQ(a.Win2Linux(narrow, 3, out, 12), 12u);
  EXPECT_EQ(std::memcmp(out, widened, 12), 0);
  for (auto bad : {a.Win2Linux(narrow, 3, out, 11), a.Win2Linux(nullptr, 3, out, 12),
                   a.Win2Linux(narrow, 3, nullptr, 12), a.Linux2Win(wide, 3, out, 5)}) {
    EXPECT_EQ(bad, WcharAdapter::failed);
  }
  EXPECT_EQ(a.Linux2Win(wide, 3, out, 6), 6u);
  EXPECT_EQ(std::memcmp(out, "a\0\xe9\0\0\xf6", 6), 0);
  EXPECT_EQ(std::memcmp(a.Win2Linux(narrow, 3), widened, 16), 0);  // zeroed after the text
  const std::u16string many(300, u'k');                            // 1200 bytes: 512 doubles twice
  const char* p = a.Win2Linux(many.data(), many.size());
  EXPECT_EQ(std::tuple(a.Capacity(), p[1196], p[1200]), std::tuple(2048u, 'k', '\0'));
}

TEST(EncodingNames, EightNamesInOrder) {
  const std::vector<std::string> names(g_encodingNames, g_encodingNames + encodingNameCount);
  EXPECT_EQ(names, (std::vector<std::string>{"GBK", "UTF-8", "BIG5", "Shift-JIS", "EUC-KR",
                                             "UNICODE", "UNICODE_BE", ""}));
  EXPECT_EQ(std::tuple(encodingName(3), encodingName(8)), std::tuple(g_encodingNames[3], nullptr));
}

}  // namespace
