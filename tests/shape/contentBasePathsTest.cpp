#include <stdexcept>

#include <gtest/gtest.h>

#include <param/shape/contentBasePaths.h>

using namespace param;

namespace {

PathF2d polyline(std::initializer_list<Point2d> pts, std::uint8_t kind = 0) {
  PathF2d p(pts);
  p.type = kind;
  return p;
}

// A character whose outline is the box (x, y)-(x + w, y + h), range set to it.
CharBasePath boxChar(double x, double y, double w, double h) {
  CharBasePath c(L'a');
  c.charPath.push_back(polyline({{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}}));
  c.range = Rect2d(x, y, w, h);
  return c;
}

LineBasePaths lineOf(std::initializer_list<CharBasePath> chars) {
  LineBasePaths line;
  line.chars = chars;
  return line;
}

}  // namespace

TEST(CharBasePath, RangesFollowTheOutlineAndTheMatrixCollects) {
  // The matrix collects the transforms in order: translate, then scale.
  CharBasePath c(L'x');
  c.translate(1, 1);
  EXPECT_EQ(c.transform(Matrix2d::makeScale(2, 2, 0, 0)), Rect2d::empty());
  EXPECT_EQ(c.matrix, Matrix2d::make(2, 0, 0, 2, 2, 2));

  // An outline (0,0)-(2,1) plus a kind-16 polyline that never counts.
  CharBasePath d(L'y');
  d.charPath.push_back(polyline({{0, 0}, {2, 1}}));
  d.charPath.push_back(polyline({{5, 5}, {6, 6}}, 16));
  EXPECT_EQ(d.updateRangeFromCharPath(), Rect2d(0, 0, 2, 1));
  // An exact quarter turn, (x, y) -> (-y, x).
  EXPECT_EQ(d.transform(Matrix2d::make(0, 1, -1, 0, 0, 0)), Rect2d(-1, 0, 1, 2));
  EXPECT_EQ(d.range, Rect2d(-1, 0, 1, 2));
  EXPECT_EQ(d.charPath[1][0], Point2d(-5, 5));  // moved, but outside the range

  // translate moves the whole outline and the range.
  CharBasePath f = boxChar(0, 0, 1, 1);
  f.charPath.push_back(polyline({{5, 5}}, 17));
  EXPECT_EQ(f.translate(10, 5), Rect2d(10, 5, 1, 1));
  EXPECT_EQ(f.charPath[1][0], Point2d(15, 10));
  EXPECT_EQ(f.updateRangeFromCharPath(), Rect2d(10, 5, 1, 1));
}

TEST(LineBasePaths, RangesAndMerge) {
  LineBasePaths line = lineOf({boxChar(0, 0, 1, 1), boxChar(2, 0, 1, 1)});
  EXPECT_EQ(line.translate(10, 5), Rect2d(10, 5, 3, 1));

  // Stored ranges versus ranges from the outlines.
  line.chars[1].range = Rect2d(20, 0, 1, 1);
  EXPECT_EQ(line.updateRangeFromCharRange(), Rect2d(10, 0, 11, 6));
  EXPECT_EQ(line.updateRangeFromCharPath(), Rect2d(10, 5, 3, 1));
  EXPECT_EQ(line.chars[1].range, Rect2d(12, 5, 1, 1));
  EXPECT_EQ(line.transform(Matrix2d::makeScale(2, 1, 10, 5)), Rect2d(10, 5, 6, 1));

  line.chars[0].charPath.push_back(polyline({{0, 0}}, 3));
  EXPECT_EQ(line.merge(), (PathsF2d{line.chars[0].charPath[0], line.chars[0].charPath[1],
                                    line.chars[1].charPath[0]}));
}

TEST(ContentBasePaths, LinesAndQueries) {
  ContentBasePaths content;
  EXPECT_THROW(content.widestLine(), std::out_of_range);
  EXPECT_THROW(content.tallestLine(), std::out_of_range);

  content.lines = {lineOf({boxChar(0, 0, 3, 1)}),
                   lineOf({boxChar(0, 2, 5, 1), boxChar(6, 2, 1, 4)}),
                   lineOf({boxChar(0, 7, 5, 4)})};
  EXPECT_EQ(content.totalCharCount(), 4u);
  EXPECT_EQ(content.updateRangeFromCharRange(), Rect2d(0, 0, 7, 11));
  EXPECT_EQ(content.lines[1].range, Rect2d(0, 2, 7, 4));
  // Widths 3, 7, 5 and heights 1, 4, 4: ties go to the earlier line.
  EXPECT_EQ(&content.widestLine(), &content.lines[1]);
  EXPECT_EQ(&content.tallestLine(), &content.lines[1]);
  content.lines[2].range.width = 7;
  EXPECT_EQ(&content.widestLine(), &content.lines[1]);

  EXPECT_EQ(content.translate(1, -1), Rect2d(1, -1, 7, 11));
  EXPECT_EQ(content.updateRangeFromCharPath(), Rect2d(1, -1, 7, 11));
  EXPECT_EQ(content.transform(Matrix2d::makeTranslate(-1, 1)), Rect2d(0, 0, 7, 11));
  const PathsF2d merged = content.merge();
  ASSERT_EQ(merged.size(), 4u);
  EXPECT_EQ(merged[3], content.lines[2].chars[0].charPath[0]);

  // Lines without extent: the first line; no characters: an empty range.
  ContentBasePaths empties;
  empties.lines.resize(3);
  EXPECT_EQ(&empties.widestLine(), &empties.lines[0]);
  EXPECT_EQ(&empties.tallestLine(), &empties.lines[0]);
  EXPECT_EQ(empties.updateRangeFromCharRange(), Rect2d::empty());
}
