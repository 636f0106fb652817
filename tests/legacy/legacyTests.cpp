#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <stdexcept>
#include <tuple>

#include <param/legacy/encodingNames.h>
#include <param/legacy/seaWString.h>
#include <param/legacy/sriBase.h>
#include <param/legacy/sriFile.h>
#include <param/legacy/wcharAdapter.h>

#include "support/testSupport.h"

using namespace param;

namespace {

constexpr std::size_t npos = static_cast<std::size_t>(-1);

// A stream built byte by byte: the 256-byte header of `version`, then the tokens
// of `body`. "{", "}" and "," are the version's markers, 'text' a length-prefixed
// block, q:N, i:N, u:HEX and x:HEX an integer of 8, 4, 2 and 1 bytes; any other
// token is its own characters.
std::vector<char> stream(int version, const std::string& body, std::uint32_t magic = 0xd097adf2) {
  std::vector<char> out;
  auto put = [&](std::uint64_t v, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i)
      out.push_back(static_cast<char>(v >> (8 * i)));
  };
  put(magic | std::uint64_t{static_cast<std::uint32_t>(version)} << 32, 8);
  out.resize(256);
  std::istringstream in(body);
  for (std::string t; in >> t;) {
    const std::size_t marker = t.size() == 1 ? std::string_view("{},").find(t[0]) : npos;
    // A typed value's width in bytes is the place of its letter in this row.
    const std::size_t width = t[1] == ':' ? std::string_view("-xu-i---q").find(t[0]) : npos;
    const bool quoted = t.size() > 1 && t.front() == '\'' && t.back() == '\'';
    if (marker != npos) t = std::string("{:*j}!~p,8^+").substr(4 * marker, version >= 2 ? 4 : 1);
    if (width != npos) put(std::stoull(t.substr(2), nullptr, width < 4 ? 16 : 0), width), t.clear();
    if (quoted) put(t.size() - 2, 4), t = t.substr(1, t.size() - 2);
    out.insert(out.end(), t.begin(), t.end());
  }
  return out;
}

// A stream opened from a copy of its bytes (or of their first `n`) allocated to
// their exact size, so that the asan build catches any read past the end.
struct Opened {
  explicit Opened(const std::vector<char>& bytes, std::size_t n = npos)
      : block(bytes.begin(), bytes.begin() + std::min(n, bytes.size())) {}
  std::vector<char> block;
  SriFile f;
  bool accepted = f.readFromStream(block.data(), block.size());
};

TEST(SriFile, HeaderPrimitivesAndPositions) {
  const auto header = stream(2, "");
  testing_support::LogCapture log;
  Opened refused[] = {Opened(stream(2, "{ i:5", 0xd097adf3)), Opened(header, 255)};
  for (auto& o : refused) {
    int value = 77;
    o.f.ReadInt(value);
    EXPECT_EQ(std::tuple(o.accepted, o.f.GetState(), o.f.GetPos(), value),
              std::tuple(false, 2, npos, 77));
    // The state is sticky: even a good stream is refused now.
    EXPECT_FALSE(o.f.readFromStream(header.data(), header.size()));
  }
  EXPECT_EQ(log.lines.size(), 2u);

  const std::string big(2000, 'q');
  Opened o(stream(2, "i:0x12345678 abc '' 'hello' i:6 u:48 u:e9 u:20ac '" + big + "' abc"));
  int i = 0;
  char abc[3];
  o.f.ReadInt(i);
  o.f.SetPos(4, true), o.f.ReadSize(abc, 3);
  EXPECT_EQ(std::tuple(i, std::string(abc, 3)), std::tuple(0x12345678, "abc"));
  EXPECT_STREQ(o.f.ReadString(), "");
  EXPECT_EQ(o.f.GetPos(), 11u);
  EXPECT_STREQ(o.f.ReadString(), "hello");
  o.f.SetPos(-9, false);
  EXPECT_STREQ(o.f.ReadString(), "hello");
  EXPECT_EQ(std::wstring(o.f.ReadWString()), L"H\u00e9\u20ac");
  EXPECT_EQ(o.f.ReadString(), big);
  EXPECT_EQ(o.f.BufferCapacity(), 4004u);  // twice the largest block and its two zeros
  o.f.ReadInt(i);                          // three bytes left
  EXPECT_EQ(std::tuple(o.f.GetState(), i), std::tuple(SriFile::stateBadData, 0x12345678));

  // Reads beyond the end, or from a position moved out of the block, fail with
  // their state; the asan build sees that nothing past the block is touched.
  Opened w(stream(2, "i:0x7fffffff")), s(stream(2, "i:1")), r(stream(2, "i:1")),
      m(stream(2, "i:1"));
  w.f.ReadWString();
  s.f.SetPos(2, true), s.f.ReadInt(i);
  r.f.RCurSeek(-1000), r.f.ReadInt(i);
  m.f.SetPos(100, true), m.f.MoveToDataEnd();
  EXPECT_EQ(std::tuple(w.f.GetState(), s.f.GetState(), r.f.GetState(), m.f.GetState(), i),
            std::tuple(2, 2, 2, 5, 0x12345678));

  // A position before the body (inside the header) is refused however it is
  // reached, and GetPos never reports a wrapped offset. The body start itself
  // is a good position.
  const auto body = stream(2, "i:7 i:8");
  Opened start(body);
  start.f.SetPos(4, true), start.f.SetPos(-4, false), start.f.ReadInt(i);
  EXPECT_EQ(std::tuple(start.f.GetState(), start.f.GetPos(), i), std::tuple(0, 4u, 7));
  Opened moves[] = {Opened(body), Opened(body), Opened(body), Opened(body)};
  moves[0].f.SetPos(4, true), moves[0].f.SetPos(-5, false);
  moves[1].f.SetPos(-1, true);
  moves[2].f.SetPos(std::numeric_limits<int>::min(), false);
  moves[3].f.RCurSeek(std::numeric_limits<long long>::min());
  for (auto& o : moves) {
    i = 0;
    o.f.ReadInt(i);
    EXPECT_EQ(std::tuple(o.f.GetState(), o.f.GetPos(), i), std::tuple(2, npos, 0));
  }
}

