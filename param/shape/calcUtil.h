#pragma once

#include <cstddef>
#include <vector>

#include <utils/geometry.h>

#include <param/export.h>
#include <param/shape/pathConcept.h>
#include <param/shape/point2dConcept.h>
#include <param/shape/rect2dConcept.h>

namespace param {

// Geometric calculations on points, segments, rectangles and path containers.
// Stateless: every routine is static. Angles are in degrees unless a routine
// says radians.
class PARAM_API CalcUtil {
 public:
  CalcUtil() = default;
  CalcUtil(const CalcUtil&) = default;
  CalcUtil(CalcUtil&&) = default;
  CalcUtil& operator=(const CalcUtil&) = default;
  CalcUtil& operator=(CalcUtil&&) = default;
  ~CalcUtil() = default;

  static Point2d getMidPoint(const Point2d& a, const Point2d& b);
  static double distance(const Point2d& a, const Point2d& b);
  static double distance(const Point2dConcept<int>& a, const Point2dConcept<int>& b);
  static double distanceSmooth(const Point2d& a, const Point2d& b);
  // The distance from point c to the segment a-b.
  static double distancePtToSegSmooth(const Point2d& a, const Point2d& b, const Point2d& c);
  // The direction of a -> b against the x axis, in degrees.
  static double lineAngleX(const Point2d& a, const Point2d& b);
  static double lineSlope(const Point2d& a, const Point2d& b);
  // An angle of the triangle with these side lengths, in radians (the angle
  // opposite s3).
  static double calcAngleBySide(double s1, double s2, double s3);
  // The angle at b between the rays to a and c, in radians (0 to pi).
  static double radianOf3Point(const Point2d& a, const Point2d& b, const Point2d& c);
  // The circle through three points; false when they are collinear. `centre` is
  // written in every case ((0, 0) when there is no circle); `radius` only when
  // there is one.
  static bool getCircleFrom3P(const Point2d& a, const Point2d& b, const Point2d& c, Point2d& centre,
                              double& radius);
  // 0 when c lies on the line a-b (within 1e-6 of the cross product), 1 when c
  // turns clockwise from a -> b in a y-up frame, -1 when counter-clockwise.
  static signed char orientation3P(const Point2d& a, const Point2d& b, const Point2d& c);
  // The side of the directed line a -> b that c lies on.
  static utils::PointLinePosition pointAtLineLeftRight(const Point2d& a, const Point2d& b,
                                                       const Point2d& c);
  // p clamped into the width x height rectangle centred on the origin.
  static Point2d normalPnt(const Point2d& p, double width, double height);
  // Whether b lies on the segment a-c: within `tolerance` of it when tolerance
  // is above 1e-7, else collinear and inside the segment's box widened by 0.0001.
  static bool onSegment(const Point2d& a, const Point2d& b, const Point2d& c, double tolerance);
  // The crossing of the infinite lines a-b and c-d; false when parallel. `out`
  // is written in every case ((0, 0) when they are parallel).
  static bool getTwoLineIntersectPt(const Point2d& a, const Point2d& b, const Point2d& c,
                                    const Point2d& d, Point2d& out);
  // The crossing of the segments a-b and c-d. False when the lines are parallel
  // (out unchanged) or when their crossing lies outside either segment (out
  // holds the crossing of the lines).
  static bool getTwoLineSegIntersectPt(const Point2d& a, const Point2d& b, const Point2d& c,
                                       const Point2d& d, Point2d& out);
  // How the segments p1-q1 and p2-q2 meet. `points` is cleared and receives:
  //   1  proper crossing: the crossing point
  //   2  collinear overlap, p2 on p1-q1: p2, q1
  //   3  collinear overlap, q2 on p1-q1: p1, q2
  //   4  collinear overlap, p1 on p2-q2: p1, q2
  //   5  collinear overlap, q1 on p2-q2: p2, q1
  //   6  p1 within tolerance of p2-q2: p1
  //   7  q1 within tolerance of p2-q2: p1 (the first segment's first point)
  //   8  p2 within tolerance of p1-q1: p2
  //   9  q2 within tolerance of p1-q1: q2
  //   0  none of these (cases 6 to 9 are tried only when tolerance > 1e-7)
  static int getTwoLineSegIntersect(const Point2d& p1, const Point2d& q1, const Point2d& p2,
                                    const Point2d& q2, std::vector<Point2d>& points,
                                    double tolerance);
  // The point beyond b on the ray a -> b at `length` from b. False (out = b)
  // when a and b coincide within 0.0001 in both coordinates.
  static bool getExtensionCord(const Point2d& a, const Point2d& b, double length, Point2d& out);
  // Clips the segment a-b to `rect` and appends the part inside (its two ends,
  // in the direction a -> b) to `points`. Returns points.size() afterwards; a
  // count other than 0 or 2 is logged as a warning.
  static std::size_t secantLineByRect(const Point2d& a, const Point2d& b, const Rect2d& rect,
                                      std::vector<Point2d>& points);

  // Element-by-element conversions between the two families of path
  // containers. `to` is replaced. A resulting MultiPathsF2d or ShapePath gets
  // its bounding rectangle computed afresh; the single-item forms wrap `from`
  // into a one-element list (with further value 0).
  static void convertPath(const PathF2d& from, PathData& to);
  static void convertPath(const PathData& from, PathF2d& to);
  static void convertPath(const PathsF2d& from, UnitPath& to);
  static void convertPath(const UnitPath& from, PathsF2d& to);
  static void convertPath(const MultiPathsF2d& from, ShapePath& to);
  static void convertPath(const ShapePath& from, MultiPathsF2d& to);
  static void convertPath(const PathData& from, UnitPath& to);
  static void convertPath(const UnitPath& from, ShapePath& to);

  // Bounding rectangles: of one polyline, its points' extent ((0, 0, -1, -1)
  // without points); of a list, the union of its polylines' bounds skipping
  // path kinds 16 and 17; of a list of lists, the union of those.
  static Rect2d bounds(const PathF2d& path);
  static Rect2d bounds(const PathData& path);
  static Rect2d bounds(const PathsF2d& paths);
  static Rect2d bounds(const UnitPath& paths);
  static Rect2d bounds(const MultiPathsF2d& multi);
  static Rect2d bounds(const ShapePath& multi);
};

}  // namespace param
