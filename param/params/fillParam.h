#pragma once

#include <cstddef>

#include <param/export.h>
#include <param/params/fillLayerParam.h>
#include <param/seri/seriObject.h>

namespace param {

// The fill of a closed shape: three independent layers and the edge switches.
// JSON: {"layer": [three layers], "enableEdge", "edgeFirst", "simplify"}.
struct PARAM_API FillParam {
  FillLayerParam layers[3];
  bool enableEdge = false;
  bool edgeFirst = false;
  bool simplify = false;

  // Loading reads at most three objects of "layer", object i into layer i in
  // place; a shorter array leaves the other layers as they were. Saving stops
  // quietly at a layer whose save fails, storing the layers before it.
  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

  bool isFillEnabled() const;
  // Disables every layer; true when at least one was enabled.
  bool disableFill();
  std::size_t enabledFillLayerCount() const;
  // The largest reach of the three layers beyond the outline. Always true.
  bool fillAffectOnShapeRange(double& range) const;
  // Same enabled state, same edge switches, and layer i the same effect as layer i.
  bool isSameEffect(const FillParam& other) const;
};

}  // namespace param
