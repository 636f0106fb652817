#include <param/shape/segments/cardinalSplineSegment.h>

#include <param/shape/segments/internal/pointListField.h>

namespace param {

namespace {
SdkError keys(auto&& io, RecordOf<CardinalSplineSegment> auto& r) {
  io("tension", r.tension, "tension of the spline");
  io("knots", detail::pointListField(r.knots, r.flag), "the points the spline passes through");
  return io.result();
}
}  // namespace

CardinalSplineSegment::~CardinalSplineSegment() = default;

SdkError CardinalSplineSegment::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}

SdkError CardinalSplineSegment::save(SeriObject& obj) const {
  if (SdkError e = SegmentBase::save(obj)) return e;
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
