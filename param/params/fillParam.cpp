#include <param/params/fillParam.h>

#include <algorithm>
#include <limits>
#include <type_traits>

#include <param/seri/recordIo.h>

namespace param {
namespace {

// "layer": loaded like any fixed array; saved over the stored layers up to the
// first layer that fails, whose error is dropped.
template <class Layers>
struct LayerArray {
  Layers& layers;

  SdkError read(const KeySource& src) { return FixedArrayIo<FillLayerParam, 3>::read(src, layers); }
  static void describe(SeriObject& prop) {
    describeArray(prop, &FieldSchema<FillLayerParam>::describe, 3);
  }
  SdkError write(KeySink& dst) const {
    return editArrayAt(dst, [this](SeriArray& arr) {
      arr.reserve(3);
      for (std::size_t i = 0; i < 3; ++i) {
        IndexSink sink{arr, i};
        if (FieldIo<FillLayerParam>::write(sink, layers[i]) != 0) break;
      }
      return SdkError{0};
    });
  }
};
template <class Layers>
LayerArray(Layers&) -> LayerArray<Layers>;

SdkError keys(auto&& io, RecordOf<FillParam> auto& r) {
  io("layer", LayerArray{r.layers}, "the three fill layers");
  io("enableEdge", r.enableEdge, "mark the shape's edge");
  io("edgeFirst", r.edgeFirst, "mark the edge before the fill");
  io("simplify", r.simplify, "simplify the edge");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(FillParam)

bool FillParam::isFillEnabled() const {
  return enabledFillLayerCount() != 0;
}

bool FillParam::disableFill() {
  const bool any = isFillEnabled();
  for (FillLayerParam& layer : layers)
    layer.enabled = false;
  return any;
}

std::size_t FillParam::enabledFillLayerCount() const {
  return static_cast<std::size_t>(
      std::count_if(std::begin(layers), std::end(layers), [](const auto& l) { return l.enabled; }));
}

bool FillParam::fillAffectOnShapeRange(double& range) const {
  range = std::numeric_limits<double>::lowest();
  for (const FillLayerParam& layer : layers) {
    double reach = 0;
    layer.fillAffectOnShapeRange(reach);
    range = std::max(range, reach);
  }
  return true;
}

bool FillParam::isSameEffect(const FillParam& o) const {
  if (isFillEnabled() != o.isFillEnabled()) return false;
  if (!isFillEnabled()) return true;
  if (enableEdge != o.enableEdge || edgeFirst != o.edgeFirst || simplify != o.simplify) {
    return false;
  }
  for (std::size_t i = 0; i < 3; ++i) {
    if (!layers[i].isSameEffect(o.layers[i])) return false;
  }
  return true;
}

}  // namespace param
