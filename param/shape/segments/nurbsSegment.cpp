#include <param/shape/segments/nurbsSegment.h>

#include <param/shape/segments/internal/pointListField.h>

namespace param {

namespace {
SdkError keys(auto&& io, RecordOf<NURBSSegment> auto& r) {
  io("degree", r.degree, "degree of the curve");
  io("controlPoints", detail::pointListField(r.controlPoints, r.flag), "the control points");
  io("knots", r.knots, "the knot vector");
  return io.result();
}
}  // namespace

NURBSSegment::~NURBSSegment() = default;

SdkError NURBSSegment::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}

SdkError NURBSSegment::save(SeriObject& obj) const {
  if (SdkError e = SegmentBase::save(obj)) return e;
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
