#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <utils/errorHandle.h>

#include <param/errors.h>
#include <param/seri/recordIo.h>
#include <param/shape/bezierPath.h>
#include <param/shape/segments/arcSegment.h>
#include <param/shape/segments/cardinalSplineSegment.h>
#include <param/shape/segments/lineSegment.h>
#include <param/shape/segments/nurbsSegment.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::jsonOf;
using testing_support::parsed;
using testing_support::RecordingHandler;
using utils::ErrorResponseType;
using utils::ScopedErrorHandler;
using Segments = std::vector<std::shared_ptr<SegmentBase>>;

namespace {

BezierSegment cubic(double x = 0) {
  return BezierSegment(3, {x, 0}, {x + 1, 2}, {x + 3, 2}, {x + 4, 0});
}

}  // namespace

TEST(Segments, LineAndArcLoadErrors) {
  LineSegment line({1, 1}, {2, 2});
  {
    ScopedErrorHandler ignore(ErrorResponseType::Ignore);
    EXPECT_EQ(line.load(parsed(R"({"start":{"x":5,"y":6}})")), 0u);
    EXPECT_EQ(line, LineSegment({5, 6}, {2, 2}));  // the missing end is kept
  }
  ScopedErrorHandler abort(ErrorResponseType::Abort);
  EXPECT_EQ(line.load(parsed(R"({"start":{"x":0,"y":0}})")), utils::errc::keyMissing);

  ArcSegment a(ArcParamType::Bulge);
  a.start = a.second = a.third = {1, 1};
  const ArcSegment before = a;
  EXPECT_EQ(a.load(parsed(R"({"type":2,"paramType":3,"start":{"x":5,"y":5}})")),
            errc::badArcParamType);
  EXPECT_EQ(a, before);
}

TEST(Segments, CreateByKindOrFromJson) {
  auto made = SegmentBase::createSegment(SegmentType::Arc);
  ASSERT_TRUE(std::dynamic_pointer_cast<ArcSegment>(made));
  EXPECT_EQ(std::static_pointer_cast<ArcSegment>(made)->paramType, ArcParamType::ThreePoint);

  // Bad JSON gives no segment; an unknown kind is logged.
  ScopedErrorHandler abort(ErrorResponseType::Abort);
  testing_support::LogCapture log;
  for (const char* text : {
           R"({"type":9})",
           R"({"start":{"x":1,"y":2}})",
           R"({"type":1,"start":5,"end":{"x":0,"y":0}})",
           R"({"type":2,"paramType":0})",
           R"({"type":3,"degree":4,"points":[]})",
           R"({"type":3,"points":[[1,2]]})",  // stops at the missing "degree"
           R"({"type":3,"degree":0,"points":[[1,2]]})",
           R"({"type":3,"degree":1,"points":[[0,0],[1,true]]})",
           R"({"type":4,"degree":1,"controlPoints":[{"x":0}],"knots":[]})",
           R"({"type":5,"tension":"high","knots":[]})",
       }) {
    EXPECT_FALSE(SegmentBase::createSegment(parsed(text))) << text;
  }
  const std::string bezier = "2 Param: Bezier segment refused: ";
  const char* rule = " (degree 1 to 3, degree + 1 points)";
  // Skipped keys are also reported at warning and information level; these
  // are the segment's own lines.
  std::vector<std::string> lines = log.formatted();
  std::erase_if(lines, [&](const std::string& line) {
    return line[0] != '3' && line.rfind(bezier, 0) != 0;
  });
  EXPECT_EQ(lines, (std::vector<std::string>{"3 Param: unknown segment type: 9",
                                             "3 Param: unknown segment type: 0",
                                             bezier + "degree 4" + rule, bezier + "degree 0" + rule}));

  // When the handler lets it go on, the malformed key is skipped; but a new
  // Bezier segment without readable points stays empty, so it is refused.
  ScopedErrorHandler ignore(ErrorResponseType::Ignore);
  EXPECT_FALSE(SegmentBase::createSegment(parsed(R"({"type":3,"degree":1,"po":[[0,0],[1,1]]})")));
  auto lenient = SegmentBase::createSegment(parsed(R"({"type":1,"start":5,"end":{"x":3,"y":4}})"));
  ASSERT_TRUE(lenient);
  EXPECT_EQ(*std::static_pointer_cast<LineSegment>(lenient), LineSegment({0, 0}, {3, 4}));
}

