#pragma once

#include <param/export.h>
#include <param/params/paramArray.h>
#include <param/params/penParam.h>

namespace param {

// The pen table.
struct PARAM_API PenArray : ParamArray<PenParam> {
  PenArray() = default;
  // `count` default pens numbered 0 to count - 1; empty for a count below 1.
  explicit PenArray(int count);
};

}  // namespace param
