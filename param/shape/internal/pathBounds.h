#pragma once

#include <algorithm>
#include <limits>

#include <param/shape/pathConcept.h>
#include <param/shape/rect2dConcept.h>

namespace param::detail {

// The point bounds of one polyline; (0, 0, -1, -1) for one without points.
template <class Path>
Rect2d polylineBounds(const Path& path) {
  if (path.empty()) return Rect2d::empty();
  constexpr double kMax = std::numeric_limits<double>::max();
  double minX = kMax, minY = kMax, maxX = -kMax, maxY = -kMax;
  for (const auto& p : path) {
    minX = std::min(minX, static_cast<double>(p.x));
    minY = std::min(minY, static_cast<double>(p.y));
    maxX = std::max(maxX, static_cast<double>(p.x));
    maxY = std::max(maxY, static_cast<double>(p.y));
  }
  return Rect2d(minX, minY, maxX - minX, maxY - minY);
}

// The union of the polylines' bounds, skipping the path kinds that do not count.
template <class Paths>
Rect2d pathsBounds(const Paths& paths) {
  Rect2d result = Rect2d::empty();
  for (const auto& path : paths) {
    if (countsForBounds(path.type)) result.unite(polylineBounds(path));
  }
  return result;
}

// The union of the bounds of every list.
template <class Multi>
Rect2d multiPathsBounds(const Multi& multi) {
  Rect2d result = Rect2d::empty();
  for (const auto& paths : multi)
    result.unite(pathsBounds(paths));
  return result;
}

}  // namespace param::detail
