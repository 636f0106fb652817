#pragma once

#include <vector>

#include <param/export.h>
#include <param/params/wobbleParam.h>
#include <param/shape/mPointF2d.h>
#include <param/shape/point2dConcept.h>

namespace param {

// Turns a marking polyline into a wobbled one: the beam travels along the path
// while it traces a small periodic figure around it (circle, sine across the
// path, ellipse, or a figure-eight across or along the path), 48 points per
// period. Figure, sizes and period come from the pen's WobbleParam.
//
//   WobblePathProc proc;
//   proc.setWobblePar(pen.wobble);
//   std::vector<MPointF2d> wobbled;
//   proc.doWobble(polyline, wobbled);  // appends; a closed figure repeats its first vertex last
//
// The object keeps nothing between calls apart from the parameter: every
// polyline starts at the same point of the figure.
class PARAM_API WobblePathProc {
 public:
  WobblePathProc() = default;

  // Stores a copy of the parameter; no validation.
  void setWobblePar(WobbleParam par) { par_ = par; }

  // Appends the wobbled form of `in` to `out` (which is never cleared). Nothing
  // is appended when wobble is disabled, the period is below 0.001, `in` is
  // empty, or the path length is not finite. Every generated point has flag 0.
  void doWobble(const std::vector<MPointF2d>& in, std::vector<MPointF2d>& out) const;
  void doWobble(const std::vector<Point2d>& in, std::vector<Point2d>& out) const;

 private:
  // Older segment-by-segment generators, kept in the interface. Each works in
  // the segment's own frame, rotates by the segment angle and carries a phase
  // (radians) from one segment to the next. doWobble does not use them.
  friend struct WobblePathProcProbe;  // lets the unit tests reach them

  static double calcDistance(const Point2d& a, const Point2d& b);
  // Direction of b - a in radians.
  static double calcArc(const Point2d& a, const Point2d& b);
  // `p` rotated about `c` by `arc` radians.
  static Point2d pointfRotateByArc(const Point2d& p, const Point2d& c, double arc);

  // Circle of radius wobbleDiaX, 10*pi samples per period.
  void getPointsOnCircle(const Point2d& a, const Point2d& b, std::vector<Point2d>& out,
                         double& phase) const;
  // Ellipse: wobbleDiaY along the segment, wobbleDiaX across it.
  void getPointsOnEllipse(const Point2d& a, const Point2d& b, std::vector<Point2d>& out,
                          double& phase) const;
  // Sine of amplitude wobbleDiaX sampled every 0.01 along the segment.
  void getPointsOnSin(const Point2d& a, const Point2d& b, std::vector<Point2d>& out,
                      double& phase) const;
  // Sine over a whole polyline, each segment holding a whole number of half periods.
  void genSin(const std::vector<MPointF2d>& in, std::vector<MPointF2d>& out) const;
  void genSin(const std::vector<Point2d>& in, std::vector<Point2d>& out) const;
  // Figure-eight sampled every 6 degrees; `flag` swaps the diameters and scales
  // both by 0.5 * 1.4.
  void getPointsOnEight(const Point2d& a, const Point2d& b, std::vector<Point2d>& out,
                        double& phase, bool flag) const;
  void gen8(const std::vector<MPointF2d>& in, std::vector<MPointF2d>& out, bool flag) const;
  void gen8(const std::vector<Point2d>& in, std::vector<Point2d>& out, bool flag) const;

  WobbleParam par_;
};

}  // namespace param
