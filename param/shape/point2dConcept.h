#pragma once

namespace param {

// A point of two coordinates. The library uses Point2dConcept<double>; points
// inside records are stored in JSON as objects with the keys "x" and "y".
template <class T>
struct Point2dConcept {
  using value_type = T;

  T x{};
  T y{};

  constexpr Point2dConcept() = default;
  constexpr Point2dConcept(T px, T py) : x(px), y(py) {}

  friend constexpr bool operator==(const Point2dConcept&, const Point2dConcept&) = default;
};

using Point2d = Point2dConcept<double>;

}  // namespace param
