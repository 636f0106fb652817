#include <param/params/arrayParam.h>
#include <param/params/circularArrayParam.h>
#include <param/params/rectArrayParam.h>

#include <param/mgr/defaultParamMgr.h>
#include <param/params/internal/tolerance.h>
#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<RectArrayParam> auto& r) {
  io("flags", r.flags.value);
  io("rowCount", r.rowCount);
  io("colCount", r.colCount);
  io("rowDistIncrease", r.rowDistIncrease);
  io("colDistIncrease", r.colDistIncrease);
  return io.result();
}

SdkError keys(auto&& io, RecordOf<CircularArrayParam> auto& r) {
  io("count", r.count);
  io("radius", r.radius);
  io("clockwise", r.clockwise);
  io("startAngle", r.startAngle);
  io("angleIncrease", r.angleIncrease);
  return io.result();
}

SdkError keys(auto&& io, RecordOf<ArrayParam> auto& r) {
  io("enabled", r.enabled);
  io("type", r.type);
  io("disableSeriChange", r.disableSeriChange);
  io("rect", r.rect);
  io("circular", r.circular);
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
