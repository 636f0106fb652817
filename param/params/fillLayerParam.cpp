#include <param/params/fillLayerParam.h>

#include <algorithm>

#include <param/mgr/defaultParamMgr.h>
#include <param/params/internal/tolerance.h>
#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<FillLayerParam> auto& r) {
  io("enabled", r.enabled);
  io("fillType", r.fillType);
  io("penID", r.penID);
  io("enableOutline", r.enableOutline);
  io("caclAsOne", r.caclAsOne);
  io("enableFillEvenly", r.enableFillEvenly);
  io("enableCrossFill", r.enableCrossFill);
  io("fillAngle", r.fillAngle);
  io("fillSpace", r.fillSpace);
  io("rayStartAngle", r.rayStartAngle);
  io("rayLineCount", r.rayLineCount);
  io("startOffset", r.startOffset);
  io("endOffset", r.endOffset);
  io("outlineOffset", r.outlineOffset);
  io("clipType", r.clipType);
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
