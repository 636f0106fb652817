#include <param/shape/anchorPoint.h>

#include <param/mgr/defaultParamMgr.h>
#include <param/params/internal/tolerance.h>
#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<AnchorPoint> auto& r) {
  io("type", r.type, "kind of anchor (4 by default)");
  io("point", r.point, "position of the anchor");
  return io.result();
}
}  // namespace

AnchorPoint::AnchorPoint() {
  DefaultParamMgr::loadDefault("struct AnchorPoint", *this);
}

PARAM_RECORD_IO(AnchorPoint)

bool AnchorPoint::operator==(const AnchorPoint& o) const {
  return type == o.type && within0001(point.x, o.point.x) && within0001(point.y, o.point.y);
}

}  // namespace param
