#pragma once

#include <cstdint>
#include <memory>

#include <param/export.h>
#include <param/seri/recordIo.h>
#include <param/seri/seriObject.h>

namespace param {

// The kind of a segment; the numbers are stored in JSON under "type".
enum class SegmentType : std::int32_t {
  Line = 1,
  Arc = 2,
  Bezier = 3,
  NURBS = 4,
  CardinalSpline = 5,
};

// The common base of the path segments. Segments are data records: they carry
// their defining points and serialise them, and are held through shared
// pointers made by createSegment.
//
// load and save of every segment apply the error-response step to each key
// except "type": saving stops at once when "type" cannot be written.
struct PARAM_API SegmentBase {
  SegmentType type;

  explicit SegmentBase(SegmentType kind) : type(kind) {}
  SegmentBase(const SegmentBase&) = default;
  SegmentBase(SegmentBase&&) = default;
  SegmentBase& operator=(const SegmentBase&) = default;
  SegmentBase& operator=(SegmentBase&&) = default;

  // Reads "type" into the kind (no error-response step).
  [[nodiscard]] virtual SdkError load(const SeriObject& obj);
  // Writes the kind under "type" (no error-response step).
  [[nodiscard]] virtual SdkError save(SeriObject& obj) const;
  virtual ~SegmentBase();

  // A default segment of the kind: a line with zero points, a three-point arc,
  // or a default curve segment. Empty for any other value.
  static std::shared_ptr<SegmentBase> createSegment(SegmentType kind);
  // The segment of the kind stored under "type", loaded from `obj`. Empty when
  // the kind is missing or unknown (logged) or when its load fails.
  static std::shared_ptr<SegmentBase> createSegment(const SeriObject& obj);
};

// A segment as one element or key of a record: the segment's object. Loading
// makes the segment of the stored kind; an unknown kind is errc::badFormat,
// and so is a null segment on saving.
template <>
struct PARAM_API FieldIo<std::shared_ptr<SegmentBase>> {
  static SdkError read(const KeySource& src, std::shared_ptr<SegmentBase>& segment);
  static SdkError read(const IndexSource& src, std::shared_ptr<SegmentBase>& segment);
  static SdkError write(KeySink& dst, const std::shared_ptr<SegmentBase>& segment);
  static SdkError write(AppendSink& dst, const std::shared_ptr<SegmentBase>& segment);
};

}  // namespace param
