#include <param/params/extAxisParArray.h>

#include <param/seri/recordSchema.h>

namespace param {

ExtAxisParArray::ExtAxisParArray(int count) {
  if (count < 1) return;
  resize(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i)
    (*this)[static_cast<std::size_t>(i)].setting.axisId = i;
}

ExtAxisParArray::ExtAxisParArray(const ExtAxisPar& axis) {
  push_back(axis);
}

PARAM_RECORD_ARRAY_TYPE(ExtAxisParArray, "the extension axes, one object per axis")

}  // namespace param
