#include <param/shape/bezierPath.h>

#include <algorithm>

namespace param {

void BezierPath::reverse() {
  for (BezierSegment& segment : *this)
    segment.reverse();
  std::reverse(begin(), end());
}

void BezierPath::setDegree(std::size_t degree) {
  for (BezierSegment& segment : *this)
    segment.setDegree(degree);
}

BezierPath& BezierPath::postTransform(Matrix2d m) {
  for (BezierSegment& segment : *this)
    segment.postTransform(m);
  return *this;
}

BezierPath BezierPath::postTransform(Matrix2d m) const {
  BezierPath copy = *this;
  return std::move(copy.postTransform(m));
}

void BezierPaths::reverse() {
  for (BezierPath& path : *this)
    path.reverse();
  std::reverse(begin(), end());
}

void BezierPaths::setDegree(std::size_t degree) {
  for (BezierPath& path : *this)
    path.setDegree(degree);
}

BezierPaths& BezierPaths::postTransform(Matrix2d m) {
  for (BezierPath& path : *this)
    path.postTransform(m);
  return *this;
}

BezierPaths BezierPaths::postTransform(Matrix2d m) const {
  BezierPaths copy = *this;
  return std::move(copy.postTransform(m));
}

}  // namespace param
