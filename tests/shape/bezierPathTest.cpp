#include <gtest/gtest.h>

#include <param/shape/bezierPath.h>

using namespace param;

namespace {

BezierSegment cubic(double base) {
  return BezierSegment(3, {base, 0}, {base + 1, 1}, {base + 2, 1}, {base + 3, 0});
}

std::vector<Point2d> points(const BezierPath& path) {
  std::vector<Point2d> out;
  for (const auto& s : path)
    out.insert(out.end(), s.points, s.points + s.size());
  return out;
}

}  // namespace

TEST(BezierPath, ReverseTurnsSegmentsAndTheirOrder) {
  BezierPath path{cubic(0), cubic(10)};
  path.reverse();
  EXPECT_EQ(points(path), (std::vector<Point2d>{{13, 0},
                                                {12, 1},
                                                {11, 1},
                                                {10, 0},  //
                                                {3, 0},
                                                {2, 1},
                                                {1, 1},
                                                {0, 0}}));
  BezierPath empty;
  empty.reverse();
  EXPECT_TRUE(empty.empty());

  BezierPaths set{BezierPath{cubic(0)}, BezierPath{cubic(10), cubic(20)}};
  set.reverse();
  ASSERT_EQ(set.size(), 2u);
  EXPECT_EQ(set[0].size(), 2u);  // the second curve comes first, itself reversed
  EXPECT_EQ(set[0][0].firstPoint(), Point2d(23, 0));
  EXPECT_EQ(set[1][0].firstPoint(), Point2d(3, 0));
  BezierPaths none;
  none.reverse();
  EXPECT_TRUE(none.empty());
}

TEST(BezierPath, DegreeAndTransform) {
  BezierPath path{BezierSegment(1, {0, 0}, {1, 0}, {}, {}), cubic(0)};
  path.setDegree(2);
  EXPECT_EQ(path[0].degree, 2u);
  EXPECT_EQ(path[1].degree, 2u);
  path[0].setDegree(7);
  path.setDegree(1);
  EXPECT_EQ(path[0].degree, 7u);  // beyond 3 already: kept
  EXPECT_EQ(path[1].degree, 1u);

  BezierPaths set{BezierPath{cubic(0)}};
  const BezierPaths moved = std::as_const(set).postTransform(Matrix2d::makeTranslate(5, -1));
  EXPECT_EQ(set[0][0].lastPoint(), Point2d(3, 0));
  EXPECT_EQ(moved[0][0].lastPoint(), Point2d(8, -1));
  set.postTransform(Matrix2d::makeScale(2, 2, 0, 0));
  EXPECT_EQ(set[0][0][1], Point2d(2, 2));
}
