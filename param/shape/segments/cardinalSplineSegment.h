#pragma once

#include <vector>

#include <param/export.h>
#include <param/shape/point2dConcept.h>
#include <param/shape/segments/segmentBase.h>

namespace param {

// A cardinal spline through its knots. In JSON: "type" 5, "tension", and
// "knots" as an array of {"x", "y"} objects. How the tension shapes the curve
// is the business of whoever draws it.
struct PARAM_API CardinalSplineSegment : SegmentBase {
  double tension = 0.0;
  std::vector<Point2d> knots;
  // Not stored; set back to true whenever a list of knots is loaded.
  bool flag = true;

  CardinalSplineSegment() : SegmentBase(SegmentType::CardinalSpline) {}
  CardinalSplineSegment(const CardinalSplineSegment&) = default;
  CardinalSplineSegment(CardinalSplineSegment&&) = default;
  CardinalSplineSegment& operator=(const CardinalSplineSegment&) = default;
  CardinalSplineSegment& operator=(CardinalSplineSegment&&) = default;
  ~CardinalSplineSegment() override;

  // Reads "tension", then "knots" all or nothing: the list is replaced only
  // when every entry has a numeric "x" and "y".
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  // Writes "type", "tension", "knots".
  [[nodiscard]] SdkError save(SeriObject& obj) const override;

  bool operator==(const CardinalSplineSegment& o) const {
    return type == o.type && tension == o.tension && knots == o.knots && flag == o.flag;
  }
};

}  // namespace param
