#include <param/wobble/wobblePathProc.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <stdexcept>

#include <utils/geometry.h>

#include "support/testSupport.h"

namespace param {
// Reaches the older generators, which are private.
struct WobblePathProcProbe : WobblePathProc {
  using WobblePathProc::gen8;
  using WobblePathProc::genSin;
  using WobblePathProc::getPointsOnCircle;
};
}  // namespace param

namespace {

using namespace param;
constexpr double kPi = std::numbers::pi;
constexpr double kDeg = 0.017453292519943295, kRad = 57.29577951308232;

// The sampling rule written out plainly: every sample scans the length table
// from its start and computes the vertex directions it needs on the spot.
// `wraps` counts the samples moved back to the start of the path.
template <class P>
std::vector<P> reference(const WobbleParam& w, const std::vector<P>& in, int& wraps) {
  std::vector<P> out, q;
  const double space = w.wobbleSpace, step = space / 48.0;
  if (!w.bEnable || space < 0.001 || in.empty()) return out;
  using namespace utils::_impl;
  auto length = [](P a, P b) { return distance(b.x - a.x, b.y - a.y); };
  auto dir = [](P a, P b) { return radianOfVector(b.x - a.x, b.y - a.y) * kRad; };
  auto lerp = [](P a, P b, double t) { return P{a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}; };
  for (std::size_t i = 0; i + 1 < in.size(); ++i) {
    const P a = in[i], b = in[i + 1];
    const double len = length(a, b), f = space / len;
    if (len == 0.0) continue;
    q.push_back(P{a.x, a.y});
    if (len > 1.5 * space) q.push_back(lerp(a, b, f));
    if (len > 1.5 * space && f < 0.4) q.push_back(P{b.x - f * (b.x - a.x), b.y - f * (b.y - a.y)});
  }
  q.push_back(in.back());
  const std::size_t m = q.size();
  std::vector<double> c(m, 0.0);
  for (std::size_t k = 1; k < m; ++k)
    c[k] = c[k - 1] + length(q[k - 1], q[k]);
  const double L = c[m - 1], cx = q[0].x - q[m - 1].x, cy = q[0].y - q[m - 1].y;
  const bool closed = cx < 0.0001 && cx + 0.0001 > 0 && cy < 0.0001 && cy + 0.0001 > 0;
  auto vertexAngle = [&](std::size_t k) {
    if (closed && (k == 0 || k == m - 1)) return dir(q[m - 2], q[1]);
    return dir(k == 0 ? q[0] : q[k - 1], k == m - 1 ? q[m - 1] : q[k + 1]);
  };
  P pos = q[0];  // a single vertex: itself, direction 0
  double theta = 0;
  for (double s = 0; s <= L + 0.0001; s += step) {
    // Past the end the position wraps to the start, unless s lies within a
    // relative 0.0001 above a whole multiple of the length.
    const double turns = s / L, frac = turns - std::trunc(turns);
    const double at = m > 1 && !(0 <= frac && frac < 0.0001) ? std::fmod(s, L) : s;
    wraps += at != s;
    if (m == 2) pos = lerp(q[0], q[1], at / L), theta = dir(q[0], q[1]);
    for (std::size_t i = 0; m > 2 && i < m; ++i) {
      if (c[i] - at < 0.0001 && c[i] - at + 0.0001 > 0) {
        pos = q[i], theta = vertexAngle(i);
        break;
      }
      if (c[i] - 0.0001 > at) {
        const double t = (at - c[i - 1]) / (c[i] - c[i - 1]);
        pos = lerp(q[i - 1], q[i], t);
        double d = vertexAngle(i) - vertexAngle(i - 1);
        if (d < -180) d += 360;
        if (d > 180) d -= 360;
        theta = vertexAngle(i - 1) + d * t;
        break;
      }
    }
    // The figure's offset (u across, v backwards) turned by the left normal; the
    // figure-eight along the path (u forwards, v left) by the direction itself.
    const double phi = 6.283185307179586 * s / space;
    const double rx = w.wobbleDiaX * 0.5f, ry = w.wobbleDiaY * 0.5f;
    double u = 0, v = 0, beta = (theta + 90) * kDeg;
    if (w.wobbleType == 0) u = rx * std::cos(phi), v = rx * std::sin(phi);
    if (w.wobbleType == 1) u = ry * std::sin(phi);
    if (w.wobbleType == 2) u = ry * std::cos(phi), v = rx * std::sin(phi);
    if (w.wobbleType < 0 || w.wobbleType > 2) {
      const bool across = w.wobbleType == 3;
      const double A = across ? w.wobbleDiaY : w.wobbleDiaX;
      const double B = across ? w.wobbleDiaX : w.wobbleDiaY;
      const double tau = std::fmod(s * 180 / space, 180);
      const double alpha =
          across ? (tau < 90 ? 45 - tau : tau + 45) : (tau < 90 ? tau - 45 : 315 - tau);
      const double c2 = std::cos(2 * alpha * kDeg), k = c2 < 0 ? 0 : std::sqrt(c2);
      u = std::cos(alpha * kDeg) * k * A, v = std::sin(alpha * kDeg) * k * B;
      if (!across) beta = theta * kDeg;
    }
    const double cb = std::cos(beta), sb = std::sin(beta);
    out.push_back(P{pos.x + (u * cb - v * sb), pos.y + (u * sb + v * cb)});
  }
  return out;
}

WobbleParam par(int type, double space, float dx = 1.0f, float dy = 1.0f) {
  return WobbleParam{true, type, dx, dy, static_cast<float>(space)};
}

std::vector<Point2d> run(const WobbleParam& w, const std::vector<Point2d>& in) {
  WobblePathProc p;
  p.setWobblePar(w);
  std::vector<Point2d> out;
  p.doWobble(in, out);
  return out;
}

// Same bits: == would also accept +0 against -0.
template <class P>
std::pair<std::uint64_t, std::uint64_t> bits(const P& p) {
  return {std::bit_cast<std::uint64_t>(p.x), std::bit_cast<std::uint64_t>(p.y)};
}

// Random open, closed and nearly closed polylines with repeated vertices, many of
// them shorter than 1, against the plain rule, bit for bit, for both point types.
TEST(WobblePathProc, MatchesPlainRuleBitForBitOnRandomPolylines) {
  std::mt19937_64 rng(20240611);
  std::uniform_real_distribution<double> uni(0.0, 1.0);
  const int types[] = {0, 1, 2, 3, 4, 7, -1};
  int wraps = 0;
  for (int iter = 0; iter < 1000; ++iter) {
    const double scale = std::pow(10.0, uni(rng) * 3.5 - 2.5);  // 0.003 to 10
    const int n = 1 + static_cast<int>(uni(rng) * 12);
    std::vector<MPointF2d> in;
    for (int i = 0; i < n; ++i)
      in.push_back(i > 0 && uni(rng) < 0.15
                       ? in.back()
                       : MPointF2d{scale * (uni(rng) - 0.5), scale * (uni(rng) - 0.5), 7});
    const double shape = uni(rng);
    if (n > 2 && shape < 0.3) in.push_back(in.front());
    if (n > 2 && shape >= 0.3 && shape < 0.45) in.push_back({in[0].x + 4e-5, in[0].y - 9e-5, 1});
    // Short periods on short paths reach the wrap at the end.
    const double space =
        scale < 0.3 && uni(rng) < 0.5 ? 0.001 + uni(rng) * 0.01 : 0.001 + scale * (0.02 + uni(rng));
    const WobbleParam w = par(types[iter % 7], space, static_cast<float>(uni(rng) * 2),
                              static_cast<float>(uni(rng) * 2));
    const std::vector<MPointF2d> expected = reference(w, in, wraps);
    ASSERT_FALSE(expected.empty());

    WobblePathProc proc;
    proc.setWobblePar(w);
    std::vector<MPointF2d> got(2, MPointF2d{9, 9, 9});  // what is already there stays
    std::vector<Point2d> gotPlain, plain;
    for (const MPointF2d& p : in)
      plain.push_back({p.x, p.y});
    proc.doWobble(in, got);
    proc.doWobble(plain, gotPlain);
    ASSERT_EQ(got.size(), expected.size() + 2) << "case " << iter;
    ASSERT_EQ(gotPlain.size(), expected.size());
    EXPECT_EQ(got[0], (MPointF2d{9, 9, 9}));
    for (std::size_t k = 0; k < expected.size(); ++k) {
      ASSERT_TRUE(bits(got[k + 2]) == bits(expected[k]) && got[k + 2].flag == 0 &&
                  bits(gotPlain[k]) == bits(expected[k]))
          << "case " << iter << " sample " << k;
    }
  }
  EXPECT_GT(wraps, 50);  // the set really reaches the wrap at the end of the path
}

// Corner from (0,0) over (a,0) to (a,a) with a period of 1 and a circle of
// radius 0.5: the direction turns between the vertex directions listed (arc
// length, degrees), where the extra vertices sit one period from each corner.
TEST(WobblePathProc, CornersTurnOverExtraVerticesAndClosedPathsJoin) {
  const std::pair<double, std::vector<std::pair<double, double>>> cases[] = {
      {1.2, {{0, 0}, {1.2, 45}, {2.4, 90}}},                                // no extra vertex
      {2.0, {{0, 0}, {1, 0}, {2, 45}, {3, 90}, {4, 90}}},                   // one after each start
      {3.0, {{0, 0}, {1, 0}, {2, 0}, {3, 45}, {4, 90}, {5, 90}, {6, 90}}},  // both ends
  };
  for (const auto& [a, turn] : cases) {
    const auto out = run(par(0, 1.0), {{0, 0}, {a, 0}, {a, a}});
    ASSERT_EQ(out.size(), static_cast<std::size_t>(std::floor(2 * a * 48 + 1e-6)) + 1);
    for (std::size_t k = 0, j = 1; k < out.size(); ++k) {
      const double s = k / 48.0;
      while (j + 1 < turn.size() && turn[j].first < s)
        ++j;
      const auto [s0, a0] = turn[j - 1];
      const auto [s1, a1] = turn[j];
      const double w = 2 * kPi * s + (a0 + (a1 - a0) * (s - s0) / (s1 - s0) + 90) * kDeg;
      EXPECT_POINT_NEAR(out[k], std::min(s, a) + 0.5 * std::cos(w),
                        std::max(s - a, 0.0) + 0.5 * std::sin(w));
    }
  }
  // Closed square of side 2, period 1: the direction turns evenly, -45 + 45 s
  // degrees, so the figure ends where it began; at (2, 2) it heads at 135.
  const auto sq = run(par(0, 1.0), {{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0}});
  ASSERT_EQ(sq.size(), 385u);
  EXPECT_POINT_NEAR(sq[0], 0.5 * std::cos(kPi / 4), 0.5 * std::sin(kPi / 4));
  EXPECT_POINT_NEAR(sq[384], sq[0].x, sq[0].y);
  EXPECT_POINT_NEAR(sq[192], 2 + 0.5 * std::cos(5 * kPi / 4), 2 + 0.5 * std::sin(5 * kPi / 4));
  // Within 0.0001 of the start still counts as closed; 0.0002 does not.
  EXPECT_NEAR(run(par(0, 1.0), {{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0.00005}})[0].x, sq[0].x, 1e-4);
  EXPECT_POINT_NEAR(run(par(0, 1.0), {{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0.0002}})[0], 0, 0.5);
}

// Along the x axis the left normal is +y. Period 0.75 (sample k at s = k / 64),
// size 0.75 along the path and 0.5 across it.
TEST(WobblePathProc, FiguresOnAStraightLine) {
  std::vector<Point2d> out[5];
  for (int type = 0; type < 5; ++type)
    ASSERT_EQ((out[type] = run(par(type, 0.75, 0.75f, 0.5f), {{0, 0}, {10, 0}})).size(), 641u);
  for (std::size_t k = 0; k < 641; ++k) {
    const double s = k / 64.0, phi = 2 * kPi * k / 48;
    EXPECT_POINT_NEAR(out[0][k], s - 0.375 * std::sin(phi), 0.375 * std::cos(phi));
    EXPECT_POINT_NEAR(out[1][k], s, 0.25 * std::sin(phi));
    EXPECT_POINT_NEAR(out[2][k], s - 0.375 * std::sin(phi), 0.25 * std::cos(phi));
  }
  // Figure-eights at lobe angles 45 +- 45, 45 +- 75, 135 and 180 degrees (samples
  // 0, 12, 20, 24, 36): offsets from the point on the path.
  const std::size_t at[] = {0, 12, 20, 24, 36};
  const double r2 = std::sqrt(0.5), r3 = std::sqrt(0.375);
  const Point2d across[] = {{0, 0}, {0, 0.5}, {0.375 * r2, 0.5 * r3}, {0, 0}, {0, -0.5}};
  const Point2d along[] = {{0, 0}, {0.75, 0}, {0.75 * r3, 0.25 * r2}, {0, 0}, {-0.75, 0}};
  auto near = [&](int type, std::size_t k, Point2d d) {
    return std::hypot(out[type][k].x - k / 64.0 - d.x, out[type][k].y - d.y) < 1e-6;
  };
  for (int i = 0; i < 5; ++i)
    EXPECT_TRUE(near(3, at[i], across[i]) && near(4, at[i], along[i])) << i;
  EXPECT_EQ(run(par(7, 0.75, 0.75f, 0.5f), {{0, 0}, {10, 0}}), out[4]);
  EXPECT_EQ(run(par(-1, 0.75, 0.75f, 0.5f), {{0, 0}, {10, 0}}), out[4]);
}

TEST(WobblePathProc, EdgesAndBadPaths) {
  // Disabled, a period below 0.001 or no vertex: nothing. At 0.001f, samples
  // every 0.001f / 48 up to 1.0001: 48005 of them.
  EXPECT_TRUE(run(WobbleParam{}, {{0, 0}, {1, 0}}).empty());
  EXPECT_TRUE(run(par(0, 0.0009), {{0, 0}, {1, 0}}).empty());
  EXPECT_TRUE(run(par(0, 0.5), {}).empty());
  EXPECT_EQ(run(par(0, 0.001), {{0, 0}, {1, 0}}).size(), 48005u);
  // A single vertex, or only repeats of it: that vertex with direction 0. A
  // repeated vertex inside a path changes nothing.
  EXPECT_EQ(run(par(0, 0.5), {{1, 2}}), (std::vector<Point2d>{{1, 2.5}}));
  EXPECT_EQ(run(par(0, 0.5), {{1, 2}, {1, 2}, {1, 2}}), (std::vector<Point2d>{{1, 2.5}}));
  EXPECT_EQ(run(par(2, 0.3), {{0, 0}, {1, 0}, {1, 0}, {1, 1}}),
            run(par(2, 0.3), {{0, 0}, {1, 0}, {1, 1}}));
  // Period 0.75, samples at k / 64. The last sample, 0.00007 past the end, lies
  // more than 0.0001 * L beyond a path shorter than 1 and wraps to its start; on
  // a longer path it stays at the end vertex.
  for (auto [end, count, x] : {std::tuple(0.49993, 33u, 0.00007), {1.99993, 129u, 1.99993}}) {
    const auto out = run(par(0, 0.75), {{0, 0}, {end, 0}});
    ASSERT_EQ(out.size(), count);
    EXPECT_NEAR(out.back().x, x + 0.5 * std::cos(2 * kPi * (count - 1) / 48 + kPi / 2), 1e-9);
  }
  // A path whose length is not finite is skipped with a warning; one needing
  // more samples than a vector holds throws before anything is appended.
  testing_support::LogCapture log;
  EXPECT_TRUE(run(par(0, 0.5), {{0, 0}, {NAN, 1}}).empty());
  EXPECT_TRUE(run(par(0, 0.5), {{-1e308, 0}, {1e308, 0}}).empty());
  EXPECT_TRUE(log.lines.size() == 2 && log.contains("path length is not finite"));
  WobblePathProc proc;
  proc.setWobblePar(par(0, 0.001));
  std::vector<Point2d> out{{1, 1}};
  EXPECT_THROW(proc.doWobble(std::vector<Point2d>{{0, 0}, {1e16, 0}}, out), std::length_error);
  EXPECT_EQ(out.size(), 1u);
}

TEST(WobblePathProc, OlderGenerators) {
  param::WobblePathProcProbe p;
  p.setWobblePar(par(0, 1.0, 0.5f, 0.25f));
  // Circle on a vertical segment of 1.25 periods: floor(10 pi * 1.25) = 39 samples
  // 0.2 rad apart, advancing 1 / (10 pi), the first one a radius to the left.
  std::vector<Point2d> out;
  double phase = 0;
  p.getPointsOnCircle({1, 1}, {1, 2.25}, out, phase);
  ASSERT_EQ(out.size(), 39u);
  EXPECT_POINT_NEAR(out[0], 1, 1.5);
  EXPECT_POINT_NEAR(out[5], 1 - 0.5 * std::sin(1.0), 1 + 0.5 * std::cos(1.0) + 5 / (10 * kPi));
  EXPECT_NEAR(phase, kPi / 2, 1e-12);
  // Sine over two segments of 1.3 and period 0.5: the period shrinks to 0.52 so
  // that five half periods fit, samples every 0.0104, 126 + 125 of them (the
  // shared vertex once); the second segment goes on in phase.
  p.setWobblePar(par(1, 0.5, 0.5f, 0.25f));
  std::vector<MPointF2d> sine;
  p.genSin({{0, 0, 3}, {1.3, 0, 3}, {1.3, 1.3, 3}}, sine);
  ASSERT_EQ(sine.size(), 251u);
  EXPECT_NEAR(sine[125].y, 0, 1e-12);
  EXPECT_EQ(sine[126].flag, 0);
  EXPECT_POINT_NEAR(sine[126], 1.3 + 0.5 * std::sin(0.04 * kPi), 0.0104);
  // Figure-eight: 60 samples per period, two periods; at 90 degrees the full
  // along-path size, or with the flag the across-path size times 0.7.
  std::vector<Point2d> eight, flagged, none;
  p.gen8({{0, 0}, {1, 0}}, eight, false);
  p.gen8({{0, 0}, {1, 0}}, flagged, true);
  p.gen8({{0, 0}}, none, false);
  ASSERT_EQ(eight.size(), 120u);
  EXPECT_NEAR(eight[15].x, 0.125 + 0.5, 1e-12);
  EXPECT_NEAR(flagged[15].x, 0.125 + 0.25 * 0.7, 1e-7);
  EXPECT_TRUE(none.empty());
}

}  // namespace
