#include <param/params/lmcParam.h>

#include <utility>

#include <param/seri/recordIo.h>

namespace param {
namespace {

// A ParamArray stored as the bare JSON array of its elements instead of its own
// {"params": [...]} form, with the array's own in-place loading and saving rules
// (saved over the stored array, element by element).
template <class A>
struct BareArrayField {
  A& array;

  SdkError read(const KeySource& src) const {
    SeriArray items(utils::JsonLoad::instance);
    if (SdkError e = src.getArray(items)) return e;
    return errorStep(array.loadElements(items));
  }

  static void describe(SeriObject& prop) {
    describeArray(prop, &FieldSchema<typename A::value_type>::describe, 0);
  }

  SdkError write(KeySink& dst) const {
    return errorStep(editArrayAt(dst, [this](SeriArray& items) {
      array.saveElements(items);
      return SdkError{0};
    }));
  }
};

template <class A>
BareArrayField(A&) -> BareArrayField<A>;

SdkError keys(auto&& io, RecordOf<LmcParam> auto& r) {
  io("laserParam", r.laserParam, "the laser source settings");
  io("galvoParam", r.galvoParam, "the scan head settings");
  io("markParam", r.markParam, "board-level marking behaviour and connection watchdog");
  io("redParam", r.redParam, "the red aiming-light preview");
  io("ioParam", r.ioParam, "the general-purpose outputs that signal marking and the trigger input");
  io("axParArray", BareArrayField{r.axParArray}, "the extension axes, one object per axis");
  io("flyParam", r.flyParam, "the on-the-fly marking settings");
  return io.result();
}

}  // namespace

PARAM_RECORD_IO(LmcParam)

}  // namespace param
