#include <param/shape/calcUtil.h>

#include <algorithm>
#include <cmath>

#include <utils/logger.h>

#include <param/shape/internal/pathBounds.h>

namespace param {

namespace {

constexpr double kRadToDeg = 57.29577951308232;
constexpr double kOrientationEps = 1e-6;
constexpr double kCrossEps = 1e-6;
constexpr double kSlopeEps = 1e-8;
constexpr double kCircleEps = 0.0001;
constexpr double kBoxMargin = 0.0001;
constexpr double kSamePoint = 0.0001;
constexpr double kNoTolerance = 1e-7;

// Whether p lies in the bounding box of a and c widened by 0.0001 (strict).
bool inWidenedBox(const Point2d& a, const Point2d& c, const Point2d& p) {
  const double minX = std::min(a.x, c.x);
  const double minY = std::min(a.y, c.y);
  return p.x > minX - kBoxMargin && minX + std::fabs(a.x - c.x) + kBoxMargin > p.x &&
         p.y > minY - kBoxMargin && minY + std::fabs(a.y - c.y) + kBoxMargin > p.y;
}

// Whether p and q differ by 0.0001 or more in x or in y.
bool differs(const Point2d& p, const Point2d& q) {
  return !(std::fabs(p.x - q.x) < kSamePoint && std::fabs(p.y - q.y) < kSamePoint);
}

PathF2d toPath(const PathData& from) {
  PathF2d to;
  to.reserve(from.size());
  for (const MPointF2d& p : from)
    to.emplace_back(p.x, p.y);
  to.type = from.type;
  return to;
}

PathData toPathData(const PathF2d& from) {
  PathData to;
  to.reserve(from.size());
  for (const Point2d& p : from)
    to.emplace_back(p.x, p.y, 0);
  to.type = from.type;
  return to;
}

UnitPath toUnitPath(const PathsF2d& from) {
  UnitPath to;
  to.reserve(from.size());
  for (const PathF2d& path : from)
    to.push_back(toPathData(path));
  to.tag = from.tag;
  return to;
}

PathsF2d toPaths(const UnitPath& from) {
  PathsF2d to;
  to.reserve(from.size());
  for (const PathData& path : from)
    to.push_back(toPath(path));
  to.tag = from.tag;
  return to;
}

}  // namespace

Point2d CalcUtil::getMidPoint(const Point2d& a, const Point2d& b) {
  return Point2d((a.x + b.x) * 0.5, (a.y + b.y) * 0.5);
}

double CalcUtil::distance(const Point2d& a, const Point2d& b) {
  return utils::_impl::distance(a.x - b.x, a.y - b.y);
}

double CalcUtil::distance(const Point2dConcept<int>& a, const Point2dConcept<int>& b) {
  return utils::_impl::distance(static_cast<double>(a.x) - static_cast<double>(b.x),
                                static_cast<double>(a.y) - static_cast<double>(b.y));
}

double CalcUtil::distanceSmooth(const Point2d& a, const Point2d& b) {
  return utils::_impl::distanceSmooth(a.x, a.y, b.x, b.y);
}

double CalcUtil::distancePtToSegSmooth(const Point2d& a, const Point2d& b, const Point2d& c) {
  return utils::_impl::distancePtToSegSmooth(a.x, a.y, b.x, b.y, c.x, c.y);
}

double CalcUtil::lineAngleX(const Point2d& a, const Point2d& b) {
  return utils::_impl::radianOfVector(b.x - a.x, b.y - a.y) * kRadToDeg;
}

double CalcUtil::lineSlope(const Point2d& a, const Point2d& b) {
  return utils::_impl::slopeByTwoPoints(a.x, a.y, b.x, b.y, kSlopeEps);
}

double CalcUtil::calcAngleBySide(double s1, double s2, double s3) {
  return utils::_impl::calcAngleBySides(s1, s2, s3);
}

double CalcUtil::radianOf3Point(const Point2d& a, const Point2d& b, const Point2d& c) {
  return utils::_impl::radianOf3Point(a.x, a.y, b.x, b.y, c.x, c.y);
}

bool CalcUtil::getCircleFrom3P(const Point2d& a, const Point2d& b, const Point2d& c,
                               Point2d& centre, double& radius) {
  double cx = 0.0, cy = 0.0;
  const bool found =
      utils::_impl::circleFrom3Points(a.x, a.y, b.x, b.y, c.x, c.y, cx, cy, radius, kCircleEps);
  centre = Point2d(cx, cy);
  return found;
}

signed char CalcUtil::orientation3P(const Point2d& a, const Point2d& b, const Point2d& c) {
  // The negated cross product (b - a) x (c - a), term by term.
  const double v = a.x * c.y - a.x * b.y - b.x * c.y - a.y * c.x + b.y * c.x + a.y * b.x;
  if (-kOrientationEps < v && v < kOrientationEps) return 0;
  return v > 0 ? 1 : -1;
}

utils::PointLinePosition CalcUtil::pointAtLineLeftRight(const Point2d& a, const Point2d& b,
                                                        const Point2d& c) {
  return utils::_impl::pointLinePosition(a.x, a.y, b.x, b.y, c.x, c.y, kOrientationEps);
}

Point2d CalcUtil::normalPnt(const Point2d& p, double width, double height) {
  return Point2d(std::min(width * 0.5, std::max(-width * 0.5, p.x)),
                 std::min(height * 0.5, std::max(-height * 0.5, p.y)));
}

bool CalcUtil::onSegment(const Point2d& a, const Point2d& b, const Point2d& c, double tolerance) {
  if (tolerance > kNoTolerance) {
    return utils::_impl::distancePtToSegSmooth(a.x, a.y, c.x, c.y, b.x, b.y) < tolerance;
  }
  if (orientation3P(a, c, b) != 0) return false;
  return inWidenedBox(a, c, b);
}

bool CalcUtil::getTwoLineIntersectPt(const Point2d& a, const Point2d& b, const Point2d& c,
                                     const Point2d& d, Point2d& out) {
  double x = 0.0, y = 0.0;
  const bool found =
      utils::_impl::lineCrossPoint(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y, x, y, kCrossEps);
  out = Point2d(x, y);
  return found;
}

bool CalcUtil::getTwoLineSegIntersectPt(const Point2d& a, const Point2d& b, const Point2d& c,
                                        const Point2d& d, Point2d& out) {
  double x = 0.0, y = 0.0;
  if (!utils::_impl::lineCrossPoint(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y, x, y, kCrossEps)) {
    return false;
  }
  out = Point2d(x, y);
  return inWidenedBox(a, b, out) && inWidenedBox(c, d, out);
}

int CalcUtil::getTwoLineSegIntersect(const Point2d& p1, const Point2d& q1, const Point2d& p2,
                                     const Point2d& q2, std::vector<Point2d>& points,
                                     double tolerance) {
  points.clear();
  const signed char o1 = orientation3P(p1, q1, p2);
  const signed char o2 = orientation3P(p1, q1, q2);
  const signed char o3 = orientation3P(p2, q2, p1);
  const signed char o4 = orientation3P(p2, q2, q1);

  if (o1 != o2 && o3 != o4) {
    Point2d crossing;
    if (!getTwoLineSegIntersectPt(p1, q1, p2, q2, crossing)) return 0;
    points.push_back(crossing);
    return 1;
  }
  if (o1 == 0 && onSegment(p1, p2, q1, 0.0)) {
    points.assign({p2, q1});
    return 2;
  }
  if (o2 == 0 && onSegment(p1, q2, q1, 0.0)) {
    points.assign({p1, q2});
    return 3;
  }
  if (o3 == 0 && onSegment(p2, p1, q2, 0.0)) {
    points.assign({p1, q2});
    return 4;
  }
  if (o4 == 0 && onSegment(p2, q1, q2, 0.0)) {
    points.assign({p2, q1});
    return 5;
  }
  if (tolerance <= kNoTolerance) return 0;
  if (onSegment(p2, p1, q2, tolerance)) {
    points.push_back(p1);
    return 6;
  }
  if (onSegment(p2, q1, q2, tolerance)) {
    points.push_back(p1);  // the first segment's first point, as in case 6
    return 7;
  }
  if (onSegment(p1, p2, q1, tolerance)) {
    points.push_back(p2);
    return 8;
  }
  if (onSegment(p1, q2, q1, tolerance)) {
    points.push_back(q2);
    return 9;
  }
  return 0;
}

bool CalcUtil::getExtensionCord(const Point2d& a, const Point2d& b, double length, Point2d& out) {
  if (std::fabs(a.x - b.x) < kSamePoint && std::fabs(a.y - b.y) < kSamePoint) {
    out = b;
    return false;
  }
  const double d = utils::_impl::distance(a.x - b.x, a.y - b.y);
  out.x = b.x + (b.x - a.x) * length / d;
  out.y = b.y + (b.y - a.y) * length / d;
  return true;
}

std::size_t CalcUtil::secantLineByRect(const Point2d& a, const Point2d& b, const Rect2d& rect,
                                       std::vector<Point2d>& points) {
  const double left = rect.x, right = rect.x + rect.width;
  const double bottom = rect.y, top = rect.y + rect.height;
  auto inside = [&](const Point2d& p) {
    return left - kBoxMargin < p.x && p.x < right + kBoxMargin && bottom - kBoxMargin < p.y &&
           p.y < top + kBoxMargin;
  };
  // Left, top, right, bottom, each from its start to its end.
  const Point2d edges[4][2] = {
      {{left, top}, {left, bottom}},
      {{right, top}, {left, top}},
      {{right, bottom}, {right, top}},
      {{right, bottom}, {left, bottom}},
  };
  // The crossing with the first edge in order that differs from `p`.
  auto firstCrossingOtherThan = [&](const Point2d& p, Point2d& out) {
    for (const auto& edge : edges) {
      Point2d crossing;
      if (getTwoLineSegIntersectPt(a, b, edge[0], edge[1], crossing) && differs(crossing, p)) {
        out = crossing;
        return true;
      }
    }
    return false;
  };

  const bool aInside = inside(a);
  const bool bInside = inside(b);
  std::vector<Point2d> found;
  found.reserve(4);
  Point2d crossing;
  if (aInside && bInside) {
    found = {a, b};
  } else if (aInside) {
    found.push_back(a);
    if (firstCrossingOtherThan(a, crossing)) found.push_back(crossing);
  } else if (bInside) {
    if (firstCrossingOtherThan(b, crossing)) found.push_back(crossing);
    found.push_back(b);
  } else {
    for (const auto& edge : edges) {
      if (getTwoLineSegIntersectPt(a, b, edge[0], edge[1], crossing)) found.push_back(crossing);
    }
    if (found.size() >= 3) {
      // A line through a corner is reported by both edges that meet there.
      std::vector<Point2d> kept{found.front()};
      for (std::size_t i = 1; i < found.size() && kept.size() < 2; ++i) {
        if (differs(found[i], kept.front())) kept.push_back(found[i]);
      }
      found = std::move(kept);
    }
    if (found.size() == 2) {
      const Point2d& first = found[0];
      const Point2d& second = found[1];
      if ((second.x - first.x) * (b.x - a.x) < 0 || (second.y - first.y) * (b.y - a.y) < 0) {
        std::swap(found[0], found[1]);
      }
    }
  }

  points.insert(points.end(), found.begin(), found.end());
  const std::size_t count = points.size();
  if (count != 0 && count != 2) {
    utils::Logger(utils::LogLevel::Warning, "Param")
        << "the valid points size is error : " << count;
  }
  return count;
}

void CalcUtil::convertPath(const PathF2d& from, PathData& to) {
  to = toPathData(from);
}

void CalcUtil::convertPath(const PathData& from, PathF2d& to) {
  to = toPath(from);
}

void CalcUtil::convertPath(const PathsF2d& from, UnitPath& to) {
  to = toUnitPath(from);
}

void CalcUtil::convertPath(const UnitPath& from, PathsF2d& to) {
  to = toPaths(from);
}

void CalcUtil::convertPath(const MultiPathsF2d& from, ShapePath& to) {
  ShapePath result;
  result.reserve(from.size());
  for (const PathsF2d& paths : from)
    result.push_back(toUnitPath(paths));
  result.bounds = detail::multiPathsBounds(result);
  to = std::move(result);
}

void CalcUtil::convertPath(const ShapePath& from, MultiPathsF2d& to) {
  MultiPathsF2d result;
  result.reserve(from.size());
  for (const UnitPath& paths : from)
    result.push_back(toPaths(paths));
  result.bounds = detail::multiPathsBounds(result);
  to = std::move(result);
}

void CalcUtil::convertPath(const PathData& from, UnitPath& to) {
  UnitPath result;
  result.push_back(from);
  to = std::move(result);
}

void CalcUtil::convertPath(const UnitPath& from, ShapePath& to) {
  ShapePath result;
  result.push_back(from);
  result.bounds = detail::multiPathsBounds(result);
  to = std::move(result);
}

Rect2d CalcUtil::bounds(const PathF2d& path) {
  return detail::polylineBounds(path);
}
Rect2d CalcUtil::bounds(const PathData& path) {
  return detail::polylineBounds(path);
}
Rect2d CalcUtil::bounds(const PathsF2d& paths) {
  return detail::pathsBounds(paths);
}
Rect2d CalcUtil::bounds(const UnitPath& paths) {
  return detail::pathsBounds(paths);
}
Rect2d CalcUtil::bounds(const MultiPathsF2d& multi) {
  return detail::multiPathsBounds(multi);
}
Rect2d CalcUtil::bounds(const ShapePath& multi) {
  return detail::multiPathsBounds(multi);
}

}  // namespace param
