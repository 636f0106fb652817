#pragma once

#include <cstddef>
#include <vector>

#include <param/export.h>
#include <param/shape/matrix2d.h>
#include <param/shape/segments/bezierSegment.h>

namespace param {

// One continuous curve: Bezier segments in drawing order. A standard vector of
// segments with the operations a curve needs; it has no length or sampling
// operation (callers compute those from the segments' points).
struct PARAM_API BezierPath : std::vector<BezierSegment> {
  using std::vector<BezierSegment>::vector;

  // Reverses the drawing direction: every segment reverses its own points,
  // then the order of the segments is reversed.
  void reverse();
  // Sets the degree of every segment whose degree is at most 3.
  void setDegree(std::size_t degree);
  // Maps every segment's points by m.
  BezierPath& postTransform(Matrix2d m);
  BezierPath postTransform(Matrix2d m) const;
};

// An ordered set of curves.
struct PARAM_API BezierPaths : std::vector<BezierPath> {
  using std::vector<BezierPath>::vector;

  // Reverses every curve, then the order of the curves.
  void reverse();
  void setDegree(std::size_t degree);
  BezierPaths& postTransform(Matrix2d m);
  BezierPaths postTransform(Matrix2d m) const;
};

}  // namespace param
