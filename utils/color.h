#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <utils/export.h>

namespace utils {

// A display colour, held as 8-bit RGBA. It is built from one of seven colour
// models and up to four 8-bit components in that model's order.
class UTILS_API Color {
 public:
  enum Model : std::uint8_t {
    Grey = 1,  // grey
    RGB = 2,   // red, green, blue
    RGBA = 3,  // red, green, blue, alpha
    HSV = 4,   // hue (0-255 for 0-360 degrees), saturation, value
    HSVA = 5,  // hue, saturation, value, alpha
    CMYK = 6,  // cyan, magenta, yellow, key
    ARGB = 7,  // alpha, red, green, blue
  };

  // Number of components a model takes (0 for an unknown model).
  static std::size_t componentCount(std::uint8_t model);

  constexpr Color() = default;  // transparent
  // Red, green, blue and alpha, each 0-255 (values outside are clamped).
  // Color(255, 0, 0) is opaque red.
  constexpr Color(int r, int g, int b, int a = 255) : rgba_{byte(r), byte(g), byte(b), byte(a)} {}
  // Components missing from `count` read as 0, a missing alpha as 255. An unknown
  // model gives a transparent colour.
  Color(std::uint8_t model, const std::uint8_t* components, std::size_t count);

  static const Color Transparent;

  // Red, green, blue and alpha.
  constexpr std::array<std::uint8_t, 4> rgbaValue() const { return rgba_; }

  friend bool operator==(const Color&, const Color&) = default;

 private:
  static constexpr std::uint8_t byte(int v) {
    return static_cast<std::uint8_t>(v < 0 ? 0 : v > 255 ? 255 : v);
  }

  std::array<std::uint8_t, 4> rgba_{};
};

}  // namespace utils
