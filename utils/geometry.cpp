#include <utils/geometry.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace utils::_impl {

double distance(double dx, double dy) {
  return std::sqrt(dx * dx + dy * dy);
}

double distanceSmooth(double x1, double y1, double x2, double y2) {
  return std::hypot(x2 - x1, y2 - y1);
}

double distancePtToSegSmooth(double x1, double y1, double x2, double y2, double px, double py) {
  const double dx = x2 - x1;
  const double dy = y2 - y1;
  const double len2 = dx * dx + dy * dy;
  if (len2 == 0.0) return std::hypot(px - x1, py - y1);
  const double t = std::clamp(((px - x1) * dx + (py - y1) * dy) / len2, 0.0, 1.0);
  return std::hypot(px - (x1 + t * dx), py - (y1 + t * dy));
}

double radianOfVector(double x, double y) {
  return std::atan2(y, x);
}

double radianOf3Point(double x1, double y1, double x2, double y2, double x3, double y3) {
  const double ax = x1 - x2, ay = y1 - y2;
  const double bx = x3 - x2, by = y3 - y2;
  if ((ax == 0.0 && ay == 0.0) || (bx == 0.0 && by == 0.0)) return 0.0;
  // atan2 of |cross| and dot is accurate near 0 and pi, where acos is not.
  return std::atan2(std::fabs(ax * by - ay * bx), ax * bx + ay * by);
}

double slopeByTwoPoints(double x1, double y1, double x2, double y2, double eps) {
  if (std::fabs(x2 - x1) < eps) {
    return y2 >= y1 ? std::numeric_limits<double>::infinity()
                    : -std::numeric_limits<double>::infinity();
  }
  return (y2 - y1) / (x2 - x1);
}

double calcAngleBySides(double s1, double s2, double s3) {
  if (s1 == 0.0 || s2 == 0.0) return 0.0;
  const double c = (s1 * s1 + s2 * s2 - s3 * s3) / (2.0 * s1 * s2);
  return std::acos(std::clamp(c, -1.0, 1.0));
}

bool circleFrom3Points(double x1, double y1, double x2, double y2, double x3, double y3, double& cx,
                       double& cy, double& r, double eps) {
  const double d = 2.0 * (x1 * (y2 - y3) + x2 * (y3 - y1) + x3 * (y1 - y2));
  if (std::fabs(d) < eps) return false;
  const double s1 = x1 * x1 + y1 * y1;
  const double s2 = x2 * x2 + y2 * y2;
  const double s3 = x3 * x3 + y3 * y3;
  cx = (s1 * (y2 - y3) + s2 * (y3 - y1) + s3 * (y1 - y2)) / d;
  cy = (s1 * (x3 - x2) + s2 * (x1 - x3) + s3 * (x2 - x1)) / d;
  r = std::hypot(x1 - cx, y1 - cy);
  return true;
}

bool lineCrossPoint(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                    double y4, double& x, double& y, double eps) {
  const double denom = (x1 - x2) * (y3 - y4) - (y1 - y2) * (x3 - x4);
  if (std::fabs(denom) < eps) return false;
  const double a = x1 * y2 - y1 * x2;
  const double b = x3 * y4 - y3 * x4;
  x = (a * (x3 - x4) - (x1 - x2) * b) / denom;
  y = (a * (y3 - y4) - (y1 - y2) * b) / denom;
  return true;
}

PointLinePosition pointLinePosition(double x1, double y1, double x2, double y2, double px,
                                    double py, double eps) {
  const double dx = x2 - x1, dy = y2 - y1;
  const double cross = dx * (py - y1) - dy * (px - x1);
  const double len = std::hypot(dx, dy);
  const double dist = len == 0.0 ? std::hypot(px - x1, py - y1) : std::fabs(cross) / len;
  if (dist < eps) return PointLinePosition::OnLine;
  return cross > 0 ? PointLinePosition::Left : PointLinePosition::Right;
}

}  // namespace utils::_impl
