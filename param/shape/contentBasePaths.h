#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <param/export.h>
#include <param/shape/matrix2d.h>
#include <param/shape/pathConcept.h>
#include <param/shape/rect2dConcept.h>

namespace param {

// Text laid out for marking, in three levels: a character's outline
// (CharBasePath), a line of characters (LineBasePaths) and a content of lines
// (ContentBasePaths). Each level keeps its bounding rectangle (`range`, empty
// as (0, 0, -1, -1)); the operations that return a rectangle store it as the
// new range first. Polylines of path kind 16 or 17 are moved with the rest but
// never count towards a range. Nothing here is serialised.

// One character's outline.
struct PARAM_API CharBasePath {
  wchar_t ch;
  PathsF2d charPath;
  bool flag = false;
  Rect2d range = Rect2d::empty();
  // The transform applied to the outline so far.
  Matrix2d matrix;
  std::int64_t tag = 0;

  explicit CharBasePath(wchar_t c) : ch(c) {}
  CharBasePath(const CharBasePath&) = default;
  CharBasePath(CharBasePath&&) noexcept = default;
  CharBasePath& operator=(const CharBasePath&) = default;
  CharBasePath& operator=(CharBasePath&&) noexcept = default;
  ~CharBasePath() = default;

  // The stored range, unchanged.
  Rect2d updateRangeFromCharRange();
  // The bounds of the outline.
  Rect2d updateRangeFromCharPath();
  // Moves the outline, the matrix's translation and the range's corner.
  Rect2d translate(double dx, double dy);
  // Maps the outline by m, appends m to the matrix and recomputes the range
  // from the mapped outline.
  Rect2d transform(Matrix2d m);
};

// A line of characters. tag1 and tag2 belong to the producer and are left alone.
class PARAM_API LineBasePaths {
 public:
  std::vector<CharBasePath> chars;
  Rect2d range = Rect2d::empty();
  std::int64_t tag1 = 0;
  std::int64_t tag2 = 0;

  LineBasePaths() = default;
  LineBasePaths(const LineBasePaths&) = default;
  LineBasePaths(LineBasePaths&&) noexcept = default;
  LineBasePaths& operator=(const LineBasePaths&) = default;
  LineBasePaths& operator=(LineBasePaths&&) noexcept = default;
  ~LineBasePaths() = default;

  // Each resets the range, applies the character operation of the same name to
  // every character in order and unites the characters' new ranges.
  Rect2d updateRangeFromCharPath();
  Rect2d updateRangeFromCharRange();
  Rect2d translate(double dx, double dy);
  Rect2d transform(Matrix2d m);
  // Every polyline of every character, in order (further value 0).
  PathsF2d merge() const;
};

// A content of lines.
class PARAM_API ContentBasePaths {
 public:
  std::vector<LineBasePaths> lines;
  Rect2d range = Rect2d::empty();

  ContentBasePaths() = default;
  ContentBasePaths(const ContentBasePaths&) = default;
  ContentBasePaths(ContentBasePaths&&) noexcept = default;
  ContentBasePaths& operator=(const ContentBasePaths&) = default;
  ContentBasePaths& operator=(ContentBasePaths&&) noexcept = default;
  ~ContentBasePaths() = default;

  // Each resets the range, applies the line operation of the same name to
  // every line in order and unites the lines' new ranges.
  Rect2d updateRangeFromCharPath();
  Rect2d updateRangeFromCharRange();
  Rect2d translate(double dx, double dy);
  Rect2d transform(Matrix2d m);
  // Every polyline of every character of every line, in order (further value 0).
  PathsF2d merge() const;
  std::size_t totalCharCount() const;
  // The first line whose range width (height) is greater than 0 and than every
  // earlier line's; the first line when none is. Throws std::out_of_range
  // ("invalid vector<T> subscript") when there are no lines.
  const LineBasePaths& widestLine() const;
  const LineBasePaths& tallestLine() const;
};

}  // namespace param
