#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// One layer of the fill of a closed shape: its pattern, pen, angle and spacing.
// Members are named after their JSON keys and saved in this order.
//
// "fillType": 0 no valid pattern; 1-4 line patterns (angle and spacing); 5
// spacing only; 6-8 ray patterns ("rayStartAngle", "rayLineCount"); above 8 invalid.
//
// The default constructor applies the stored default "struct FillLayerParam"
// of the default-parameter manager on top of these values; before param::load
// it logs "please call DefaultParamMgr::load() first" and keeps them.
struct PARAM_API FillLayerParam {
  bool enabled = false;
  std::uint8_t fillType = 4;
  std::uint8_t penID = 0;
  bool enableOutline = false;
  bool caclAsOne = false;
  bool enableFillEvenly = false;
  bool enableCrossFill = false;
  double fillAngle = 0.0;
  double fillSpace = 1.0;
  double rayStartAngle = 0.0;
  std::uint64_t rayLineCount = 360;
  double startOffset = 0.0;
  double endOffset = 0.0;
  double outlineOffset = 0.0;
  std::uint8_t clipType = 4;

  FillLayerParam();

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

  // Whether two layers mark the same: the members that the layer's pattern uses
  // must match (doubles exactly, start and end offsets within 0.0001 unless
  // filled evenly); two disabled layers always match.
  bool isSameEffect(const FillLayerParam& other) const;

  // How far the fill reaches beyond the outline: max(0, -outlineOffset) when
  // enabled, else 0. Always true.
  bool fillAffectOnShapeRange(double& range) const;
};

}  // namespace param
