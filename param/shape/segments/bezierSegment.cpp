#include <param/shape/segments/bezierSegment.h>

#include <algorithm>
#include <string>
#include <utility>

#include <utils/logger.h>

#include <param/errors.h>
#include <param/shape/segments/internal/shapeAssert.h>

namespace param {

// Point access asserts the degree allows it; loading never makes a segment it would
// refuse. setDegree does not check, so point walks stop at the four stored points.

BezierSegment::~BezierSegment() = default;
BezierSegment::BezierSegment(std::size_t deg, const Point2d& p0, const Point2d& p1,
                             const Point2d& p2, const Point2d& p3)
    : SegmentBase(SegmentType::Bezier), degree(deg), points{p0, p1, p2, p3} {
  PARAM_SHAPE_ASSERT(degree <= g_maxDegree);
}

namespace {

// A loaded or saved segment has 2 to 4 points: degree 0 (an empty segment) has
// no point that its accessors may give, and a degree beyond 3 has more points
// than the segment stores.
bool usableDegree(std::uint64_t degree) {
  return degree != 0 && degree <= g_maxDegree;
}

SdkError refuse(const std::string& what) {
  utils::Logger(utils::LogLevel::Warning, "Param")
      << "Bezier segment refused: " << what << " (degree 1 to 3, degree + 1 points)";
  return errc::badFormat;
}

SdkError refuse(const char* what, std::uint64_t value) {
  return refuse(what + (" " + std::to_string(value)));
}

}  // namespace

void BezierSegment::setDegree(std::size_t deg) {
  if (degree <= g_maxDegree) degree = deg;
}

Point2d& BezierSegment::operator[](std::size_t index) {
  PARAM_SHAPE_ASSERT(degree != 0 && degree <= g_maxDegree && index <= degree);
  return points[index];
}

Point2d BezierSegment::operator[](std::size_t index) const {
  PARAM_SHAPE_ASSERT(degree != 0 && degree <= g_maxDegree && index <= degree);
  return points[index];
}

Point2d& BezierSegment::firstPoint() {
  PARAM_SHAPE_ASSERT(degree != 0 && degree <= g_maxDegree);
  return points[0];
}

Point2d BezierSegment::firstPoint() const {
  PARAM_SHAPE_ASSERT(degree != 0 && degree <= g_maxDegree);
  return points[0];
}

Point2d& BezierSegment::lastPoint() {
  PARAM_SHAPE_ASSERT(degree != 0 && degree <= g_maxDegree);
  return points[degree];
}

Point2d BezierSegment::lastPoint() const {
  PARAM_SHAPE_ASSERT(degree != 0 && degree <= g_maxDegree);
  return points[degree];
}

void BezierSegment::reverse() {
  switch (degree) {
    case 1:
      std::swap(points[0], points[1]);
      break;
    case 2:
      std::swap(points[0], points[2]);
      break;
    case 3:
      std::swap(points[0], points[3]);
      std::swap(points[1], points[2]);
      break;
    default:
      break;
  }
}

BezierSegment& BezierSegment::postTransform(Matrix2d m) {
  // A degree beyond 3 (setDegree does not check) maps the four stored points.
  const std::size_t last = std::min<std::uint64_t>(degree, g_maxDegree);
  for (std::size_t i = 0; i <= last; ++i) {
    const double x = points[i].x, y = points[i].y;
    points[i].x = x * m[0] + y * m[2] + m[4];
    points[i].y = x * m[1] + y * m[3] + m[5];
  }
  return *this;
}

BezierSegment BezierSegment::postTransform(Matrix2d m) const {
  BezierSegment copy(*this);
  copy.postTransform(m);
  return copy;
}

bool BezierSegment::operator==(const BezierSegment& other) const {
  if (type != other.type || degree != other.degree) return false;
  const std::size_t last = std::min<std::uint64_t>(degree, g_maxDegree);
  return std::equal(points, points + last + 1, other.points);
}

SdkError BezierSegment::load(const SeriObject& obj) {
  std::uint64_t deg = 0;
  bool degreeRead = true;
  if (SdkError e = obj.get("degree", deg)) {
    if (errorStep(e)) return e;
    degreeRead = false;
  }
  if (degreeRead && !usableDegree(deg)) return refuse("degree", deg);
  SeriArray rows(utils::JsonLoad::instance);
  const SdkError fetched = obj.getSeriArray("points", rows);
  if (!degreeRead) {
    // The point count decides; an empty or missing array wraps to a huge degree.
    deg = (fetched == 0 ? rows.size() : 0) - std::uint64_t{1};
    if (!usableDegree(deg)) return refuse("point count", fetched == 0 ? rows.size() : 0);
  } else {
    if (fetched != 0) {
      if (SdkError e = errorStep(fetched)) return e;
      // Going on keeps the points as they are, which an empty segment cannot.
      return usableDegree(degree) ? 0 : refuse("no \"points\" for an empty segment");
    }
    if (rows.size() != deg + 1) return refuse("point count", rows.size());
  }
  degree = deg;

  for (std::size_t i = 0; i <= deg; ++i) {
    SeriArray row(utils::JsonLoad::instance);
    if (SdkError e = rows.getSeriArray(i, row)) {
      if (errorStep(e)) return e;
      continue;
    }
    double* coords[2] = {&points[i].x, &points[i].y};
    const std::size_t n = std::min<std::size_t>(row.size(), 2);
    for (std::size_t k = 0; k < n; ++k) {
      if (SdkError e = row.get(k, *coords[k])) {
        if (errorStep(e)) return e;
      }
    }
  }
  return 0;
}

SdkError BezierSegment::save(SeriObject& obj) const {
  if (SdkError e = SegmentBase::save(obj)) return e;
  if (!usableDegree(degree)) return refuse("degree", degree);
  if (SdkError e = errorStep(obj.set("degree", degree))) return e;

  SeriArray rows(utils::JsonSave::instance);
  rows.reserve(static_cast<std::size_t>(degree) + 1);
  SdkError e = 0;
  for (std::size_t i = 0; i <= degree && e == 0; ++i) {
    SeriArray row(utils::JsonSave::instance);
    e = row.add(points[i].x);
    if (e == 0) e = row.add(points[i].y);
    if (e == 0) e = rows.addSeriArray(std::move(row));
  }
  if (e == 0) e = obj.setSeriArray("points", std::move(rows));
  return errorStep(e);
}

}  // namespace param
