#include <climits>
#include <cmath>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include <param/shape/calcUtil.h>
#include <param/shape/rectF2ds.h>

#include "support/testSupport.h"

using param::CalcUtil;
using param::Point2d;
using param::Rect2d;
using utils::PointLinePosition;
using V = std::vector<Point2d>;
constexpr double kPi = std::numbers::pi;

TEST(CalcUtil, MeasuresAgainstHandComputedResults) {
  EXPECT_EQ(CalcUtil::getMidPoint({1, 2}, {3, 6}), Point2d(2, 4));
  // Coordinates are widened before subtracting: INT_MAX - INT_MIN does not overflow.
  EXPECT_DOUBLE_EQ(CalcUtil::distance(param::Point2dConcept<int>(INT_MAX, 0),
                                      param::Point2dConcept<int>(INT_MIN, 0)),
                   4294967295.0);
  EXPECT_DOUBLE_EQ(CalcUtil::distanceSmooth({0, 0}, {-3, 4}), 5.0);
  EXPECT_DOUBLE_EQ(CalcUtil::distancePtToSegSmooth({0, 0}, {10, 0}, {13, 4}), 5.0);  // past the end
  EXPECT_DOUBLE_EQ(CalcUtil::distancePtToSegSmooth({2, 2}, {2, 2}, {5, 6}), 5.0);    // zero length
  EXPECT_DOUBLE_EQ(CalcUtil::lineAngleX({1, 1}, {1, 3}), 90.0);
  EXPECT_DOUBLE_EQ(CalcUtil::lineSlope({1, 1}, {3, 2}), 0.5);
  EXPECT_TRUE(std::isinf(CalcUtil::lineSlope({1, 0}, {1, 5})));
  EXPECT_DOUBLE_EQ(CalcUtil::calcAngleBySide(1, 1, 1), kPi / 3);
  EXPECT_DOUBLE_EQ(CalcUtil::radianOf3Point({1, 1}, {0, 0}, {2, 0}), kPi / 4);
  EXPECT_EQ(CalcUtil::pointAtLineLeftRight({0, 0}, {1, 0}, {0, 2}), PointLinePosition::Left);
  EXPECT_EQ(CalcUtil::pointAtLineLeftRight({0, 0}, {1, 0}, {0, -1}), PointLinePosition::Right);
  EXPECT_EQ(CalcUtil::pointAtLineLeftRight({0, 0}, {1, 0}, {5, 0}), PointLinePosition::OnLine);
  EXPECT_EQ(CalcUtil::normalPnt({5, -5}, 4, 2), Point2d(2, -1));

  Point2d centre(9, 9);
  double radius = 9;
  ASSERT_TRUE(CalcUtil::getCircleFrom3P({0, 0}, {4, 0}, {0, 2}, centre, radius));
  EXPECT_POINT_NEAR(centre, 2, 1);
  EXPECT_DOUBLE_EQ(radius, std::sqrt(5.0));
  radius = 9;
  EXPECT_FALSE(CalcUtil::getCircleFrom3P({0, 0}, {1, 1}, {2, 2}, centre, radius));
  EXPECT_TRUE(centre == Point2d(0, 0) && radius == 9);  // the centre is written all the same
}

TEST(CalcUtil, OrientationAndOnSegment) {
  EXPECT_EQ(CalcUtil::orientation3P({0, 0}, {1, 0}, {0, 1}), -1);
  EXPECT_EQ(CalcUtil::orientation3P({0, 0}, {1, 0}, {0, -1}), 1);
  EXPECT_EQ(CalcUtil::orientation3P({0, 0}, {1, 0}, {0.5, 1e-7}), 0);
  EXPECT_EQ(CalcUtil::orientation3P({0, 0}, {1, 0}, {0.5, 2e-6}), -1);
  // Without tolerance: collinear and inside the box widened by 0.0001.
  EXPECT_TRUE(CalcUtil::onSegment({0, 0}, {0, 0}, {2, 0}, 0.0));
  EXPECT_TRUE(CalcUtil::onSegment({0, 0}, {2.00005, 0}, {2, 0}, 0.0));
  EXPECT_FALSE(CalcUtil::onSegment({0, 0}, {2.0002, 0}, {2, 0}, 0.0));
  EXPECT_FALSE(CalcUtil::onSegment({0, 0}, {1, 0.001}, {2, 0}, 0.0));
  // With tolerance: the distance to the segment a-c.
  EXPECT_TRUE(CalcUtil::onSegment({0, 0}, {1, 0.4}, {2, 0}, 0.5));
  EXPECT_FALSE(CalcUtil::onSegment({0, 0}, {2.6, 0}, {2, 0}, 0.5));
}

