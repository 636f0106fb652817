#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include <utils/errorHandle.h>

#include <param/seri/recordIo.h>
#include <param/shape/matrix2d.h>
#include <param/shape/pathConcept.h>

#include "support/testSupport.h"

using param::Matrix2d;
using testing_support::parsed;
using M = Matrix2d;

namespace {

void expectElements(const Matrix2d& m, std::initializer_list<double> expected) {
  std::size_t i = 0;
  for (double e : expected)
    EXPECT_NEAR(m[i++], e, 1e-12) << "element " << i - 1;
}

const Matrix2d kBase = Matrix2d::make(1, 2, 3, 4, 5, 6);

}  // namespace

// Applies one operation to kBase in its three forms: in place (returns the
// matrix it changed), as a copy (leaves the original alone) and static.
#define EXPECT_THREE_FORMS(call, staticCall, ...) \
  do {                                            \
    M inPlace = kBase, onStatic = kBase;          \
    const M original = kBase;                     \
    EXPECT_EQ(&inPlace.call, &inPlace);           \
    const M copy = original.call;                 \
    EXPECT_EQ(&M::staticCall, &onStatic);         \
    expectElements(inPlace, {__VA_ARGS__});       \
    expectElements(copy, {__VA_ARGS__});          \
    expectElements(onStatic, {__VA_ARGS__});      \
    EXPECT_EQ(original, kBase);                   \
  } while (0)

TEST(Matrix2d, ThreeFormsAgree) {
  const double r90 = 90 * 0.017453292519943295;
  const M rot90 = M::make(0, 1, -1, 0, 0, 0);
  EXPECT_THREE_FORMS(translate(1, -1), translate(onStatic, 1, -1), 1, 2, 3, 4, 6, 5);
  EXPECT_THREE_FORMS(scale(1, 2, 2, 3), scale(onStatic, 1, 2, 2, 3), 2, 6, 6, 12, 9, 14);
  EXPECT_THREE_FORMS(scale(1, 2, 2, 3), mirrorEx(onStatic, 1, 2, 2, 3), 2, 6, 6, 12, 9, 14);
  EXPECT_THREE_FORMS(rotate(0, 0, 90), rotate(onStatic, 0, 0, 90), -2, 1, -4, 3, -6, 5);
  EXPECT_THREE_FORMS(rotate(0, 0, 90), rotateEx(onStatic, 0, 0, std::sin(r90), std::cos(r90)), -2,
                     1, -4, 3, -6, 5);
  EXPECT_THREE_FORMS(mirror(1, 1, true, false), mirror(onStatic, 1, 1, true, false), 1, -2, 3, -4,
                     5, -4);
  EXPECT_THREE_FORMS(shear(0, 0, 45, 0), shear(onStatic, 0, 0, 45, 0), 3, 2, 7, 4, 11, 6);
  EXPECT_THREE_FORMS(shear(0, 0, 45, 0), shearEx(onStatic, 0, 0, 1, 0), 3, 2, 7, 4, 11, 6);
  EXPECT_THREE_FORMS(preConcat(rot90), preConcat(onStatic, rot90), 3, 4, -1, -2, 5, 6);
  EXPECT_THREE_FORMS(postConcat(rot90), postConcat(onStatic, rot90), -2, 1, -4, 3, -6, 5);
  M product = kBase;
  EXPECT_EQ(&(product *= rot90), &product);
  EXPECT_EQ(product, kBase * rot90);
  expectElements(product, {-2, 1, -4, 3, -6, 5});
}

