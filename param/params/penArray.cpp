#include <param/params/penArray.h>

#include <param/seri/recordSchema.h>

namespace param {

PenArray::PenArray(int count) {
  if (count < 1) return;
  resize(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i)
    (*this)[static_cast<std::size_t>(i)].penId = i;
}

PARAM_RECORD_ARRAY_TYPE(PenArray, "the pens, one object per pen")

}  // namespace param
