#include <param/shape/contentBasePaths.h>

#include <stdexcept>

#include <param/shape/internal/pathBounds.h>

namespace param {

namespace {

// The line whose `extent` is the first strict maximum above 0.0; line 0 otherwise.
template <class Extent>
const LineBasePaths& largestLine(const std::vector<LineBasePaths>& lines, Extent extent) {
  if (lines.empty()) throw std::out_of_range("invalid vector<T> subscript");
  std::size_t best = 0;
  double bestExtent = 0.0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const double e = extent(lines[i].range);
    if (e > bestExtent) {
      best = i;
      bestExtent = e;
    }
  }
  return lines[best];
}

}  // namespace

// ---- CharBasePath ----

Rect2d CharBasePath::updateRangeFromCharRange() {
  return range;
}

Rect2d CharBasePath::updateRangeFromCharPath() {
  range = detail::pathsBounds(charPath);
  return range;
}

Rect2d CharBasePath::translate(double dx, double dy) {
  for (PathF2d& path : charPath) {
    for (Point2d& p : path) {
      p.x += dx;
      p.y += dy;
    }
  }
  matrix.translate(dx, dy);
  range.x += dx;
  range.y += dy;
  return range;
}

Rect2d CharBasePath::transform(Matrix2d m) {
  matrix.postConcat(m);
  Rect2d result = Rect2d::empty();
  for (PathF2d& path : charPath) {
    for (Point2d& p : path) {
      const double x = p.x, y = p.y;
      p.x = x * m[0] + y * m[2] + m[4];
      p.y = x * m[1] + y * m[3] + m[5];
    }
    if (countsForBounds(path.type)) result.unite(detail::polylineBounds(path));
  }
  range = result;
  return range;
}

// ---- LineBasePaths ----

Rect2d LineBasePaths::updateRangeFromCharPath() {
  range = Rect2d::empty();
  for (CharBasePath& c : chars)
    range.unite(c.updateRangeFromCharPath());
  return range;
}

Rect2d LineBasePaths::updateRangeFromCharRange() {
  range = Rect2d::empty();
  for (CharBasePath& c : chars)
    range.unite(c.updateRangeFromCharRange());
  return range;
}

Rect2d LineBasePaths::translate(double dx, double dy) {
  range = Rect2d::empty();
  for (CharBasePath& c : chars)
    range.unite(c.translate(dx, dy));
  return range;
}

Rect2d LineBasePaths::transform(Matrix2d m) {
  range = Rect2d::empty();
  for (CharBasePath& c : chars)
    range.unite(c.transform(m));
  return range;
}

PathsF2d LineBasePaths::merge() const {
  std::size_t total = 0;
  for (const CharBasePath& c : chars)
    total += c.charPath.size();
  PathsF2d merged;
  merged.reserve(total);
  for (const CharBasePath& c : chars)
    merged.insert(merged.end(), c.charPath.begin(), c.charPath.end());
  return merged;
}

// ---- ContentBasePaths ----

Rect2d ContentBasePaths::updateRangeFromCharPath() {
  range = Rect2d::empty();
  for (LineBasePaths& line : lines)
    range.unite(line.updateRangeFromCharPath());
  return range;
}

Rect2d ContentBasePaths::updateRangeFromCharRange() {
  range = Rect2d::empty();
  for (LineBasePaths& line : lines)
    range.unite(line.updateRangeFromCharRange());
  return range;
}

Rect2d ContentBasePaths::translate(double dx, double dy) {
  range = Rect2d::empty();
  for (LineBasePaths& line : lines)
    range.unite(line.translate(dx, dy));
  return range;
}

Rect2d ContentBasePaths::transform(Matrix2d m) {
  range = Rect2d::empty();
  for (LineBasePaths& line : lines)
    range.unite(line.transform(m));
  return range;
}

PathsF2d ContentBasePaths::merge() const {
  std::size_t total = 0;
  for (const LineBasePaths& line : lines) {
    for (const CharBasePath& c : line.chars)
      total += c.charPath.size();
  }
  PathsF2d merged;
  merged.reserve(total);
  for (const LineBasePaths& line : lines) {
    for (const CharBasePath& c : line.chars) {
      merged.insert(merged.end(), c.charPath.begin(), c.charPath.end());
    }
  }
  return merged;
}

std::size_t ContentBasePaths::totalCharCount() const {
  std::size_t count = 0;
  for (const LineBasePaths& line : lines)
    count += line.chars.size();
  return count;
}

const LineBasePaths& ContentBasePaths::widestLine() const {
  return largestLine(lines, [](const Rect2d& r) { return r.width; });
}

const LineBasePaths& ContentBasePaths::tallestLine() const {
  return largestLine(lines, [](const Rect2d& r) { return r.height; });
}

}  // namespace param
