#pragma once

#include <cstddef>
#include <vector>

#include <param/export.h>
#include <param/seri/recordIo.h>
#include <param/seri/seriObject.h>
#include <param/shape/mPointF2d.h>
#include <param/shape/point2dConcept.h>

namespace param {

// A 2-D affine transform of six doubles (a, b, c, d, tx, ty): a point (x, y)
// maps to (a*x + c*y + tx, b*x + d*y + ty). Points are row vectors, so
// "A then B" is the product A * B.
//
// Each operation comes in up to three forms: a member that changes the matrix
// and returns it, a const member of the same name that returns a changed copy,
// and a static function that changes the matrix passed first. Operations apply
// after the transform the matrix already holds. Angles are in degrees.
//
// Note the argument order: the factories take the transform's own parameters
// first and the centre last (makeScale(sx, sy, cx, cy)), the operations take
// the centre first (scale(cx, cy, sx, sy)).
struct PARAM_API Matrix2d {
  Matrix2d() = default;
  explicit Matrix2d(double const (&values)[6]);
  Matrix2d(const Matrix2d&) = default;
  Matrix2d& operator=(const Matrix2d&) = default;

  // Element access: 0 a, 1 b, 2 c, 3 d, 4 tx, 5 ty. No bounds check.
  double (&getMatrix())[6] { return m_; }
  const double (&getMatrix() const)[6] { return m_; }
  double& operator[](std::size_t i) { return m_[i]; }
  double operator[](std::size_t i) const { return m_[i]; }

  Matrix2d& reset();
  static Matrix2d& resetMatrix(Matrix2d& m);
  static Matrix2d make(double a, double b, double c, double d, double tx, double ty);

  // Factories.
  static Matrix2d makeTranslate(double dx, double dy);
  static Matrix2d makeScale(double sx, double sy, double cx, double cy);
  static Matrix2d makeRotate(double angle, double cx, double cy);
  static Matrix2d makeMirror(bool flag1, bool flag2, double cx, double cy);
  static Matrix2d makeShear(double angleX, double angleY, double cx, double cy);

  Matrix2d& translate(double dx, double dy);
  Matrix2d translate(double dx, double dy) const;
  static Matrix2d& translate(Matrix2d& m, double dx, double dy);
  // Moves by (to - from).
  static Matrix2d& translateTo(Matrix2d& m, double fromX, double fromY, double toX, double toY);

  // Scales about (cx, cy).
  Matrix2d& scale(double cx, double cy, double sx, double sy);
  Matrix2d scale(double cx, double cy, double sx, double sy) const;
  static Matrix2d& scale(Matrix2d& m, double cx, double cy, double sx, double sy);
  // The same as the static scale.
  static Matrix2d& mirrorEx(Matrix2d& m, double cx, double cy, double sx, double sy);

  // Rotates about (cx, cy) by the angle given by its sine and cosine; a positive
  // angle turns from +x towards +y.
  static Matrix2d& rotateEx(Matrix2d& m, double cx, double cy, double sinA, double cosA);
  Matrix2d& rotate(double cx, double cy, double angle);
  Matrix2d rotate(double cx, double cy, double angle) const;
  static Matrix2d& rotate(Matrix2d& m, double cx, double cy, double angle);

  // flag1 reflects y about the line y = cy, flag2 reflects x about x = cx.
  Matrix2d& mirror(double cx, double cy, bool flag1, bool flag2);
  Matrix2d mirror(double cx, double cy, bool flag1, bool flag2) const;
  static Matrix2d& mirror(Matrix2d& m, double cx, double cy, bool flag1, bool flag2);

  // Shears about (cx, cy) by the factors kx (x grows with y) and ky (y grows with x).
  static Matrix2d& shearEx(Matrix2d& m, double cx, double cy, double kx, double ky);
  // shearEx with kx = tan(angleX), ky = tan(angleY).
  Matrix2d& shear(double cx, double cy, double angleX, double angleY);
  Matrix2d shear(double cx, double cy, double angleX, double angleY) const;
  static Matrix2d& shear(Matrix2d& m, double cx, double cy, double angleX, double angleY);

  // `o` first, then this matrix.
  Matrix2d& preConcat(const Matrix2d& o);
  Matrix2d preConcat(const Matrix2d& o) const;
  static Matrix2d& preConcat(Matrix2d& m, const Matrix2d& o);
  // This matrix first, then `o`.
  Matrix2d& postConcat(const Matrix2d& o);
  Matrix2d postConcat(const Matrix2d& o) const;
  static Matrix2d& postConcat(Matrix2d& m, const Matrix2d& o);
  Matrix2d operator*(const Matrix2d& o) const;
  Matrix2d& operator*=(const Matrix2d& o);

  // Where the matrix takes a point: (a*x + c*y + tx, b*x + d*y + ty). The
  // MPointF2d forms keep each point's flag.
  Point2d mapXY(double x, double y) const;
  Point2d mapPoint(const Point2d& p) const;
  MPointF2d mapPoint(const MPointF2d& p) const;
  // Maps `count` points of `src` into `dst` (which may be `src` itself).
  void mapPoints(Point2d dst[], const Point2d src[], std::size_t count) const;
  void mapPoints(MPointF2d dst[], const MPointF2d src[], std::size_t count) const;
  // Maps a polyline (PathF2d, PathData or a plain vector) in place.
  void mapPoints(std::vector<Point2d>& points) const;
  void mapPoints(std::vector<MPointF2d>& points) const;

  double determinant() const;
  static double determinant(Matrix2d m);
  // Whether the determinant differs from 0.0 (exactly).
  bool reversible() const;
  static bool reversible(const Matrix2d& m);

  // Every element within 0.0001 (strict).
  bool operator==(const Matrix2d& other) const;
  bool operator!=(const Matrix2d& other) const;

  // Splits the matrix into translation, rotation, scale and shear (angles in
  // degrees; the y shear is always 0) and returns whether these rebuild the
  // matrix within 0.0001. A singular matrix returns false and writes nothing.
  // The rotation is taken from the image of (1, 0) itself, not from its offset
  // to the image of the origin, so a matrix whose translation is not along its
  // x axis does not rebuild: callers rely on that answer.
  bool deconstruct(double& translateX, double& translateY, double& rotation, double& scaleX,
                   double& scaleY, double& shearX, double& shearY) const;

  // The six elements as a JSON array under `key`. load reads the first
  // min(length, 6) numbers in order; a short array overwrites only a prefix and
  // the first unreadable entry ends the load with its code (entries before it
  // stay read). A missing key leaves the matrix untouched.
  [[nodiscard]] SdkError save(SeriObject& obj, const char* key) const;
  [[nodiscard]] SdkError load(const SeriObject& obj, const char* key);
  // The same on the array itself: toArray appends the six elements to `out`.
  [[nodiscard]] SdkError toArray(SeriArray& out) const;
  [[nodiscard]] SdkError fromArray(const SeriArray& arr);

 private:
  double m_[6] = {1.0, 0.0, 0.0, 1.0, 0.0, 0.0};
};

// A matrix as one key of a record: the array of six numbers.
template <>
struct FieldIo<Matrix2d> {
  static SdkError read(const auto& src, Matrix2d& m) {
    SeriArray arr(utils::JsonLoad::instance);
    if (SdkError e = src.getArray(arr)) return e;
    return m.fromArray(arr);
  }
  static SdkError write(auto& dst, const Matrix2d& m) {
    SeriArray arr(utils::JsonSave::instance);
    if (SdkError e = m.toArray(arr)) return e;
    return dst.putArray(std::move(arr));
  }
};

}  // namespace param
