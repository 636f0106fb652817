#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <utils/color.h>
#include <utils/errorHandle.h>
#include <utils/logger.h>
#include <utils/timeDate.h>
#include <utils/version.h>

using utils::Color;
using Rgba = std::array<std::uint8_t, 4>;

TEST(Color, EveryModelAgainstHandComputedValues) {
  const struct {
    std::uint8_t model;
    std::vector<std::uint8_t> in;
    Rgba rgba;
  } cases[] = {
      {Color::Grey, {77}, {77, 77, 77, 255}},
      {Color::RGB, {1, 2, 3, 4}, {1, 2, 3, 255}},  // a fourth component is ignored
      {Color::RGB, {9}, {9, 0, 0, 255}},           // missing components are 0
      {Color::RGBA, {1, 2, 3, 4}, {1, 2, 3, 4}},
      {Color::RGBA, {1, 2, 3}, {1, 2, 3, 255}},  // missing alpha is opaque
      {Color::ARGB, {4, 1, 2, 3}, {1, 2, 3, 4}},
      {Color::ARGB, {}, {0, 0, 0, 255}},
      // Hue 0-255 covers 0-360 degrees: 85 is green, 170 blue, 255 red again.
      {Color::HSV, {0, 255, 255}, {255, 0, 0, 255}},
      {Color::HSV, {85, 255, 255}, {0, 255, 0, 255}},
      {Color::HSV, {255, 255, 255}, {255, 0, 0, 255}},
      {Color::HSV, {43, 255, 255}, {252, 255, 0, 255}},   // 60.7 deg: 255 * (1 - 3/255)
      {Color::HSV, {0, 128, 200}, {200, 100, 100, 255}},  // 200 - 200 * 128/255 = 99.6
      {Color::HSVA, {170, 255, 255, 9}, {0, 0, 255, 9}},
      {Color::HSVA, {123, 0, 128}, {128, 128, 128, 255}},  // no saturation: grey
      {Color::CMYK, {0, 0, 0, 0}, {255, 255, 255, 255}},
      {Color::CMYK, {0, 0, 0, 255}, {0, 0, 0, 255}},
      {Color::CMYK, {100, 0, 255, 50}, {125, 205, 0, 255}},  // 155 * 205 / 255 = 124.6
      {0, {1, 2, 3, 4}, {0, 0, 0, 0}},
      {8, {1, 2, 3, 4}, {0, 0, 0, 0}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Color(c.model, c.in.data(), c.in.size()).rgbaValue(), c.rgba) << int(c.model);
  }
  EXPECT_EQ(Color(Color::RGB, nullptr, 3).rgbaValue(), (Rgba{0, 0, 0, 255}));
  EXPECT_EQ(Color::Transparent.rgbaValue(), (Rgba{0, 0, 0, 0}));
  const std::size_t counts[] = {0, 1, 3, 4, 3, 4, 4, 4, 0};
  for (std::uint8_t model = 0; model < 9; ++model) {
    EXPECT_EQ(Color::componentCount(model), counts[model]);
  }
}

TEST(TimeDate, ValidatesAndRoundTripsIsoText) {
  utils::TimeDate t;
  EXPECT_TRUE(t.setTime(8, 0, 0));
  EXPECT_EQ(t.toISOString(), "1970-01-01T08:00:00");
  EXPECT_TRUE(t.setDate(2000, 2, 29));
  EXPECT_TRUE(t.setDate(9999, 12, 31));
  const int badDates[][3] = {{2023, 2, 29}, {1900, 2, 29}, {2024, 4, 31}, {2024, 13, 1},
                             {2024, 1, 0},  {0, 1, 1},     {10000, 1, 1}};
  for (const auto& [y, m, d] : badDates)
    EXPECT_FALSE(t.setDate(y, m, d)) << y << m << d;
  EXPECT_FALSE(t.setTime(24, 0, 0));
  EXPECT_FALSE(t.setTime(0, 0, 60));
  EXPECT_EQ(t.toISOString(), "9999-12-31T08:00:00");  // failed setters change nothing

  utils::TimeDate read;
  EXPECT_TRUE(read.fromISOString("0042-03-07T23:59:01"));
  EXPECT_EQ(read.toISOString(), "0042-03-07T23:59:01");
  EXPECT_TRUE(read.fromISOString(t.toISOString()));
  EXPECT_EQ(read, t);
  for (const char* bad : {"", "2023-02-29T00:00:00", "2024-02-01 00:00:00", "2024-2-01T00:00:00",
                          "2024-02-01T00:00:00Z", "2024-02-01T24:00:00", "+024-02-01T00:00:00",
                          "2024-02-01T0a:00:00", "0000-01-01T00:00:00"}) {
    EXPECT_FALSE(read.fromISOString(bad)) << bad;
    EXPECT_EQ(read, t) << bad;
  }
}

TEST(Platform, VersionLoggerAndErrorHandler) {
  utils::Version v(1, 2, 3, 4);
  EXPECT_EQ(v.toString(), "1.2.3.4");
  EXPECT_TRUE(v.fromString("2.5"));
  EXPECT_EQ(v, utils::Version(2, 5, 0, 0));
  for (const char* bad : {"", "1.", ".1", "1..2", "1.2.3.4.5", "a", "4294967296"}) {
    EXPECT_FALSE(v.fromString(bad)) << bad;
    EXPECT_FALSE(v.isValid()) << bad;
  }
  EXPECT_TRUE(utils::Version::g_sdkBuildVersion.isValid());

  std::vector<std::string> lines;
  auto previous = utils::Logger::setSink(
      [&](utils::LogLevel level, std::string_view tag, std::string_view line) {
        lines.push_back(std::to_string(int(level)) + std::string(tag) + ":" + std::string(line));
      });
  utils::Logger(utils::LogLevel::Error, "Param").write("code ").write(utils::SdkError(0x230004));
  utils::Logger(utils::LogLevel::Verbose, "X") << "n=" << 42 << ' ' << true;
  utils::Logger::setSink(std::move(previous));
  EXPECT_EQ(lines, (std::vector<std::string>{"3Param:code 0x230004", "0X:n=42 true"}));

  auto* handle = utils::ErrorHandle::instance();
  EXPECT_EQ(handle->raiseError(0x110001, 3), utils::ErrorResponseType::Ignore);
  std::vector<unsigned> calls;
  {
    utils::ScopedErrorHandler counting([&](utils::SdkError code, unsigned allowed) {
      calls.push_back(code + allowed);
      return utils::ErrorResponseType::Ignore;
    });
    {
      utils::ScopedErrorHandler abort(utils::ErrorResponseType::Abort);
      EXPECT_EQ(handle->raiseError(0x110002, 3), utils::ErrorResponseType::Abort);
    }
    EXPECT_EQ(handle->raiseError(0x110003, 1), utils::ErrorResponseType::Ignore);
  }
  EXPECT_EQ(calls, std::vector<unsigned>{0x110004});
  EXPECT_EQ(handle->raiseError(0x110001, 3), utils::ErrorResponseType::Ignore);  // restored
}
