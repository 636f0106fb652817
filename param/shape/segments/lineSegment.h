#pragma once

#include <param/export.h>
#include <param/shape/point2dConcept.h>
#include <param/shape/segments/segmentBase.h>

namespace param {

// A straight segment from "start" to "end".
struct PARAM_API LineSegment : SegmentBase {
  Point2d start;
  Point2d end;

  LineSegment() : SegmentBase(SegmentType::Line) {}
  LineSegment(const Point2d& from, const Point2d& to)
      : SegmentBase(SegmentType::Line), start(from), end(to) {}
  LineSegment(const LineSegment&) = default;
  LineSegment(LineSegment&&) = default;
  LineSegment& operator=(const LineSegment&) = default;
  LineSegment& operator=(LineSegment&&) = default;
  ~LineSegment() override;

  // Reads "start" and "end"; the kind is fixed by the class ("type" is not read).
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  // Writes "type", "start", "end".
  [[nodiscard]] SdkError save(SeriObject& obj) const override;

  bool operator==(const LineSegment& o) const {
    return type == o.type && start == o.start && end == o.end;
  }
};

}  // namespace param
