#include <param/params/arrayParam.h>
#include <param/params/circularArrayParam.h>
#include <param/params/rectArrayParam.h>

#include <param/mgr/defaultParamMgr.h>
#include <param/params/internal/tolerance.h>
#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<RectArrayParam> auto& r) {
  io("flags", r.flags.value, "five layout switches in bits 0 to 4");
  io("rowCount", r.rowCount, "number of rows");
  io("colCount", r.colCount, "number of columns");
  io("rowDistIncrease", r.rowDistIncrease, "distance from one row to the next");
  io("colDistIncrease", r.colDistIncrease, "distance from one column to the next");
  return io.result();
}

SdkError keys(auto&& io, RecordOf<CircularArrayParam> auto& r) {
  io("count", r.count, "number of copies");
  io("radius", r.radius, "radius of the circle");
  io("clockwise", r.clockwise, "the copies run clockwise");
  io("startAngle", r.startAngle, "angle of the first copy");
  io("angleIncrease", r.angleIncrease, "angle from one copy to the next");
  return io.result();
}

SdkError keys(auto&& io, RecordOf<ArrayParam> auto& r) {
  io("enabled", r.enabled, "the object is repeated as an array of copies");
  io("type", r.type, "layout: 0 rectangular, 1 circular");
  io("disableSeriChange", r.disableSeriChange, "no serial data change across the copies");
  io("rect", r.rect, "the rectangular layout");
  io("circular", r.circular, "the circular layout");
  return io.result();
}
}  // namespace

RectArrayParam::RectArrayParam() {
  DefaultParamMgr::loadDefault("struct RectArrayParam", *this);
}

PARAM_RECORD_IO(RectArrayParam)

bool RectArrayParam::operator==(const RectArrayParam& o) const {
  return flags.value == o.flags.value && rowCount == o.rowCount && colCount == o.colCount &&
         within0001(rowDistIncrease, o.rowDistIncrease) &&
         within0001(colDistIncrease, o.colDistIncrease);
}

PARAM_RECORD_IO(CircularArrayParam)

bool CircularArrayParam::operator==(const CircularArrayParam& o) const {
  return count == o.count && radius == o.radius && clockwise == o.clockwise &&
         within0001(startAngle, o.startAngle) && within0001(angleIncrease, o.angleIncrease);
}

PARAM_RECORD_IO(ArrayParam)

bool ArrayParam::isSameEffect(const ArrayParam& o) const {
  if (enabled != o.enabled) return false;
  if (!enabled) return true;
  if (type != o.type) return false;
  if (type == 0) return rect == o.rect;
  if (type == 1) return circular == o.circular;
  return false;
}

}  // namespace param
