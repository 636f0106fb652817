#include <param/shape/rectF2ds.h>

namespace param {

Rect2d RectF2ds::merge() const {
  Rect2d result = Rect2d::empty();
  for (const Rect2d& r : *this)
    result.unite(r);
  return result;
}

}  // namespace param
