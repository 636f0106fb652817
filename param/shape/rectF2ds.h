#pragma once

#include <cstddef>
#include <initializer_list>
#include <vector>

#include <param/export.h>
#include <param/shape/rect2dConcept.h>

namespace param {

// An ordered list of rectangles with their union.
class PARAM_API RectF2ds : public std::vector<Rect2d> {
 public:
  RectF2ds() = default;
  // `count` rectangles of (0, 0, 0, 0).
  explicit RectF2ds(std::size_t count) : std::vector<Rect2d>(count) {}
  RectF2ds(std::size_t count, const Rect2d& rect) : std::vector<Rect2d>(count, rect) {}
  RectF2ds(std::initializer_list<Rect2d> rects) : std::vector<Rect2d>(rects) {}
  RectF2ds(const RectF2ds&) = default;
  RectF2ds(RectF2ds&&) noexcept = default;
  RectF2ds& operator=(const RectF2ds&) = default;
  RectF2ds& operator=(RectF2ds&&) noexcept = default;
  ~RectF2ds() = default;

  // The union of the rectangles in order, starting from the empty rectangle:
  // invalid rectangles are skipped, except that a leading invalid one is taken
  // over and then replaced by the next. An empty list gives (0, 0, -1, -1).
  Rect2d merge() const;
};

}  // namespace param
