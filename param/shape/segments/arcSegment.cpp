#include <param/shape/segments/arcSegment.h>

#include <param/errors.h>

namespace param {

namespace {

bool knownParamType(ArcParamType t) {
  return t == ArcParamType::ThreePoint || t == ArcParamType::Bulge;
}

// The keys that follow "paramType", for a known paramType.
SdkError pointKeys(auto& io, RecordOf<ArcSegment> auto& r, ArcParamType t) {
  if (t == ArcParamType::ThreePoint) {
    io("start", r.start);
    io("arc", r.second);
    io("end", r.third);
  } else {
    io("start", r.start);
    io("end", r.second);
    io("bulge", r.third.x);
  }
  return io.result();
}

}  // namespace

ArcSegment::~ArcSegment() = default;

SdkError ArcSegment::load(const SeriObject& obj) {
  RecordLoader io(obj);
  ArcParamType t = paramType;
  if (SdkError e = io("paramType", t).result()) return e;
  if (!knownParamType(t)) return errc::badArcParamType;
  paramType = t;
  return pointKeys(io, *this, t);
}

SdkError ArcSegment::save(SeriObject& obj) const {
  if (SdkError e = SegmentBase::save(obj)) return e;
  RecordSaver io(obj);
  if (SdkError e = io("paramType", paramType).result()) return e;
  if (!knownParamType(paramType)) return errc::badArcParamType;
  return pointKeys(io, *this, paramType);
}

}  // namespace param
