#pragma once

#include <utils/export.h>

namespace utils {

// Which side of the directed line p1 -> p2 a point lies on, in a y-up frame.
enum class PointLinePosition : int {
  OnLine = 0,
  Left = 1,   // counter-clockwise from the line's direction
  Right = 2,  // clockwise
};

// Plain-coordinate geometry routines that the geometry and wobble code build on.
// Angles are radians.
namespace _impl {

// sqrt(dx*dx + dy*dy)
UTILS_API double distance(double dx, double dy);
// Distance between (x1, y1) and (x2, y2), without overflow for large coordinates.
UTILS_API double distanceSmooth(double x1, double y1, double x2, double y2);
// Shortest distance from (px, py) to the segment (x1, y1)-(x2, y2).
UTILS_API double distancePtToSegSmooth(double x1, double y1, double x2, double y2, double px,
                                       double py);
// Direction of the vector (x, y): atan2(y, x), in (-pi, pi].
UTILS_API double radianOfVector(double x, double y);
// Angle at (x2, y2) between the rays to (x1, y1) and (x3, y3), 0 to pi. 0 when a
// ray has zero length.
UTILS_API double radianOf3Point(double x1, double y1, double x2, double y2, double x3, double y3);
// Slope dy/dx of the line; a vertical line (|x2 - x1| < eps) gives +infinity, or
// -infinity when y falls.
UTILS_API double slopeByTwoPoints(double x1, double y1, double x2, double y2, double eps);
// The angle opposite side s3 in a triangle with sides s1, s2, s3 (law of cosines);
// the cosine is clamped to [-1, 1], and a zero side gives 0.
UTILS_API double calcAngleBySides(double s1, double s2, double s3);
// Centre and radius of the circle through three points; false (outputs untouched)
// when they are collinear within eps.
UTILS_API bool circleFrom3Points(double x1, double y1, double x2, double y2, double x3, double y3,
                                 double& cx, double& cy, double& r, double eps);
// Crossing of the infinite lines (x1,y1)-(x2,y2) and (x3,y3)-(x4,y4); false
// (outputs untouched) when they are parallel within eps.
UTILS_API bool lineCrossPoint(double x1, double y1, double x2, double y2, double x3, double y3,
                              double x4, double y4, double& x, double& y, double eps);
// Side of (px, py) against the directed line (x1, y1) -> (x2, y2); OnLine when its
// distance from the line is below eps.
UTILS_API PointLinePosition pointLinePosition(double x1, double y1, double x2, double y2, double px,
                                              double py, double eps);

}  // namespace _impl
}  // namespace utils
