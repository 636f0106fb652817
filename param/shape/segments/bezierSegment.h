#pragma once

#include <cstddef>
#include <cstdint>

#include <param/export.h>
#include <param/shape/matrix2d.h>
#include <param/shape/point2dConcept.h>
#include <param/shape/segments/segmentBase.h>

namespace param {

// The highest degree of a Bezier segment (a cubic curve).
inline constexpr std::size_t g_maxDegree = 3;

// A Bezier segment of degree 1 (a line), 2 (quadratic) or 3 (cubic); degree 0
// marks an empty segment. Only points 0 to degree are meaningful.
//
// In JSON: "type" 3, "degree", and "points" as an array of degree + 1 entries,
// each an array [x, y].
//
// Point access on a segment of degree 0 or above 3, or past the degree, is a
// programming error: the program stops with an assertion message.
struct PARAM_API BezierSegment : SegmentBase {
  std::uint64_t degree = 0;
  Point2d points[g_maxDegree + 1];

  BezierSegment() : SegmentBase(SegmentType::Bezier) {}
  BezierSegment(std::size_t deg, const Point2d& p0, const Point2d& p1, const Point2d& p2,
                const Point2d& p3);
  BezierSegment(const BezierSegment&) = default;
  BezierSegment(BezierSegment&&) = default;
  BezierSegment& operator=(const BezierSegment&) = default;
  BezierSegment& operator=(BezierSegment&&) = default;
  ~BezierSegment() override;

  // Replaces the degree while the current degree is at most 3; a segment whose
  // degree is already beyond 3 keeps it. The new value is not checked.
  void setDegree(std::size_t deg);
  // degree + 1
  std::size_t size() const { return static_cast<std::size_t>(degree) + 1; }
  Point2d* data() { return points; }
  const Point2d* data() const { return points; }

  Point2d& operator[](std::size_t index);
  Point2d operator[](std::size_t index) const;
  Point2d& firstPoint();
  Point2d firstPoint() const;
  Point2d& lastPoint();
  Point2d lastPoint() const;

  // Reverses the order of points 0 to degree (degrees 1 to 3; others unchanged).
  void reverse();
  // Maps points 0 to degree by m; the points beyond the degree stay as they are.
  BezierSegment& postTransform(Matrix2d m);
  BezierSegment postTransform(Matrix2d m) const;

  // Reads "degree" and "points". Without a readable "degree" the degree is the
  // number of points - 1. A degree of 0 or above 3, or a "points" array whose
  // length is not degree + 1, returns errc::badFormat (logged) and changes
  // nothing, so every accessor works on a loaded segment. When "points" cannot
  // be fetched and the error-response step goes on, nothing changes; for an
  // empty segment (a new one) that is errc::badFormat as well.
  // Each entry's first two numbers are x and y; unreadable entries and
  // coordinates go through the error-response step and keep their values.
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  // Writes "type", "degree", "points". A degree of 0 or above 3, which loading
  // would refuse, returns errc::badFormat after "type".
  [[nodiscard]] SdkError save(SeriObject& obj) const override;

  // Compares the kind, the degree and the meaningful points only.
  bool operator==(const BezierSegment& other) const;
};

}  // namespace param
