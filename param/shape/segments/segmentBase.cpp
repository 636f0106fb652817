#include <param/shape/segments/segmentBase.h>

#include <utils/logger.h>

#include <param/errors.h>
#include <param/shape/segments/arcSegment.h>
#include <param/shape/segments/bezierSegment.h>
#include <param/shape/segments/cardinalSplineSegment.h>
#include <param/shape/segments/lineSegment.h>
#include <param/shape/segments/nurbsSegment.h>

namespace param {

namespace {

void logUnknownKind(std::int32_t kind) {
  utils::Logger(utils::LogLevel::Error, "Param") << "unknown segment type: " << kind;
}

template <class Source>
SdkError readSegment(const Source& src, std::shared_ptr<SegmentBase>& segment) {
  SeriObject child(utils::JsonLoad::instance);
  if (SdkError e = src.getObject(child)) return e;
  std::int32_t kind = 0;
  if (SdkError e = child.get("type", kind)) return e;
  std::shared_ptr<SegmentBase> made = SegmentBase::createSegment(static_cast<SegmentType>(kind));
  if (!made) {
    logUnknownKind(kind);
    return errc::badFormat;
  }
  if (SdkError e = made->load(child)) return e;
  segment = std::move(made);
  return 0;
}

template <class Sink>
SdkError writeSegment(Sink& dst, const std::shared_ptr<SegmentBase>& segment) {
  if (!segment) return errc::badFormat;
  SeriObject child(utils::JsonSave::instance);
  if (SdkError e = segment->save(child)) return e;
  return dst.putObject(std::move(child));
}

}  // namespace

SegmentBase::~SegmentBase() = default;

SdkError SegmentBase::load(const SeriObject& obj) {
  std::int32_t kind = 0;
  SdkError e = obj.get("type", kind);
  if (e == 0) type = static_cast<SegmentType>(kind);
  return e;
}

SdkError SegmentBase::save(SeriObject& obj) const {
  return obj.set("type", static_cast<std::int32_t>(type));
}

std::shared_ptr<SegmentBase> SegmentBase::createSegment(SegmentType kind) {
  switch (kind) {
    case SegmentType::Line:
      return std::make_shared<LineSegment>();
    case SegmentType::Arc:
      return std::make_shared<ArcSegment>(ArcParamType::ThreePoint);
    case SegmentType::Bezier:
      return std::make_shared<BezierSegment>();
    case SegmentType::NURBS:
      return std::make_shared<NURBSSegment>();
    case SegmentType::CardinalSpline:
      return std::make_shared<CardinalSplineSegment>();
  }
  return nullptr;
}

std::shared_ptr<SegmentBase> SegmentBase::createSegment(const SeriObject& obj) {
  const std::int32_t kind = obj.load("type", std::int32_t{0});
  std::shared_ptr<SegmentBase> segment = createSegment(static_cast<SegmentType>(kind));
  if (!segment) {
    logUnknownKind(kind);
    return nullptr;
  }
  if (segment->load(obj) != 0) return nullptr;
  return segment;
}

SdkError FieldIo<std::shared_ptr<SegmentBase>>::read(const KeySource& src,
                                                     std::shared_ptr<SegmentBase>& segment) {
  return readSegment(src, segment);
}

SdkError FieldIo<std::shared_ptr<SegmentBase>>::read(const IndexSource& src,
                                                     std::shared_ptr<SegmentBase>& segment) {
  return readSegment(src, segment);
}

SdkError FieldIo<std::shared_ptr<SegmentBase>>::write(KeySink& dst,
                                                      const std::shared_ptr<SegmentBase>& segment) {
  return writeSegment(dst, segment);
}

SdkError FieldIo<std::shared_ptr<SegmentBase>>::write(AppendSink& dst,
                                                      const std::shared_ptr<SegmentBase>& segment) {
  return writeSegment(dst, segment);
}

}  // namespace param
