// Geometry routines on arbitrary doubles: every CalcUtil routine, the utils
// routines beneath them, Matrix2d's operations, Bezier transforms, the path
// conversions and bounds, and the text-layout paths. Any double goes (NaN,
// infinities, subnormals, huge values): no routine may crash, hang or do
// undefined arithmetic, and the answers that are counted or classified must be
// in their range.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <utils/geometry.h>

#include <param/shape/bezierPath.h>
#include <param/shape/calcUtil.h>
#include <param/shape/contentBasePaths.h>
#include <param/shape/matrix2d.h>

#include "fuzzInput.h"

namespace {

using namespace param;

[[noreturn]] void fail(const char* what, long long value) {
  std::fprintf(stderr, "%s: %lld\n", what, value);
  std::abort();
}

// Doubles: any bits, or small multiples of 1/8 (exact ties and collinear points).
struct Numbers {
  fuzz::Input& in;
  bool anyBits;
  double next() { return anyBits ? in.real() : in.take<std::int8_t>() / 8.0; }
  Point2d point() {
    const double x = next();
    return Point2d(x, next());
  }
  Matrix2d matrix() {
    double m[6];
    for (double& v : m)
      v = next();
    return Matrix2d(m);
  }
};

void routines(Numbers& n, std::uint8_t op) {
  namespace g = utils::_impl;
  const Point2d a = n.point(), b = n.point(), c = n.point(), d = n.point();
  const double t = n.next();
  volatile double sink = 0;
  switch (op % 16) {
    case 0:
      sink = CalcUtil::distance(a, b) + CalcUtil::distanceSmooth(a, b) +
             CalcUtil::distancePtToSegSmooth(a, b, c) + CalcUtil::getMidPoint(a, b).x;
      break;
    case 1:
      sink = CalcUtil::lineAngleX(a, b) + CalcUtil::lineSlope(a, b) +
             CalcUtil::calcAngleBySide(a.x, a.y, b.x) + CalcUtil::radianOf3Point(a, b, c);
      break;
    case 2: {
      Point2d centre;
      double r = 0;
      sink = CalcUtil::getCircleFrom3P(a, b, c, centre, r) + centre.x + r;
      break;
    }
    case 3: {
      const int o = CalcUtil::orientation3P(a, b, c);
      if (o < -1 || o > 1) fail("orientation out of range", o);
      const auto side = static_cast<int>(CalcUtil::pointAtLineLeftRight(a, b, c));
      if (side < 0 || side > 2) fail("side out of range", side);
      break;
    }
    case 4:
      sink = CalcUtil::normalPnt(a, b.x, b.y).x + CalcUtil::onSegment(a, b, c, t);
      break;
    case 5: {
      Point2d out;
      sink = CalcUtil::getTwoLineIntersectPt(a, b, c, d, out) +
             CalcUtil::getTwoLineSegIntersectPt(a, b, c, d, out) + out.x;
      break;
    }
    case 6: {
      std::vector<Point2d> points{a};
      const int kind = CalcUtil::getTwoLineSegIntersect(a, b, c, d, points, t);
      static const std::size_t expected[] = {0, 1, 2, 2, 2, 2, 1, 1, 1, 1};
      if (kind < 0 || kind > 9) fail("crossing kind out of range", kind);
      if (points.size() != expected[kind]) fail("points for the crossing kind", kind);
      break;
    }
    case 7: {
      Point2d out;
      sink = CalcUtil::getExtensionCord(a, b, t, out) + out.y;
      break;
    }
    case 8: {
      std::vector<Point2d> points;
      const std::size_t count =
          CalcUtil::secantLineByRect(a, b, Rect2d(c.x, c.y, d.x, d.y), points);
      if (count != points.size() || count > 2)
        fail("clipped points", static_cast<long long>(count));
      break;
    }
    case 9: {
      double cx = 0, cy = 0, r = 0, x = 0, y = 0;
      sink = g::radianOfVector(a.x, a.y) + g::slopeByTwoPoints(a.x, a.y, b.x, b.y, t) +
             g::circleFrom3Points(a.x, a.y, b.x, b.y, c.x, c.y, cx, cy, r, t) +
             g::lineCrossPoint(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y, x, y, t) +
             static_cast<int>(g::pointLinePosition(a.x, a.y, b.x, b.y, c.x, c.y, t));
      break;
    }
    case 10: {
      Matrix2d m = n.matrix();
      m.translate(a.x, a.y).scale(b.x, b.y, c.x, c.y).rotate(d.x, d.y, t);
      m.mirror(a.x, b.y, t > 0, t < 0).shear(c.x, c.y, d.x, d.y);
      m.preConcat(n.matrix()).postConcat(Matrix2d::makeShear(a.x, a.y, b.x, b.y));
      Matrix2d::rotateEx(m, a.x, a.y, b.x, b.y);
      double tx, ty, rot, sx, sy, hx, hy;
      sink = m.deconstruct(tx, ty, rot, sx, sy, hx, hy) + m.determinant() + m.reversible();
      break;
    }
    case 11: {
      const Matrix2d m =
          Matrix2d::makeRotate(t, a.x, a.y) * Matrix2d::makeScale(b.x, b.y, c.x, c.y) *
          Matrix2d::makeMirror(t > 0, d.x > 0, d.x, d.y) * Matrix2d::makeTranslate(c.x, c.y);
      BezierPath path{BezierSegment(n.in.pick(4), a, b, c, d), BezierSegment(3, d, c, b, a)};
      path.postTransform(m).reverse();
      path.setDegree(n.in.pick(4));
      sink = path[0].points[0].x;
      break;
    }
    default: {
      // Paths: one to three polylines of up to eight points, through the
      // conversions, the bounds and the text-layout containers.
      PathsF2d paths;
      for (std::size_t k = n.in.pick(3) + 1; k > 0; --k) {
        PathF2d line;
        for (std::size_t p = n.in.pick(8); p > 0; --p)
          line.push_back(n.point());
        line.type = n.in.byte();
        paths.push_back(line);
      }
      MultiPathsF2d multi{paths, paths};
      ShapePath shape;
      CalcUtil::convertPath(multi, shape);
      MultiPathsF2d back;
      CalcUtil::convertPath(shape, back);
      sink = CalcUtil::bounds(paths).width + CalcUtil::bounds(shape).height + back.bounds.x;

      CharBasePath ch(L'x');
      ch.charPath = paths;
      LineBasePaths line;
      line.chars = {ch, ch};
      ContentBasePaths content;
      content.lines = {line};
      content.transform(n.matrix());
      content.translate(a.x, a.y);
      content.updateRangeFromCharPath();
      sink = content.merge().size() + content.totalCharCount() + content.widestLine().range.x +
             content.tallestLine().range.y;
      break;
    }
  }
  (void)sink;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::quietLog();
  fuzz::Input in(data, size);
  const std::uint8_t mode = in.byte();
  Numbers numbers{in, (mode & 1) != 0};
  while (!in.empty())
    routines(numbers, in.byte());
  return 0;
}
