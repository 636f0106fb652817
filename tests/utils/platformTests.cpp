#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <tuple>

#include <utils/color.h>
#include <utils/errorHandle.h>
#include <utils/logger.h>
#include <utils/timeDate.h>
#include <utils/utf8.h>
#include <utils/version.h>

#include "support/testSupport.h"

using utils::Color;
using enum utils::ErrorResponseType;
using Rgba = std::array<std::uint8_t, 4>;

// Hue 0-255 covers 0-360 degrees: 85 is green, 170 blue, 255 red again; 43 is
// 60.7 degrees, so green is 255 * (1 - 3/255) = 252. Then 200 - 200 * 128/255 =
// 99.6 and 155 * 205 / 255 = 124.6. RGB ignores a fourth component and reads
// missing ones as 0, a missing alpha is opaque, HSV without saturation is grey,
// and an unknown model is transparent.
TEST(Color, EveryModelAgainstHandComputedValues) {
  const struct {
    std::uint8_t model;
    std::vector<std::uint8_t> in;
    Rgba rgba;
  } cases[] = {{Color::Grey, {77}, {77, 77, 77, 255}},
               {Color::RGB, {1, 2, 3, 4}, {1, 2, 3, 255}},
               {Color::RGB, {9}, {9, 0, 0, 255}},
               {Color::RGBA, {1, 2, 3, 4}, {1, 2, 3, 4}},
               {Color::RGBA, {1, 2, 3}, {1, 2, 3, 255}},
               {Color::ARGB, {4, 1, 2, 3}, {1, 2, 3, 4}},
               {Color::ARGB, {}, {0, 0, 0, 255}},
               {Color::HSV, {0, 255, 255}, {255, 0, 0, 255}},
               {Color::HSV, {85, 255, 255}, {0, 255, 0, 255}},
               {Color::HSV, {255, 255, 255}, {255, 0, 0, 255}},
               {Color::HSV, {43, 255, 255}, {252, 255, 0, 255}},
               {Color::HSV, {0, 128, 200}, {200, 100, 100, 255}},
               {Color::HSVA, {170, 255, 255, 9}, {0, 0, 255, 9}},
               {Color::HSVA, {123, 0, 128}, {128, 128, 128, 255}},
               {Color::CMYK, {0, 0, 0, 0}, {255, 255, 255, 255}},
               {Color::CMYK, {0, 0, 0, 255}, {0, 0, 0, 255}},
               {Color::CMYK, {100, 0, 255, 50}, {125, 205, 0, 255}},
               {0, {1, 2, 3, 4}, {0, 0, 0, 0}},
               {8, {1, 2, 3, 4}, {0, 0, 0, 0}}};
  for (const auto& c : cases)
    EXPECT_EQ(Color(c.model, c.in.data(), c.in.size()).rgbaValue(), c.rgba) << int(c.model);
  EXPECT_EQ(Color(Color::RGB, nullptr, 3).rgbaValue(), (Rgba{0, 0, 0, 255}));
  // Plain integers pick the RGBA constructor, a literal 0 included.
  static_assert(Color(255, 0, 0).rgbaValue() == Rgba{255, 0, 0, 255});
  EXPECT_EQ(Color(300, -4, 7, 0).rgbaValue(), (Rgba{255, 0, 7, 0}));
  const std::size_t counts[] = {0, 1, 3, 4, 3, 4, 4, 4, 0};
  for (std::uint8_t model = 0; model < 9; ++model)
    EXPECT_EQ(Color::componentCount(model), counts[model]);
}

TEST(TimeDate, ValidatesAndRoundTripsIsoText) {
  utils::TimeDate t, read;
  EXPECT_TRUE(t.setTime(8, 0, 0) && t.setDate(2000, 2, 29) && t.setDate(9999, 12, 31));
  const int badDates[][3] = {{2023, 2, 29}, {1900, 2, 29}, {2024, 4, 31}, {2024, 13, 1},
                             {2024, 1, 0},  {0, 1, 1},     {10000, 1, 1}};
  for (const auto& [y, m, d] : badDates)
    EXPECT_FALSE(t.setDate(y, m, d)) << y << m << d;
  EXPECT_FALSE(t.setTime(24, 0, 0) || t.setTime(0, 0, 60));
  EXPECT_EQ(t.toISOString(), "9999-12-31T08:00:00");  // failed setters change nothing
  EXPECT_TRUE(read.fromISOString("0042-03-07T23:59:01"));
  EXPECT_EQ(read.toISOString(), "0042-03-07T23:59:01");
  EXPECT_TRUE(read.fromISOString(t.toISOString()) && read == t);
  for (const char* bad : {"", "2023-02-29T00:00:00", "2024-02-01 00:00:00", "2024-2-01T00:00:00",
                          "2024-02-01T00:00:00Z", "2024-02-01T24:00:00", "+024-02-01T00:00:00",
                          "2024-02-01T0a:00:00", "0000-01-01T00:00:00"})
    EXPECT_TRUE(!read.fromISOString(bad) && read == t) << bad;
}

