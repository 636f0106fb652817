#include <param/shape/matrix2d.h>

#include <algorithm>
#include <cmath>

#include <utils/geometry.h>

namespace param {

namespace {
constexpr double kDegToRad = 0.017453292519943295;
constexpr double kRadToDeg = 57.29577951308232;
constexpr double kSameElement = 0.0001;

// Every element of `a` within 0.0001 of `b` (strict), compared in index order.
bool sameElements(const Matrix2d& a, const Matrix2d& b) {
  for (std::size_t i = 0; i < 6; ++i) {
    const double diff = a[i] - b[i];
    if (!(-kSameElement < diff && diff < kSameElement)) return false;
  }
  return true;
}
}  // namespace

Matrix2d::Matrix2d(double const (&values)[6]) {
  std::copy(values, values + 6, m_);
}

Matrix2d& Matrix2d::reset() {
  return resetMatrix(*this);
}

Matrix2d& Matrix2d::resetMatrix(Matrix2d& m) {
  m = Matrix2d();
  return m;
}

Matrix2d Matrix2d::make(double a, double b, double c, double d, double tx, double ty) {
  const double values[6] = {a, b, c, d, tx, ty};
  return Matrix2d(values);
}

Matrix2d Matrix2d::makeTranslate(double dx, double dy) {
  return Matrix2d().translate(dx, dy);
}

Matrix2d Matrix2d::makeScale(double sx, double sy, double cx, double cy) {
  return Matrix2d().scale(cx, cy, sx, sy);
}

Matrix2d Matrix2d::makeRotate(double angle, double cx, double cy) {
  return Matrix2d().rotate(cx, cy, angle);
}

Matrix2d Matrix2d::makeMirror(bool flag1, bool flag2, double cx, double cy) {
  return Matrix2d().mirror(cx, cy, flag1, flag2);
}

Matrix2d Matrix2d::makeShear(double angleX, double angleY, double cx, double cy) {
  return Matrix2d().shear(cx, cy, angleX, angleY);
}

// ---- translate ----

Matrix2d& Matrix2d::translate(Matrix2d& m, double dx, double dy) {
  m.m_[4] += dx;
  m.m_[5] += dy;
  return m;
}
Matrix2d& Matrix2d::translate(double dx, double dy) {
  return translate(*this, dx, dy);
}
Matrix2d Matrix2d::translate(double dx, double dy) const {
  Matrix2d copy(*this);
  return translate(copy, dx, dy);
}

Matrix2d& Matrix2d::translateTo(Matrix2d& m, double fromX, double fromY, double toX, double toY) {
  return translate(m, toX - fromX, toY - fromY);
}

// ---- scale ----

Matrix2d& Matrix2d::scale(Matrix2d& m, double cx, double cy, double sx, double sy) {
  double* e = m.m_;
  e[0] *= sx;
  e[1] *= sy;
  e[2] *= sx;
  e[3] *= sy;
  e[4] = (1.0 - sx) * cx + sx * e[4];
  e[5] = (1.0 - sy) * cy + sy * e[5];
  return m;
}
Matrix2d& Matrix2d::scale(double cx, double cy, double sx, double sy) {
  return scale(*this, cx, cy, sx, sy);
}
Matrix2d Matrix2d::scale(double cx, double cy, double sx, double sy) const {
  Matrix2d copy(*this);
  return scale(copy, cx, cy, sx, sy);
}

Matrix2d& Matrix2d::mirrorEx(Matrix2d& m, double cx, double cy, double sx, double sy) {
  return scale(m, cx, cy, sx, sy);
}

// ---- rotate ----

Matrix2d& Matrix2d::rotateEx(Matrix2d& m, double cx, double cy, double sinA, double cosA) {
  const double a = m.m_[0], b = m.m_[1], c = m.m_[2], d = m.m_[3], tx = m.m_[4], ty = m.m_[5];
  m.m_[0] = a * cosA - b * sinA;
  m.m_[1] = b * cosA + a * sinA;
  m.m_[2] = c * cosA - d * sinA;
  m.m_[3] = d * cosA + c * sinA;
  m.m_[4] = (tx - cx) * cosA - (ty - cy) * sinA + cx;
  m.m_[5] = (ty - cy) * cosA + (tx - cx) * sinA + cy;
  return m;
}
Matrix2d& Matrix2d::rotate(Matrix2d& m, double cx, double cy, double angle) {
  const double r = angle * kDegToRad;
  return rotateEx(m, cx, cy, std::sin(r), std::cos(r));
}
Matrix2d& Matrix2d::rotate(double cx, double cy, double angle) {
  return rotate(*this, cx, cy, angle);
}
Matrix2d Matrix2d::rotate(double cx, double cy, double angle) const {
  Matrix2d copy(*this);
  return rotate(copy, cx, cy, angle);
}

// ---- mirror ----

Matrix2d& Matrix2d::mirror(Matrix2d& m, double cx, double cy, bool flag1, bool flag2) {
  return scale(m, cx, cy, flag2 ? -1.0 : 1.0, flag1 ? -1.0 : 1.0);
}
Matrix2d& Matrix2d::mirror(double cx, double cy, bool flag1, bool flag2) {
  return mirror(*this, cx, cy, flag1, flag2);
}
Matrix2d Matrix2d::mirror(double cx, double cy, bool flag1, bool flag2) const {
  Matrix2d copy(*this);
  return mirror(copy, cx, cy, flag1, flag2);
}

// ---- shear ----

Matrix2d& Matrix2d::shearEx(Matrix2d& m, double cx, double cy, double kx, double ky) {
  const double a = m.m_[0], b = m.m_[1], c = m.m_[2], d = m.m_[3], tx = m.m_[4], ty = m.m_[5];
  m.m_[0] = a + b * kx;
  m.m_[1] = b + a * ky;
  m.m_[2] = c + d * kx;
  m.m_[3] = d + c * ky;
  m.m_[4] = tx + (ty - cy) * kx;
  m.m_[5] = ty + (tx - cx) * ky;
  return m;
}
Matrix2d& Matrix2d::shear(Matrix2d& m, double cx, double cy, double angleX, double angleY) {
  return shearEx(m, cx, cy, std::tan(angleX * kDegToRad), std::tan(angleY * kDegToRad));
}
Matrix2d& Matrix2d::shear(double cx, double cy, double angleX, double angleY) {
  return shear(*this, cx, cy, angleX, angleY);
}
Matrix2d Matrix2d::shear(double cx, double cy, double angleX, double angleY) const {
  Matrix2d copy(*this);
  return shear(copy, cx, cy, angleX, angleY);
}

// ---- concatenation ----

Matrix2d& Matrix2d::preConcat(Matrix2d& m, const Matrix2d& o) {
  const double a = m.m_[0], b = m.m_[1], c = m.m_[2], d = m.m_[3], tx = m.m_[4], ty = m.m_[5];
  m.m_[0] = o[0] * a + o[1] * c;
  m.m_[1] = o[0] * b + o[1] * d;
  m.m_[2] = o[2] * a + o[3] * c;
  m.m_[3] = o[2] * b + o[3] * d;
  m.m_[4] = o[4] * a + o[5] * c + tx;
  m.m_[5] = o[4] * b + o[5] * d + ty;
  return m;
}
Matrix2d& Matrix2d::preConcat(const Matrix2d& o) {
  return preConcat(*this, o);
}
Matrix2d Matrix2d::preConcat(const Matrix2d& o) const {
  Matrix2d copy(*this);
  return preConcat(copy, o);
}

Matrix2d& Matrix2d::postConcat(Matrix2d& m, const Matrix2d& o) {
  const double a = m.m_[0], b = m.m_[1], c = m.m_[2], d = m.m_[3], tx = m.m_[4], ty = m.m_[5];
  m.m_[0] = a * o[0] + b * o[2];
  m.m_[1] = a * o[1] + b * o[3];
  m.m_[2] = c * o[0] + d * o[2];
  m.m_[3] = c * o[1] + d * o[3];
  m.m_[4] = tx * o[0] + ty * o[2] + o[4];
  m.m_[5] = tx * o[1] + ty * o[3] + o[5];
  return m;
}
Matrix2d& Matrix2d::postConcat(const Matrix2d& o) {
  return postConcat(*this, o);
}
Matrix2d Matrix2d::postConcat(const Matrix2d& o) const {
  Matrix2d copy(*this);
  return postConcat(copy, o);
}

Matrix2d Matrix2d::operator*(const Matrix2d& o) const {
  return postConcat(o);
}
Matrix2d& Matrix2d::operator*=(const Matrix2d& o) {
  return postConcat(*this, o);
}

// ---- queries ----

Point2d Matrix2d::mapXY(double x, double y) const {
  return {m_[0] * x + m_[2] * y + m_[4], m_[1] * x + m_[3] * y + m_[5]};
}

Point2d Matrix2d::mapPoint(const Point2d& p) const {
  return mapXY(p.x, p.y);
}

MPointF2d Matrix2d::mapPoint(const MPointF2d& p) const {
  const Point2d q = mapXY(p.x, p.y);
  return {q.x, q.y, p.flag};
}

void Matrix2d::mapPoints(Point2d dst[], const Point2d src[], std::size_t count) const {
  for (std::size_t i = 0; i < count; ++i)
    dst[i] = mapPoint(src[i]);
}

void Matrix2d::mapPoints(MPointF2d dst[], const MPointF2d src[], std::size_t count) const {
  for (std::size_t i = 0; i < count; ++i)
    dst[i] = mapPoint(src[i]);
}

void Matrix2d::mapPoints(std::vector<Point2d>& points) const {
  mapPoints(points.data(), points.data(), points.size());
}

void Matrix2d::mapPoints(std::vector<MPointF2d>& points) const {
  mapPoints(points.data(), points.data(), points.size());
}

double Matrix2d::determinant() const {
  return m_[3] * m_[0] - m_[2] * m_[1];
}
double Matrix2d::determinant(Matrix2d m) {
  return m.determinant();
}
bool Matrix2d::reversible() const {
  return determinant() != 0.0;
}
bool Matrix2d::reversible(const Matrix2d& m) {
  return m.reversible();
}

bool Matrix2d::operator==(const Matrix2d& other) const {
  return sameElements(other, *this);
}
bool Matrix2d::operator!=(const Matrix2d& other) const {
  return !(*this == other);
}

bool Matrix2d::deconstruct(double& translateX, double& translateY, double& rotation, double& scaleX,
                           double& scaleY, double& shearX, double& shearY) const {
  if (determinant() == 0.0) return false;
  const double a = m_[0], b = m_[1], c = m_[2], d = m_[3], tx = m_[4], ty = m_[5];
  // Images of the unit square's corners (0,0), (1,0), (1,1), (0,1).
  const double p0x = tx, p0y = ty;
  const double p1x = a + tx, p1y = b + ty;
  const double p2x = a + c + tx, p2y = b + d + ty;
  const double p3x = c + tx, p3y = d + ty;

  translateX = p0x;
  translateY = p0y;
  rotation = utils::_impl::radianOfVector(p1x, p1y) * kRadToDeg;
  scaleX = utils::_impl::distance(p1x - p0x, p1y - p0y);
  const double ux = p3x - p2x, uy = p3y - p2y;
  const double vx = p1x - p2x, vy = p1y - p2y;
  const double dot = ux * vx + uy * vy;
  scaleY = std::sqrt(vx * vx + vy * vy - dot * dot);
  shearX = utils::_impl::radianOf3Point(p0x, p0y, p1x, p1y, p2x, p2y) * kRadToDeg - 90.0;
  shearY = 0.0;

  Matrix2d rebuilt = makeTranslate(translateX + 0.0, translateY + 0.0);
  rebuilt.rotate(p0x, p0y, rotation);
  rebuilt.scale(p0x, p0y, scaleX, scaleY);
  rebuilt.shear(p1x, p1y, shearX, shearY);
  return sameElements(rebuilt, *this);
}

// ---- serialisation ----

SdkError Matrix2d::toArray(SeriArray& out) const {
  out.reserve(out.size() + 6);
  for (double v : m_) {
    if (SdkError e = out.add(v)) return e;
  }
  return 0;
}

SdkError Matrix2d::fromArray(const SeriArray& arr) {
  const std::size_t n = std::min<std::size_t>(arr.size(), 6);
  for (std::size_t i = 0; i < n; ++i) {
    if (SdkError e = arr.get(i, m_[i])) return e;
  }
  return 0;
}

SdkError Matrix2d::save(SeriObject& obj, const char* key) const {
  SeriArray arr(utils::JsonSave::instance);
  if (SdkError e = toArray(arr)) return e;
  return obj.setJsonArray(key, std::move(arr));
}

SdkError Matrix2d::load(const SeriObject& obj, const char* key) {
  SeriArray arr(utils::JsonLoad::instance);
  if (SdkError e = obj.getJsonArray(key, arr)) return e;
  return fromArray(arr);
}

}  // namespace param
