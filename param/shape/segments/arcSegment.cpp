#include <param/shape/segments/arcSegment.h>

#include <param/errors.h>

namespace param {

namespace {

// "paramType" is read and written by load and save themselves, ahead of the
// keys that depend on it.
constexpr const char* paramTypeMeaning =
    "how the arc is given: 1 three points, 2 start, end and bulge";

bool knownParamType(ArcParamType t) {
  return t == ArcParamType::ThreePoint || t == ArcParamType::Bulge;
}

// The keys that follow "paramType", for a known paramType.
SdkError pointKeys(auto& io, RecordOf<ArcSegment> auto& r, ArcParamType t) {
  if (t == ArcParamType::ThreePoint) {
    io("start", r.start, "start point");
    io("arc", r.second, "a point on the arc between start and end");
    io("end", r.third, "end point");
  } else {
    io("start", r.start, "start point");
    io("end", r.second, "end point");
    io("bulge", r.third.x, "bulge of the arc");
  }
  return io.result();
}

}  // namespace

ArcSegment::~ArcSegment() = default;

SdkError ArcSegment::load(const SeriObject& obj) {
  RecordLoader io(obj);
  ArcParamType t = paramType;
  if (SdkError e = io("paramType", t, paramTypeMeaning).result()) return e;
  if (!knownParamType(t)) return errc::badArcParamType;
  paramType = t;
  return pointKeys(io, *this, t);
}

SdkError ArcSegment::save(SeriObject& obj) const {
  if (SdkError e = SegmentBase::save(obj)) return e;
  RecordSaver io(obj);
  if (SdkError e = io("paramType", paramType, paramTypeMeaning).result()) return e;
  if (!knownParamType(paramType)) return errc::badArcParamType;
  return pointKeys(io, *this, paramType);
}

}  // namespace param