TEST(Matrix2d, IdentityAndFactories) {
  expectElements(M(), {1, 0, 0, 1, 0, 0});
  M m = kBase;
  EXPECT_EQ(&m.reset(), &m);
  expectElements(m, {1, 0, 0, 1, 0, 0});
  M::translateTo(m, 1, 1, 4, 5);
  expectElements(m, {1, 0, 0, 1, 3, 4});

  // Factories take the centre last, operations take it first.
  expectElements(M::makeRotate(90, 1, 1), {0, 1, -1, 0, 2, 0});            // (x, y) -> (2 - y, x)
  expectElements(M::makeMirror(true, false, 0, 5), {1, 0, 0, -1, 0, 10});  // y -> 10 - y
  expectElements(M::makeMirror(false, true, 5, 0), {-1, 0, 0, 1, 10, 0});  // x -> 10 - x
  expectElements(M::makeScale(2, 3, 1, 1), {2, 0, 0, 3, -1, -2});          // about (1, 1)
  expectElements(M::makeShear(45, 0, 0, 2), {1, 0, 1, 1, -2, 0});          // x -> x + y - 2
  expectElements(M::makeShear(0, 45, 0, 0), {1, 1, 0, 1, 0, 0});           // y -> y + x
}

TEST(Matrix2d, MapsPointsAndPolylines) {
  // kBase takes (x, y) to (x + 3y + 5, 2x + 4y + 6).
  EXPECT_EQ(kBase.mapXY(1, -1), (param::Point2d{3, 4}));
  EXPECT_EQ(kBase.mapPoint(param::Point2d{0, 0}), (param::Point2d{5, 6}));
  EXPECT_EQ(kBase.mapPoint(param::MPointF2d{2, 1, 7}), (param::MPointF2d{10, 14, 7}));
  const M mirror = M::makeMirror(true, false, 0, 5);
  EXPECT_EQ(mirror.mapXY(2, 3), (param::Point2d{2, 7}));
  // A product maps as its factors one after the other.
  const M turn = M::makeRotate(90, 0, 0);
  const param::Point2d p{1.5, -2};
  const param::Point2d viaBoth = (kBase * turn).mapPoint(p);
  const param::Point2d stepwise = turn.mapPoint(kBase.mapPoint(p));
  EXPECT_NEAR(viaBoth.x, stepwise.x, 1e-12);
  EXPECT_NEAR(viaBoth.y, stepwise.y, 1e-12);

  // Polylines in place (kind and flags kept) and from one array into another.
  param::PathData path = {{0, 0, 1}, {1, 0, 2}};
  path.type = 4;
  kBase.mapPoints(path);
  const std::vector<param::MPointF2d> mapped = {{5, 6, 1}, {6, 8, 2}};
  EXPECT_EQ(static_cast<const std::vector<param::MPointF2d>&>(path), mapped);
  EXPECT_EQ(path.type, 4);
  param::PathF2d line = {{0, 1}, {1, 1}};
  kBase.mapPoints(line);
  EXPECT_EQ(line, (param::PathF2d{{8, 10}, {9, 12}}));
  const param::Point2d src[2] = {{0, 0}, {0, 1}};
  param::Point2d dst[2];
  kBase.mapPoints(dst, src, 2);
  EXPECT_EQ(dst[1], (param::Point2d{8, 10}));
  std::vector<param::Point2d> none;
  kBase.mapPoints(none);
  EXPECT_TRUE(none.empty());
}

TEST(Matrix2d, ComparisonAndDeterminant) {
  const M m = M::make(1, 0, 0, 1, 0, 0);
  EXPECT_TRUE(m == M::make(1, 0, 0, 1, 0.00009, 0));
  EXPECT_FALSE(m == M::make(1, 0, 0, 1, 0, 0.0001));
  EXPECT_TRUE(m != M::make(1, 0, 0, 1, 0, -0.0001));
  EXPECT_FALSE(m == M::make(NAN, 0, 0, 1, 0, 0));
  EXPECT_DOUBLE_EQ(kBase.determinant(), -2);
  EXPECT_DOUBLE_EQ(M::determinant(kBase), -2);
  EXPECT_TRUE(M::make(1e-150, 0, 0, 1e-150, 0, 0).reversible());
  EXPECT_FALSE(M::make(1, 2, 2, 4, 5, 6).reversible());
  EXPECT_FALSE(M::reversible(M::make(1, 2, 2, 4, 5, 6)));
}

