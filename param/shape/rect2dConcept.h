#pragma once

#include <algorithm>

#include <param/shape/point2dConcept.h>

namespace param {

// An axis-aligned rectangle: the corner with the smallest coordinates, then its
// size. A negative width or height makes the rectangle invalid (empty); the
// empty rectangle that every no-data result uses is (0, 0, -1, -1). A
// value-initialised rectangle is (0, 0, 0, 0), a valid rectangle of no extent.
template <class P>
struct Rect2dConcept {
  using point_type = P;
  using value_type = typename P::value_type;

  value_type x{};
  value_type y{};
  value_type width{};
  value_type height{};

  constexpr Rect2dConcept() = default;
  constexpr Rect2dConcept(value_type px, value_type py, value_type w, value_type h)
      : x(px), y(py), width(w), height(h) {}

  // (0, 0, -1, -1)
  static constexpr Rect2dConcept empty() { return Rect2dConcept(0, 0, -1, -1); }

  constexpr bool isValid() const { return !(width < 0) && !(height < 0); }

  // Accumulates `other` into this rectangle: an invalid rectangle is replaced by
  // `other` (whatever it is); a valid one grows to cover `other` when `other` is
  // valid and stays as it is otherwise.
  constexpr Rect2dConcept& unite(const Rect2dConcept& other) {
    if (width < 0 || height < 0) {
      *this = other;
    } else if (other.width >= 0 && other.height >= 0) {
      const value_type nx = std::min(x, other.x);
      const value_type ny = std::min(y, other.y);
      width = std::max(x + width, other.x + other.width) - nx;
      height = std::max(y + height, other.y + other.height) - ny;
      x = nx;
      y = ny;
    }
    return *this;
  }

  friend constexpr bool operator==(const Rect2dConcept&, const Rect2dConcept&) = default;
};

using Rect2d = Rect2dConcept<Point2d>;

}  // namespace param
