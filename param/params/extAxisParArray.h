#pragma once

#include <param/export.h>
#include <param/params/extAxisPar.h>
#include <param/params/paramArray.h>

namespace param {

// The extension axes of a board. Loading and saving are those of ParamArray
// (in place, never shrinking); indexOf finds an axis by its axisId.
struct PARAM_API ExtAxisParArray : ParamArray<ExtAxisPar> {
  // Two axes, ids 0 and 1.
  ExtAxisParArray() : ExtAxisParArray(2) {}
  // `count` default axes with ids 0 to count - 1; empty for a count below 1.
  explicit ExtAxisParArray(int count);
  // One copy of `axis`.
  explicit ExtAxisParArray(const ExtAxisPar& axis);
};

}  // namespace param