TEST(Segments, BezierLoadRules) {
  RecordingHandler handler(ErrorResponseType::Ignore);
  BezierSegment b = cubic();
  // Without "degree" the point count decides.
  ASSERT_EQ(b.load(parsed(R"({"type":3,"points":[[0,0],[1,1],[2,0]]})")), 0u);
  EXPECT_EQ(b, BezierSegment(2, {0, 0}, {1, 1}, {2, 0}, {}));
  EXPECT_EQ(b.points[3], Point2d(4, 0));  // beyond the degree: kept

  b = cubic();
  for (const char* text : {
           R"({"degree":4,"points":[[0,0],[0,0],[0,0],[0,0],[0,0]]})",
           R"({"degree":2,"points":[[0,0],[0,0],[0,0],[0,0]]})",
           R"({"points":[]})",
           R"({"points":[[0,0],[0,0],[0,0],[0,0],[0,0]]})",
           R"({})",
           R"({"points":[[1,2]]})",
           R"({"degree":0,"points":[[1,2]]})",
           R"({"degree":0})",
       }) {
    EXPECT_EQ(b.load(parsed(text)), errc::badFormat) << text;
    EXPECT_EQ(b, cubic()) << text;
  }
  // An empty segment is not saved either: it could not be loaded back.
  SeriObject out(utils::JsonSave::instance);
  EXPECT_EQ(BezierSegment().save(out), errc::badFormat);
  // "degree" read but "points" missing: skipped, nothing changes.
  handler.codes.clear();
  EXPECT_EQ(b.load(parsed(R"({"degree":1})")), 0u);
  EXPECT_EQ(handler.calls(), 1u);
  EXPECT_EQ(b, cubic());

  // Bad coordinates and entries keep their values; short entries fill a prefix.
  handler.codes.clear();
  ASSERT_EQ(b.load(parsed(R"({"degree":3,"points":[["a",5],[7],9,[8,8,8]]})")), 0u);
  EXPECT_EQ(handler.calls(), 2u);
  EXPECT_EQ(b, BezierSegment(3, {0, 5}, {7, 2}, {3, 2}, {8, 8}));
}

TEST(Bezier, ReverseDegreeAndTransform) {
  BezierSegment q(2, {0, 0}, {1, 1}, {2, 0}, {9, 9});
  q.reverse();
  EXPECT_EQ(q.points[0], Point2d(2, 0));
  EXPECT_EQ(q.points[3], Point2d(9, 9));  // beyond the degree: kept
  const BezierSegment moved = std::as_const(q).postTransform(Matrix2d::makeTranslate(1, 0));
  EXPECT_EQ(q.points[0], Point2d(2, 0));
  EXPECT_EQ(moved, BezierSegment(2, {3, 0}, {2, 1}, {1, 0}, {}));
  EXPECT_EQ(moved.points[3], Point2d(9, 9));  // beyond the degree: not moved

  // Each path turns its segments and their order.
  BezierPaths set{BezierPath{cubic(0)}, BezierPath{cubic(10), cubic(20)}};
  set.reverse();
  ASSERT_EQ(set[0].size(), 2u);
  EXPECT_EQ(set[0][0], BezierSegment(3, {24, 0}, {23, 2}, {21, 2}, {20, 0}));

  BezierPath path{BezierSegment(1, {0, 0}, {1, 0}, {}, {}), cubic()};
  path.setDegree(2);
  EXPECT_TRUE(path[0].degree == 2 && path[1].degree == 2);
  path[0].setDegree(7);  // not checked, and a degree beyond 3 is then kept
  path.setDegree(1);
  EXPECT_EQ(path[0].degree, 7u);
  EXPECT_EQ(path[1].degree, 1u);

  const BezierPaths movedSet = std::as_const(set).postTransform(Matrix2d::makeTranslate(5, -1));
  EXPECT_EQ(set[1][0].lastPoint(), Point2d(0, 0));
  EXPECT_EQ(movedSet[1][0].lastPoint(), Point2d(5, -1));
  set.postTransform(Matrix2d::makeScale(2, 2, 0, 0));
  EXPECT_EQ(set[1][0][1], Point2d(6, 4));
}

