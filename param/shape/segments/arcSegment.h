#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/shape/point2dConcept.h>
#include <param/shape/segments/segmentBase.h>

namespace param {

// How an arc is given.
enum class ArcParamType : std::uint8_t {
  ThreePoint = 1,  // start, a point on the arc, end
  Bulge = 2,       // start, end, bulge
};

// An arc segment. Its three stored values mean different things by paramType:
//
//   paramType    start     second               third
//   ThreePoint   "start"   a point on the arc   the end point ("end")
//                          ("arc")
//   Bulge        "start"   the end point        third.x holds the bulge
//                          ("end")              ("bulge")
//
// A change of paramType reinterprets the values, it does not convert them. The
// accessors below pick the right one for the current paramType.
struct PARAM_API ArcSegment : SegmentBase {
  ArcParamType paramType;
  Point2d start;
  Point2d second;
  Point2d third;

  explicit ArcSegment(ArcParamType kind = ArcParamType::ThreePoint)
      : SegmentBase(SegmentType::Arc), paramType(kind) {}
  ArcSegment(const ArcSegment&) = default;
  ArcSegment(ArcSegment&&) = default;
  ArcSegment& operator=(const ArcSegment&) = default;
  ArcSegment& operator=(ArcSegment&&) = default;
  ~ArcSegment() override;

  // The point on the arc of a ThreePoint arc.
  Point2d& arcPoint() { return second; }
  const Point2d& arcPoint() const { return second; }
  // The end point: `third` for a ThreePoint arc, `second` for a Bulge arc.
  Point2d& endPoint() { return paramType == ArcParamType::Bulge ? second : third; }
  const Point2d& endPoint() const { return paramType == ArcParamType::Bulge ? second : third; }
  // The bulge of a Bulge arc.
  double& bulge() { return third.x; }
  double bulge() const { return third.x; }

  // Reads "paramType", then the keys of that type in the order of the table
  // above ("type" is not read). An unknown paramType returns
  // errc::badArcParamType and changes nothing.
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  // Writes "type", "paramType", then the keys of that type; an unknown
  // paramType stops after "paramType" with errc::badArcParamType.
  [[nodiscard]] SdkError save(SeriObject& obj) const override;

  // Compares all three stored values, whatever the paramType.
  bool operator==(const ArcSegment& o) const {
    return type == o.type && paramType == o.paramType && start == o.start && second == o.second &&
           third == o.third;
  }
};

}  // namespace param
