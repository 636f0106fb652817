#include <param/shape/segments/lineSegment.h>

namespace param {

namespace {
SdkError keys(auto&& io, RecordOf<LineSegment> auto& r) {
  io("start", r.start, "start point");
  io("end", r.end, "end point");
  return io.result();
}
}  // namespace

LineSegment::~LineSegment() = default;

SdkError LineSegment::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}

SdkError LineSegment::save(SeriObject& obj) const {
  if (SdkError e = SegmentBase::save(obj)) return e;
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