// The skipping rules applied one byte at a time from body offset `from`: the
// state and the body offset of the marker found.
std::pair<int, std::size_t> skipByteByByte(const std::vector<char>& d, std::size_t from, bool v2) {
  const std::string start = v2 ? "{:*j" : "{", end = v2 ? "}!~p" : "}", split = v2 ? ",8^+" : ",";
  auto at = [&](std::size_t p, const std::string& m) {
    return p + m.size() <= d.size() && std::equal(m.begin(), m.end(), d.begin() + p);
  };
  long long remaining = d.size() - 256 - from, depth = 0;
  for (std::size_t p = 256 + from; remaining-- > 0; ++p) {
    const bool opens = at(p, start), closes = at(p, end);
    if (opens || (closes && depth > 0)) {
      depth += opens ? 1 : -1, remaining -= 3, p += start.size() - 1;
    } else if (closes || (depth == 0 && at(p, split))) {
      return {0, p - 256};
    }
  }
  return {5, npos};
}

TEST(SriFile, MoveToDataEndStopsInFrontOfTheClosingMarker) {
  // Nested objects (with their own separators) and stray first bytes of markers
  // are stepped over. Each nested marker costs three more bytes of the count, so
  // with one-byte markers the "}" closing "{}}" needs six more bytes after it.
  const std::tuple<int, std::string, std::size_t, int> cases[] = {
      {2, "x{,}y { k , v } z ,", 20, 1}, {1, "a{b,c}d}tttttt", 7, 2}, {1, "{}}zzzzzz", 2, 2},
      {1, "{}}zzzzz", npos, 0},          {2, "{ } }", 8, 2},          {2, "{ , }", npos, 0}};
  for (const auto& [version, body, pos, marker] : cases) {
    Opened o(stream(version, body));
    o.f.MoveToDataEnd();
    EXPECT_EQ(o.f.GetPos(), pos) << body;
    EXPECT_EQ(std::pair(o.f.ReadSplit(), o.f.GetState()), std::pair(marker, pos == npos ? 5 : 0));
  }
  // The jumping scan agrees with the plain rule on random bodies and starts.
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
    Opened o(bytes);
    const std::size_t from = bytes.size() == 256 ? 0 : rng() % (bytes.size() - 256);
    o.f.SetPos(static_cast<int>(from), true);
    o.f.MoveToDataEnd();
    ASSERT_EQ(std::pair(o.f.GetState(), o.f.GetPos()), skipByteByByte(bytes, from, version == 2))
        << round;
  }
}