TEST(CalcUtil, LineAndSegmentCrossings) {
  Point2d out(5, 5);
  EXPECT_FALSE(CalcUtil::getTwoLineIntersectPt({0, 0}, {1, 1}, {0, 1}, {1, 2}, out));
  EXPECT_EQ(out, Point2d(0, 0));
  EXPECT_TRUE(CalcUtil::getTwoLineIntersectPt({0, 0}, {1, 1}, {3, 0}, {2, 1}, out));
  EXPECT_POINT_NEAR(out, 1.5, 1.5);

  out = {5, 5};
  EXPECT_FALSE(CalcUtil::getTwoLineSegIntersectPt({0, 0}, {1, 1}, {0, 1}, {1, 2}, out));
  EXPECT_EQ(out, Point2d(5, 5));  // parallel: untouched
  EXPECT_TRUE(CalcUtil::getTwoLineSegIntersectPt({0, 0}, {2, 2}, {0, 2}, {2, 0}, out));
  EXPECT_POINT_NEAR(out, 1, 1);
  // The lines cross at (1.5, 1.5): outside one or both segments, but written.
  EXPECT_FALSE(CalcUtil::getTwoLineSegIntersectPt({0, 0}, {1, 1}, {3, 0}, {2, 1}, out));
  EXPECT_POINT_NEAR(out, 1.5, 1.5);
  EXPECT_FALSE(CalcUtil::getTwoLineSegIntersectPt({0, 0}, {2, 2}, {3, 0}, {2.5, 0.5}, out));
  EXPECT_FALSE(CalcUtil::getTwoLineSegIntersectPt({3, 0}, {2.5, 0.5}, {0, 0}, {2, 2}, out));

  EXPECT_TRUE(CalcUtil::getExtensionCord({0, 0}, {3, 4}, 5, out));
  EXPECT_POINT_NEAR(out, 6, 8);
  EXPECT_FALSE(CalcUtil::getExtensionCord({1, 1}, {1.00005, 0.99995}, 2, out));
  EXPECT_EQ(out, Point2d(1.00005, 0.99995));
}

TEST(CalcUtil, SegmentIntersectionCases) {
  auto expectCase = [](Point2d p1, Point2d q1, Point2d p2, Point2d q2, double tolerance,
                       int expected, const V& expectedPoints) {
    V pts{{9, 9}};
    EXPECT_EQ(CalcUtil::getTwoLineSegIntersect(p1, q1, p2, q2, pts, tolerance), expected);
    EXPECT_EQ(pts, expectedPoints) << "case " << expected;
  };
  expectCase({0, 0}, {2, 2}, {0, 2}, {2, 0}, 0, 1, {{1, 1}});
  // Collinear overlaps; case 4 reports p1 and q2.
  expectCase({0, 0}, {2, 0}, {1, 0}, {3, 0}, 0, 2, {{1, 0}, {2, 0}});
  expectCase({0, 0}, {2, 0}, {3, 0}, {1, 0}, 0, 3, {{0, 0}, {1, 0}});
  expectCase({1, 0}, {2, 0}, {0, 0}, {3, 0}, 0, 4, {{1, 0}, {3, 0}});
  // Near misses by 0.05: nothing without tolerance, a touch with 0.1; case 7
  // reports p1, not q1.
  expectCase({1, 0.05}, {1, 1}, {0, 0}, {2, 0}, 0, 0, {});
  expectCase({1, 0.05}, {1, 1}, {0, 0}, {2, 0}, 0.1, 6, {{1, 0.05}});
  expectCase({0, 0}, {1, 0}, {1.05, -1}, {1.05, 1}, 0.1, 7, {{0, 0}});
  expectCase({0, 0}, {2, 0}, {1, 0.05}, {1, 1}, 0.1, 8, {{1, 0.05}});
  expectCase({0, 0}, {2, 0}, {1, 1}, {1, 0.05}, 0.1, 9, {{1, 0.05}});
  expectCase({0, 0}, {2, 0}, {1, 1}, {1, 0.5}, 0.1, 0, {});
}

