#pragma once

#include <cstdint>
#include <vector>

#include <param/shape/mPointF2d.h>
#include <param/shape/point2dConcept.h>
#include <param/shape/rect2dConcept.h>

namespace param {

// Path kinds whose polylines do not count towards a bounding rectangle (their
// meaning belongs to the producer of the outlines).
inline constexpr std::uint8_t kPathKindNoBounds1 = 16;
inline constexpr std::uint8_t kPathKindNoBounds2 = 17;

constexpr bool countsForBounds(std::uint8_t pathKind) {
  return pathKind != kPathKindNoBounds1 && pathKind != kPathKindNoBounds2;
}

// One polyline: its points in drawing order and a one-byte path kind.
template <class P>
struct PathConcept : std::vector<P> {
  using point_type = P;
  using std::vector<P>::vector;

  std::uint8_t type = 0;

  friend bool operator==(const PathConcept& a, const PathConcept& b) {
    return a.type == b.type &&
           static_cast<const std::vector<P>&>(a) == static_cast<const std::vector<P>&>(b);
  }
};

// An ordered list of polylines and one further value that conversions carry
// across unchanged.
template <class Path>
struct PathsConcept : std::vector<Path> {
  using path_type = Path;
  using std::vector<Path>::vector;

  std::int64_t tag = 0;

  friend bool operator==(const PathsConcept& a, const PathsConcept& b) {
    return a.tag == b.tag &&
           static_cast<const std::vector<Path>&>(a) == static_cast<const std::vector<Path>&>(b);
  }
};

// An ordered list of polyline lists and their bounding rectangle.
template <class Paths>
struct MultiPathsConcept : std::vector<Paths> {
  using paths_type = Paths;
  using std::vector<Paths>::vector;

  Rect2d bounds = Rect2d::empty();

  friend bool operator==(const MultiPathsConcept& a, const MultiPathsConcept& b) {
    return a.bounds == b.bounds &&
           static_cast<const std::vector<Paths>&>(a) == static_cast<const std::vector<Paths>&>(b);
  }
};

using PathF2d = PathConcept<Point2d>;
using PathsF2d = PathsConcept<PathF2d>;
using MultiPathsF2d = MultiPathsConcept<PathsF2d>;

// The same three levels in the layout of the marking side, whose points carry a
// flag word (MPointF2d).

// One polyline.
struct PathData : std::vector<MPointF2d> {
  using point_type = MPointF2d;
  using std::vector<MPointF2d>::vector;

  std::uint8_t type = 0;

  friend bool operator==(const PathData& a, const PathData& b) {
    return a.type == b.type && static_cast<const std::vector<MPointF2d>&>(a) ==
                                   static_cast<const std::vector<MPointF2d>&>(b);
  }
};

// A list of polylines and one further value.
struct UnitPath : std::vector<PathData> {
  using path_type = PathData;
  using std::vector<PathData>::vector;

  std::int64_t tag = 0;

  friend bool operator==(const UnitPath& a, const UnitPath& b) {
    return a.tag == b.tag && static_cast<const std::vector<PathData>&>(a) ==
                                 static_cast<const std::vector<PathData>&>(b);
  }
};

// A list of UnitPath and their bounding rectangle.
struct ShapePath : std::vector<UnitPath> {
  using paths_type = UnitPath;
  using std::vector<UnitPath>::vector;

  Rect2d bounds = Rect2d::empty();

  friend bool operator==(const ShapePath& a, const ShapePath& b) {
    return a.bounds == b.bounds && static_cast<const std::vector<UnitPath>&>(a) ==
                                       static_cast<const std::vector<UnitPath>&>(b);
  }
};

}  // namespace param
