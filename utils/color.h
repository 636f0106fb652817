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
  constexpr Color(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a = 255)
      : rgba_{r, g, b, a} {}
  // Components missing from `count` read as 0, a missing alpha as 255. An unknown
  // model gives a transparent colour.
  Color(std::uint8_t model, const std::uint8_t* components, std::size_t count);

  static const Color Transparent;

  // Red, green, blue and alpha.
  std::array<std::uint8_t, 4> rgbaValue() const { return rgba_; }

  friend bool operator==(const Color&, const Color&) = default;

 private:
  std::array<std::uint8_t, 4> rgba_{};
};

}  // namespace utils