TEST(Matrix2d, Deconstruct) {
  // Outputs: translation x and y, rotation, scale x and y, shear x and y.
  const double turned = std::atan2(1.0, 10.0) * 57.29577951308232;
  const struct {
    M m;
    bool rebuilt;
    double out[7];
  } rows[] = {
      {M::make(1, 2, 2, 4, 5, 6), false, {7, 7, 7, 7, 7, 7, 7}},  // singular: nothing written
      {M::makeRotate(30, 0, 0), true, {0, 0, 30, 1, 1, 0, 0}},
      {M::makeScale(2, 3, 0, 0).translate(5, 0), true, {5, 0, 0, 2, 3, 0, 0}},
      {M::makeShear(30, 0, 0, 0).translate(5, 0), true, {5, 0, 0, 1, 1, 30, 0}},
      // Turned, then moved off its x axis: the rotation is read from the image of
      // (1, 0) itself, (10, 1), so the rebuild fails; the outputs are filled in.
      {M::makeRotate(90, 0, 0).translate(10, 0), false, {10, 0, turned, 1, 1, 0, 0}},
  };
  for (const auto& row : rows) {
    double o[7] = {7, 7, 7, 7, 7, 7, 7};
    EXPECT_EQ(row.m.deconstruct(o[0], o[1], o[2], o[3], o[4], o[5], o[6]), row.rebuilt);
    for (std::size_t i = 0; i < 7; ++i)
      EXPECT_NEAR(o[i], row.out[i], 1e-9) << "output " << i << " of row " << &row - rows;
  }
}

TEST(Matrix2d, SaveLoadAndRecordKey) {
  param::SeriObject obj(utils::JsonSave::instance);
  ASSERT_EQ(M::make(1, 2.5, -3, 4, 5, 6).save(obj, "m"), 0u);
  EXPECT_EQ(obj.stringfy(), R"({"m":[1,2.5,-3,4,5,6]})");

  M m = kBase;
  ASSERT_EQ(m.load(parsed(R"({"m":[7,8,9]})"), "m"), 0u);
  expectElements(m, {7, 8, 9, 4, 5, 6});  // a short array overwrites a prefix
  ASSERT_EQ(m.load(parsed(R"({"m":[1,1,1,1,1,1,9,9]})"), "m"), 0u);
  expectElements(m, {1, 1, 1, 1, 1, 1});
  EXPECT_EQ(m.load(parsed(R"({"m":[0,0,"x",0]})"), "m"), utils::errc::wrongType);
  EXPECT_EQ(m.load(parsed(R"({"n":[0]})"), "m"), utils::errc::keyMissing);
  EXPECT_EQ(m.load(parsed(R"({"m":{}})"), "m"), utils::errc::wrongType);
  expectElements(m, {0, 0, 1, 1, 1, 1});  // entries before the bad one stay read

  // As one key of a record, through the error-response step.
  param::SeriObject rec(utils::JsonSave::instance);
  ASSERT_EQ(param::RecordSaver(rec)("placement", kBase).result(), 0u);
  EXPECT_EQ(rec.stringfy(), R"({"placement":[1,2,3,4,5,6]})");
  ASSERT_EQ(param::RecordLoader(rec)("placement", m).result(), 0u);
  EXPECT_EQ(m, kBase);
  for (auto answer : {utils::ErrorResponseType::Ignore, utils::ErrorResponseType::Abort}) {
    utils::ScopedErrorHandler handler(answer);
    EXPECT_EQ(param::RecordLoader(parsed(R"({"placement":"none"})"))("placement", m).result(),
              answer == utils::ErrorResponseType::Abort ? utils::errc::wrongType : 0u);
    EXPECT_EQ(m, kBase);
  }
}
