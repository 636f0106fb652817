#include <param/params/fillLayerParam.h>

#include <algorithm>

#include <param/mgr/defaultParamMgr.h>
#include <param/params/internal/tolerance.h>
#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<FillLayerParam> auto& r) {
  io("enabled", r.enabled, "the fill layer is in use");
  io("fillType", r.fillType,
     "pattern: 0 none, 1-4 lines by angle and spacing, 5 spacing only, 6-8 rays");
  io("penID", r.penID, "pen number the layer is marked with");
  io("enableOutline", r.enableOutline, "mark the outline");
  io("caclAsOne", r.caclAsOne, "calculate the fill of all shapes as one");
  io("enableFillEvenly", r.enableFillEvenly, "spread the fill lines evenly");
  io("enableCrossFill", r.enableCrossFill, "cross fill on");
  io("fillAngle", r.fillAngle, "angle of the fill lines");
  io("fillSpace", r.fillSpace, "spacing of the fill lines");
  io("rayStartAngle", r.rayStartAngle, "angle of the first ray (patterns 6-8)");
  io("rayLineCount", r.rayLineCount, "number of rays (patterns 6-8)");
  io("startOffset", r.startOffset, "offset at the start of the fill lines, unless filled evenly");
  io("endOffset", r.endOffset, "offset at the end of the fill lines, unless filled evenly");
  io("outlineOffset", r.outlineOffset,
     "offset of the fill from the outline; below 0 it reaches beyond it");
  io("clipType", r.clipType, "how the fill is clipped (number)");
  return io.result();
}

// Pen, outline and one-piece switches: every pattern group compares them.
bool samePenAndOutline(const FillLayerParam& a, const FillLayerParam& b) {
  return a.penID == b.penID && a.enableOutline == b.enableOutline && a.caclAsOne == b.caclAsOne;
}
}  // namespace

FillLayerParam::FillLayerParam() {
  DefaultParamMgr::loadDefault("struct FillLayerParam", *this);
}

PARAM_RECORD_IO(FillLayerParam)

bool FillLayerParam::isSameEffect(const FillLayerParam& o) const {
  if (enabled != o.enabled) return false;
  if (!enabled) return true;
  if (fillType != o.fillType || fillType == 0) return false;
  // Doubles compare exactly (== is false for NaN); only the offsets of an
  // unevenly filled line pattern have a tolerance.
  if (fillType <= 4) {
    return samePenAndOutline(*this, o) && enableCrossFill == o.enableCrossFill &&
           fillAngle == o.fillAngle && fillSpace == o.fillSpace &&
           outlineOffset == o.outlineOffset && clipType == o.clipType &&
           enableFillEvenly == o.enableFillEvenly &&
           (enableFillEvenly ||
            (within0001(startOffset, o.startOffset) && within0001(endOffset, o.endOffset)));
  }
  if (fillType == 5) {
    return samePenAndOutline(*this, o) && fillSpace == o.fillSpace &&
           outlineOffset == o.outlineOffset && clipType == o.clipType;
  }
  if (fillType <= 8) {
    return samePenAndOutline(*this, o) && rayStartAngle == o.rayStartAngle &&
           rayLineCount == o.rayLineCount && outlineOffset == o.outlineOffset &&
           clipType == o.clipType;
  }
  return false;
}

bool FillLayerParam::fillAffectOnShapeRange(double& range) const {
  range = enabled ? std::max(0.0, -outlineOffset) : 0.0;
  return true;
}

}  // namespace param
