#pragma once

#include <cstdint>
#include <vector>

#include <param/export.h>
#include <param/shape/point2dConcept.h>
#include <param/shape/segments/segmentBase.h>

namespace param {

// A NURBS curve: degree, control points and knot vector. In JSON: "type" 4,
// "degree", "controlPoints" as an array of {"x", "y"} objects, "knots" as an
// array of numbers. Whether the knot vector fits (control points + degree + 1
// entries) is left to whoever evaluates the curve.
struct PARAM_API NURBSSegment : SegmentBase {
  std::uint64_t degree = 0;
  std::vector<Point2d> controlPoints;
  // Not stored; set back to true whenever a list of control points is loaded.
  bool flag = true;
  std::vector<double> knots;

  NURBSSegment() : SegmentBase(SegmentType::NURBS) {}
  NURBSSegment(const NURBSSegment&) = default;
  NURBSSegment(NURBSSegment&&) = default;
  NURBSSegment& operator=(const NURBSSegment&) = default;
  NURBSSegment& operator=(NURBSSegment&&) = default;
  ~NURBSSegment() override;

  // Reads "degree", then "controlPoints" and "knots", each list all or nothing.
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  // Writes "type", "degree", "controlPoints", "knots".
  [[nodiscard]] SdkError save(SeriObject& obj) const override;

  bool operator==(const NURBSSegment& o) const {
    return type == o.type && degree == o.degree && controlPoints == o.controlPoints &&
           flag == o.flag && knots == o.knots;
  }
};

}  // namespace param