TEST(SegmentsDeathTest, BezierAssertions) {
  EXPECT_DEATH(BezierSegment(4, {}, {}, {}, {}),
               "degree <= g_maxDegree, file shape/segments/bezierSegment.cpp, line 21");
  BezierSegment q(2, {}, {}, {}, {});
  EXPECT_DEATH(q[3], "degree != 0 && degree <= g_maxDegree && index <= degree");
  BezierSegment empty;
  EXPECT_DEATH(empty.lastPoint(), "degree != 0 && degree <= g_maxDegree");
}

TEST(Segments, PointListsAreReadAllOrNothing) {
  RecordingHandler handler(ErrorResponseType::Ignore);
  NURBSSegment n;
  n.controlPoints = {{9, 9}};
  n.flag = false;
  EXPECT_EQ(n.load(parsed(R"({"degree":2,"controlPoints":[{"x":0,"y":0},{"x":"a","y":1}],)"
                          R"("knots":[0,1]})")),
            0u);
  EXPECT_EQ(handler.calls(), 1u);  // once for the list, not per coordinate
  EXPECT_TRUE(n.degree == 2 && n.knots == std::vector<double>({0, 1}));
  EXPECT_TRUE(n.controlPoints == std::vector<Point2d>({{9, 9}}) && !n.flag);
  ASSERT_EQ(n.load(parsed(R"({"controlPoints":[{"x":1,"y":2}],"knots":[0,"x"]})")), 0u);
  EXPECT_EQ(n.knots, std::vector<double>({0, 1}));
  EXPECT_TRUE(n.controlPoints == std::vector<Point2d>({{1, 2}}) && n.flag);  // flag set back

  CardinalSplineSegment s;
  s.knots = {{9, 9}};
  EXPECT_EQ(s.load(parsed(R"({"tension":0.25,"knots":[{"x":1,"y":1},3]})")), 0u);
  EXPECT_EQ(s.tension, 0.25);
  EXPECT_EQ(s.knots, (std::vector<Point2d>{{9, 9}}));
}

TEST(Segments, PathOfEveryKindLoadsAndSaves) {
  ScopedErrorHandler abort(ErrorResponseType::Abort);
  const std::string text =
      R"({"segments":[{"type":1,"start":{"x":1,"y":2},"end":{"x":3,"y":4.5}},)"
      R"({"type":2,"paramType":1,"start":{"x":0,"y":0},"arc":{"x":1,"y":1},"end":{"x":2,"y":0}},)"
      R"({"type":2,"paramType":2,"start":{"x":0,"y":0},"end":{"x":2,"y":0},"bulge":-0.375},)"
      R"({"type":3,"degree":2,"points":[[0,0],[1,1],[2,0]]},)"
      R"({"type":4,"degree":1,"controlPoints":[{"x":0,"y":0}],"knots":[0,1]},)"
      R"({"type":5,"tension":0.5,"knots":[{"x":0,"y":0},{"x":1,"y":2}]}]})";
  Segments path;
  ASSERT_EQ(RecordLoader(parsed(text))("segments", path).result(), 0u);
  ASSERT_EQ(path.size(), 6u);
  const auto& threePoint = dynamic_cast<const ArcSegment&>(*path[1]);
  const auto& bulge = dynamic_cast<const ArcSegment&>(*path[2]);
  EXPECT_TRUE(threePoint.second == Point2d(1, 1) && threePoint.endPoint() == Point2d(2, 0));
  EXPECT_TRUE(bulge.bulge() == -0.375 && bulge.endPoint() == Point2d(2, 0));
  SeriObject out(utils::JsonSave::instance);
  ASSERT_EQ(RecordSaver(out)("segments", path).result(), 0u);
  EXPECT_EQ(out.stringfy(), text);

  // One segment of an unknown kind fails the list, which is left as it was.
  const auto bad = parsed(R"({"segments":[{"type":1,"start":{"x":0,"y":0},)"
                          R"("end":{"x":0,"y":0}},{"type":8}]})");
  EXPECT_EQ(RecordLoader(bad)("segments", path).result(), errc::badFormat);
  EXPECT_EQ(path.size(), 6u);
  EXPECT_EQ(RecordSaver(out)("nulls", Segments{nullptr}).result(), errc::badFormat);
}