TEST(CalcUtil, SecantLineByRect) {
  testing_support::LogCapture log;
  auto clip = [&](Point2d a, Point2d b) {
    V pts;
    const std::size_t count = CalcUtil::secantLineByRect(a, b, Rect2d(0, 0, 10, 10), pts);
    EXPECT_EQ(count, pts.size());
    return pts;
  };
  // Through two edges, ordered along the segment whichever way it runs.
  EXPECT_EQ(clip({-5, 5}, {15, 5}), (V{{0, 5}, {10, 5}}));
  EXPECT_EQ(clip({15, 5}, {-5, 5}), (V{{10, 5}, {0, 5}}));
  EXPECT_EQ(clip({5, -5}, {5, 15}), (V{{5, 0}, {5, 10}}));
  // Through two corners: four crossings, duplicates of the first removed.
  EXPECT_EQ(clip({-1, 11}, {11, -1}), (V{{0, 10}, {10, 0}}));
  // One end inside; an end on the boundary counts as inside.
  EXPECT_EQ(clip({5, 5}, {15, 5}), (V{{5, 5}, {10, 5}}));
  EXPECT_EQ(clip({5, -5}, {5, 5}), (V{{5, 0}, {5, 5}}));
  EXPECT_EQ(clip({5, 5}, {10, 5}), (V{{5, 5}, {10, 5}}));
  // Wholly outside; touching one corner gives that corner twice.
  EXPECT_TRUE(clip({20, 20}, {30, 30}).empty());
  EXPECT_EQ(clip({-1, 1}, {1, -1}), (V{{0, 0}, {0, 0}}));
  EXPECT_TRUE(log.lines.empty());
  // Starting on the boundary and running away: one point, and a log line.
  EXPECT_EQ(clip({0, 5}, {-5, 5}), (V{{0, 5}}));
  EXPECT_EQ(log.formatted(),
            std::vector<std::string>{"2 Param: the valid points size is error : 1"});
}

TEST(CalcUtil, ConvertPathAndBounds) {
  param::PathF2d line{{0, 0}, {2, 1}}, ignored{{-10, -10}, {50, 50}};
  line.type = 5;
  ignored.type = 16;  // counts for its own bounds only, never for a list's
  param::PathsF2d first{line, ignored};
  first.tag = 42;
  param::MultiPathsF2d multi{first, param::PathsF2d{param::PathF2d{{5, 5}}}};

  // Out and back: points, kinds and tags are kept, bounds are computed afresh.
  param::ShapePath shape;
  CalcUtil::convertPath(multi, shape);
  param::PathData data{{0, 0, 0}, {2, 1, 0}};
  data.type = 5;
  EXPECT_EQ(shape[0][0], data);
  EXPECT_EQ(shape[0].tag, 42);
  EXPECT_EQ(shape.bounds, Rect2d(0, 0, 5, 5));
  shape.bounds = Rect2d(7, 7, 7, 7);
  param::MultiPathsF2d back;
  CalcUtil::convertPath(shape, back);
  multi.bounds = Rect2d(0, 0, 5, 5);
  EXPECT_EQ(back, multi);

  // Wrapping a single item.
  param::UnitPath unit;
  CalcUtil::convertPath(data, unit);
  EXPECT_EQ(unit, param::UnitPath{data});
  CalcUtil::convertPath(unit, shape);
  EXPECT_EQ(shape.size(), 1u);
  EXPECT_EQ(shape.bounds, Rect2d(0, 0, 2, 1));

  EXPECT_EQ(CalcUtil::bounds(ignored), Rect2d(-10, -10, 60, 60));
  EXPECT_EQ(CalcUtil::bounds(param::PathsF2d{ignored}), Rect2d::empty());
  EXPECT_EQ(param::RectF2ds().merge(), Rect2d::empty());
  EXPECT_EQ(param::RectF2ds(3).merge(), Rect2d(0, 0, 0, 0));
  EXPECT_EQ((param::RectF2ds{{-2, 1, 1, 1}, {0, -3, 4, 1}}).merge(), Rect2d(-2, -3, 6, 5));
  // A leading invalid rectangle is taken over and then replaced; later ones are skipped.
  EXPECT_EQ((param::RectF2ds{{5, 5, -1, 2}, {1, 1, 1, 1}}).merge(), Rect2d(1, 1, 1, 1));
  EXPECT_EQ((param::RectF2ds{{1, 1, 1, 1}, {0, 0, 5, -1}}).merge(), Rect2d(1, 1, 1, 1));
}
