#include <utils/color.h>

#include <algorithm>
#include <cmath>

namespace utils {

namespace {

std::uint8_t toByte(double unit) {
  return static_cast<std::uint8_t>(std::lround(std::fmin(std::fmax(unit, 0.0), 1.0) * 255.0));
}

// Hue 0-255 stands for 0-360 degrees (255 is 360, red again).
std::array<std::uint8_t, 3> hsvToRgb(std::uint8_t h, std::uint8_t s, std::uint8_t v) {
  const double value = v / 255.0;
  const double chroma = value * (s / 255.0);
  const double sector = h * 6.0 / 255.0;  // 0 to 6, one per 60 degrees
  const double x = chroma * (1.0 - std::fabs(std::fmod(sector, 2.0) - 1.0));
  const double m = value - chroma;
  double r = 0, g = 0, b = 0;
  switch (static_cast<int>(sector) % 6) {
    case 0:
      r = chroma, g = x;
      break;
    case 1:
      r = x, g = chroma;
      break;
    case 2:
      g = chroma, b = x;
      break;
    case 3:
      g = x, b = chroma;
      break;
    case 4:
      r = x, b = chroma;
      break;
    default:
      r = chroma, b = x;
      break;
  }
  return {toByte(r + m), toByte(g + m), toByte(b + m)};
}

// 255 * (1 - c/255) * (1 - k/255), rounded; 255 is odd, so no value falls on a half.
std::uint8_t cmykChannel(std::uint8_t c, std::uint8_t k) {
  return static_cast<std::uint8_t>(((255u - c) * (255u - k) + 127u) / 255u);
}

}  // namespace

const Color Color::Transparent{0, 0, 0, 0};

std::size_t Color::componentCount(std::uint8_t model) {
  switch (model) {
    case Grey:
      return 1;
    case RGB:
    case HSV:
      return 3;
    case RGBA:
    case HSVA:
    case CMYK:
    case ARGB:
      return 4;
    default:
      return 0;
  }
}

Color::Color(std::uint8_t model, const std::uint8_t* components, std::size_t count) {
  const std::size_t taken = components == nullptr ? 0 : std::min(count, componentCount(model));
  // Components past `taken` read as 0; an alpha past it as opaque.
  std::uint8_t c[4] = {0, 0, 0, 0};
  for (std::size_t i = 0; i < taken; ++i)
    c[i] = components[i];
  const auto alphaAt = [&](std::size_t i) -> std::uint8_t { return i < taken ? c[i] : 255; };

  switch (model) {
    case Grey:
      rgba_ = {c[0], c[0], c[0], 255};
      break;
    case RGB:
      rgba_ = {c[0], c[1], c[2], 255};
      break;
    case RGBA:
      rgba_ = {c[0], c[1], c[2], alphaAt(3)};
      break;
    case HSV:
    case HSVA: {
      const auto rgb = hsvToRgb(c[0], c[1], c[2]);
      rgba_ = {rgb[0], rgb[1], rgb[2], model == HSVA ? alphaAt(3) : std::uint8_t(255)};
      break;
    }
    case CMYK:
      rgba_ = {cmykChannel(c[0], c[3]), cmykChannel(c[1], c[3]), cmykChannel(c[2], c[3]), 255};
      break;
    case ARGB:
      rgba_ = {c[1], c[2], c[3], alphaAt(0)};
      break;
    default:
      rgba_ = Transparent.rgba_;
      break;
  }
}

}  // namespace utils