TEST(Platform, VersionLoggerAndErrorHandler) {
  utils::Version v(1, 2, 3, 4);
  EXPECT_EQ(v.toString(), "1.2.3.4");
  EXPECT_TRUE(v.fromString("2.5") && v == utils::Version(2, 5, 0, 0));
  for (const char* bad : {"", "1.", ".1", "1..2", "1.2.3.4.5", "a", "4294967296"})
    EXPECT_TRUE(!v.fromString(bad) && !v.isValid()) << bad;

  testing_support::LogCapture log;
  utils::Logger(utils::LogLevel::Error, "Param").write("code ").write(utils::SdkError(0x230004));
  utils::Logger(utils::LogLevel::Verbose, "X") << "n=" << 42 << ' ' << true;
  EXPECT_EQ(log.formatted(),
            (std::vector<std::string>{"3 Param: code 0x230004", "0 X: n=42 true"}));

  // Without a handler every error is ignored; a scoped handler answers until it
  // goes, and then the one before it is back.
  auto* handle = utils::ErrorHandle::instance();
  EXPECT_EQ(handle->raiseError(0x110001, 3), Ignore);
  auto counting = std::make_unique<testing_support::RecordingHandler>(Ignore);
  auto aborting = std::make_unique<utils::ScopedErrorHandler>(Abort);
  EXPECT_EQ(handle->raiseError(0x110002, 3), Abort);
  aborting.reset();
  EXPECT_EQ(handle->raiseError(0x110003, 1), Ignore);
  EXPECT_TRUE(counting->calls() == 1 && counting->codes[0] == 0x110003 &&
              counting->allowedSets[0] == 1);
  counting.reset();
  EXPECT_EQ(handle->raiseError(0x110001, 3), Ignore);
}

// Cutting text to a byte budget keeps whole UTF-8 characters; what is not
// well-formed UTF-8 (overlong forms, surrogates, stray continuation bytes, a
// sequence cut short by the end) counts one byte at a time.
TEST(Utf8, FitPrefixNeverSplitsAWellFormedCharacter) {
  using utils::utf8::fitPrefix;
  using utils::utf8::sequenceLength;
  const std::tuple<std::string, std::size_t, std::size_t> cases[] = {
      {"abc", 2, 2},
      {"abc", 9, 3},
      {"a\xc3\xa9", 2, 1},  // e-acute: 2 bytes
      {"a\xc3\xa9", 3, 3},
      {"\xe4\xb8\xad\xe4\xb8\xad", 5, 3},  // CJK: 3 bytes
      {"\xf0\x9f\x98\x80x", 3, 0},         // emoji: 4 bytes
      {"\xf0\x9f\x98\x80x", 4, 4},
      {"\xc0\xafzz", 1, 1},     // overlong "/": two stray bytes
      {"\xed\xa0\x80z", 2, 2},  // a surrogate: three stray bytes
      {"\x80\x80\x80", 2, 2},
      {"\xe4\xb8", 1, 1},  // cut short by the end: stray bytes
      {"", 0, 0},
  };
  for (const auto& [text, budget, kept] : cases)
    EXPECT_EQ(fitPrefix(text, budget), kept) << text << " " << budget;

  EXPECT_EQ(sequenceLength("\xf4\x8f\xbf\xbf"), 4u);  // U+10FFFF
  for (const char* bad : {"\xf4\x90\x80\x80", "\xe0\x80\x80", "\xf5\x80\x80\x80", "\xff"})
    EXPECT_EQ(sequenceLength(bad), 0u) << bad;
}