// Reads a property of every kind; `inner` and `owned` are nested objects.
struct Everything : SriBase {
  bool b = false;
  short s = 0;
  unsigned int ui = 0;
  long long ll = 0;
  double d = 0;
  char raw[5] = {};
  wchar_t w[3] = {};
  char16_t u[3] = {};
  SeaWString empty = u"old", cut, odd, text;
  int a = 0, ownedA = 0;
  SriBase inner, *owned = nullptr;  // `owned` belongs to the registry

  void AddProps() override {
    AddProp("b", &b), AddProp("s", &s), AddProp("ui", &ui), AddProp("ll", &ll);
    AddProp("d", &d), AddProp("raw", raw, 5), AddWchar("w", w, 3), AddWchar("u", u, 3);
    AddProp("empty", &empty), AddProp("cut", &cut), AddProp("odd", &odd);
    inner.AddProp("a", &a), inner.AddProp("text", &text), AddProp("inner", &inner);
    AddPropEx("owned", owned = new SriBase), owned->AddProp("a", &ownedA);
  }
};

// Every kind of reader, unknown properties (a nested object among them) and wide
// text: empty, cut at its first zero unit, and with an odd last byte as a unit.
std::vector<char> everything(int version) {
  return stream(version,
                "{ 'b' x:1 , 's' u:fb2e , 'ui' i:4000000000 , 'll' q:-1234567890123 , 'd' "
                "q:0xc002000000000000 , 'raw' R x:0 A x:0 W , 'w' u:e9 u:4e2d u:5a , 'what' i:7 , "
                "'u' u:78 u:79 u:7a , 'other' { 'q' i:1 , 'r' i:2 } , 'empty' i:0 , 'cut' i:10 "
                "u:61 u:62 u:0 u:63 u:64 , 'odd' i:3 a x:0 b , 'inner' { 'a' i:42 , 'text' i:10 "
                "u:68 u:e9 u:6c u:6c u:6f } , 'owned' { 'a' i:-7 } , 'tail' zz }");
}

// Versions from 2 up use four-byte markers, older ones one-byte markers.
TEST(SriObject, ReadsEveryPropertyKindInBothVersions) {
  for (int version : {-3, 0, 1, 2, 7}) {
    const auto bytes = everything(version);
    Opened o(bytes);
    Everything e;
    e.Read(&o.f);
    ASSERT_EQ(o.f.GetPos(), bytes.size() - 256) << version << ": " << o.f.GetError();
    EXPECT_EQ(std::tuple(e.b, e.s, e.ui, e.ll, e.d, std::string(e.raw, 5)),
              std::tuple(true, short{-1234}, 4000000000u, -1234567890123LL, -2.25,
                         std::string("R\0A\0W", 5)));
    EXPECT_EQ(std::tuple(std::wstring(e.w, 3), std::u16string(e.u, 3), e.empty.str(), e.cut.str(),
                         e.odd.str(), e.a, e.text.str(), e.ownedA),
              std::tuple(L"\u00e9\u4e2dZ", u"xyz", u"", u"ab", u"ab", 42, u"h\u00e9llo", -7));
    // A copy never takes registrations over: it makes its own on first Read.
    Everything copy(e);
    EXPECT_TRUE(copy.IsPropMapEmpty());
    Opened again(bytes);
    copy.Read(&again.f);
    EXPECT_TRUE(again.f.IsOk() && copy.owned != e.owned && copy.ownedA == -7);
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
  EXPECT_THROW(r.AddPropEx("x", new SriBase), std::logic_error);  // destroyed, not leaked
  EXPECT_THROW(r.AddProp(nullptr, &y), std::invalid_argument);
  Opened o(stream(2, "{ 'x' i:5 }"));
  r.Read(&o.f);
  EXPECT_EQ(std::tuple(o.f.IsOk(), x, y), std::tuple(true, 5, 0));
  // Without registrations every entry is skipped, nested objects included.
  r.SetEmpty();
  Opened unknown(stream(1, "{ 'q' { 'x' i:1 } 0123 , 'x' i:9 }"));
  r.Read(&unknown.f);
  EXPECT_EQ(std::tuple(unknown.f.IsOk(), x), std::tuple(true, 5));
}

TEST(SriObject, BadStreamsEndInAnErrorStateWithText) {
  // A case is the version, the body, "|", and then the state, the error text and
  // the value of 'ui' read before the failure (q:7 is longer than its reader).
  for (std::string c :
       {"1x|2 ReadStart err:: 0", "2{:*|2 ReadStart err:: 0", "2{ x:3|2 strIndex: :: 0",
        "2{ i:-1|2 strIndex: :: 0", "2{ i:5 ab|2 strIndex: :: 0", "2{ 'ui' x:1 x:2|2 Value: ui:: 0",
        "2{ 'ui' i:1 bad!|4 ReadSplit error:: 1", "2{ 'ui' i:1 }!~|4 ReadSplit error:: 1",
        "2{ 'ui' q:7 }|4 ReadSplit error:: 7", "1{ 'ui' i:3|4 ReadSplit error:: 3",
        "2{ 'zz'|5 MoveToDataEnd: zz:: 0", "2{ 'zz' abc,8^|5 MoveToDataEnd: zz:: 0",
        "2{ 'inner' { 'a' x:1|2 Value: a::Value: inner:: 0",
        "2{ 'inner' { 'a' i:1 bad!|4 ReadSplit error::Value: inner:: 0"}) {
    const auto bar = c.find('|');
    Opened o(stream(c[0] - '0', c.substr(1, bar - 1)));
    Everything obj;
    obj.Read(&o.f);
    EXPECT_EQ(std::to_string(o.f.GetState()) + " " + o.f.GetError() + " " + std::to_string(obj.ui),
              c.substr(bar + 1));
  }
  // Every truncation of a good stream fails; no one-byte corruption makes a read
  // leave the block (the asan build checks) or end without a state and its text.
  testing_support::LogCapture quiet;
  for (int version : {1, 2}) {
    const auto bytes = everything(version);
    for (std::size_t n = 0; n < bytes.size(); ++n) {
      Opened o(bytes, n);
      Everything().Read(&o.f);
      ASSERT_TRUE(o.f.GetState() != 0 && *o.f.GetError() != '\0') << n;
    }
    for (std::size_t at = 256; at < bytes.size(); ++at) {
      for (char value : {'\0', '\xff', '\x80', '{', '}', ','}) {
        auto corrupted = bytes;
        corrupted[at] = value;
        Opened o(corrupted);
        Everything().Read(&o.f);
        const auto state = o.f.GetState();
        ASSERT_TRUE(state == 0 || state == 2 || state == 4 || state == 5) << at;
        ASSERT_EQ(state == 0, *o.f.GetError() == '\0') << at;
      }
    }
  }
}

TEST(WcharAdapterTest, ConvertsUnitsBothWaysAndNamesEncodings) {
  WcharAdapter a;
  const char16_t narrow[3] = {u'a', u'\u00e9', u'\u4e2d'};
  // No surrogate handling: a character beyond 16 bits keeps its low two bytes.
  const char32_t wide[3] = {U'a', U'\u00e9', U'\U0001F600'};
  char out[12] = {};
  for (auto bad : {a.Win2Linux(narrow, 3, out, 11), a.Win2Linux(nullptr, 3, out, 12),
                   a.Win2Linux(narrow, 3, nullptr, 12), a.Linux2Win(wide, 3, out, 5)})
    EXPECT_EQ(bad, WcharAdapter::failed);
  EXPECT_EQ(a.Linux2Win(wide, 3, out, 6), 6u);
  EXPECT_EQ(std::memcmp(out, "a\0\xe9\0\0\xf6", 6), 0);
  const std::u16string many(300, u'k');  // 1200 bytes: 512 doubles twice
  const char* p = a.Win2Linux(many.data(), many.size());
  EXPECT_EQ(std::tuple(a.Capacity(), p[1196], p[1200]), std::tuple(2048u, 'k', '\0'));
  // The buffer is zeroed again behind a shorter text.
  EXPECT_EQ(std::memcmp(a.Win2Linux(narrow, 3), "a\0\0\0\xe9\0\0\0\x2d\x4e\0\0\0\0\0", 16), 0);

  EXPECT_EQ(std::vector<std::string>(g_encodingNames, g_encodingNames + encodingNameCount),
            (std::vector<std::string>{"GBK", "UTF-8", "BIG5", "Shift-JIS", "EUC-KR", "UNICODE",
                                      "UNICODE_BE", ""}));
  EXPECT_EQ(std::tuple(encodingName(3), encodingName(8)), std::tuple(g_encodingNames[3], nullptr));
}

}  // namespace
