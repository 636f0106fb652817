#include <param/wobble/wobblePathProc.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <utils/geometry.h>
#include <utils/logger.h>

namespace param {
// Reaches the older generators, which are private.
struct WobblePathProcProbe : WobblePathProc {
  using WobblePathProc::gen8;
  using WobblePathProc::genSin;
  using WobblePathProc::getPointsOnCircle;
};
}  // namespace param

namespace {

using param::MPointF2d;
using param::Point2d;
using param::WobbleParam;
using param::WobblePathProc;
constexpr double kPi = std::numbers::pi;
constexpr double kDeg = 0.017453292519943295;

struct RefStats {
  int wraps = 0;  // samples moved back to the start of the path
};

// The sampling rule written out plainly: every sample scans the length table
// from its start and computes the vertex directions it needs on the spot.
template <class P>
std::vector<P> reference(const WobbleParam& w, const std::vector<P>& in, RefStats& st) {
  std::vector<P> out;
  const double space = w.wobbleSpace;
  if (!w.bEnable || space < 0.001 || in.empty()) return out;
  const double step = space / 48.0;
  std::vector<P> q;
  for (std::size_t i = 0; i + 1 < in.size(); ++i) {
    const P a = in[i], b = in[i + 1];
    const double len = utils::_impl::distance(b.x - a.x, b.y - a.y);
    if (len == 0.0) continue;
    q.push_back(P{a.x, a.y});
    if (len > 1.5 * space) {
      const double f = space / len;
      q.push_back(P{a.x + f * (b.x - a.x), a.y + f * (b.y - a.y)});
      if (f < 0.4) q.push_back(P{b.x - f * (b.x - a.x), b.y - f * (b.y - a.y)});
    }
  }
  q.push_back(in.back());
  const std::size_t m = q.size();
  std::vector<double> c(m, 0.0);
  for (std::size_t k = 1; k < m; ++k) {
    c[k] = c[k - 1] + utils::_impl::distance(q[k].x - q[k - 1].x, q[k].y - q[k - 1].y);
  }
  const double L = c[m - 1];
  auto dir = [](const P& from, const P& to) {
    return utils::_impl::radianOfVector(to.x - from.x, to.y - from.y) * 57.29577951308232;
  };
  const double cx = q[0].x - q[m - 1].x, cy = q[0].y - q[m - 1].y;
  const bool closed = cx < 0.0001 && cx + 0.0001 > 0 && cy < 0.0001 && cy + 0.0001 > 0;
  auto vertexAngle = [&](std::size_t k) {
    if (k == 0) return closed ? dir(q[m - 2], q[1]) : dir(q[0], q[1]);
    if (k == m - 1) return closed ? dir(q[m - 2], q[1]) : dir(q[m - 2], q[m - 1]);
    return dir(q[k - 1], q[k + 1]);
  };
  double px = 0, py = 0, theta = 0;
  auto locate = [&](double s) {
    if (m == 1) {
      px = q[0].x, py = q[0].y, theta = 0;
      return;
    }
    const double qq = s / L, frac = qq - std::trunc(qq);
    if (!(0 <= frac && frac < 0.0001)) {
      const double r = std::fmod(s, L);
      st.wraps += r != s;
      s = r < 0 ? r + L : r;
    }
    if (m == 2) {
      px = q[0].x + (s / L) * (q[1].x - q[0].x), py = q[0].y + (s / L) * (q[1].y - q[0].y);
      theta = dir(q[0], q[1]);
      return;
    }
    for (std::size_t i = 0; i < m; ++i) {
      if (c[i] - s < 0.0001 && c[i] - s + 0.0001 > 0) {
        px = q[i].x, py = q[i].y, theta = vertexAngle(i);
        return;
      }
      if (c[i] - 0.0001 > s) {
        const double t = (s - c[i - 1]) / (c[i] - c[i - 1]);
        px = q[i - 1].x + t * (q[i].x - q[i - 1].x), py = q[i - 1].y + t * (q[i].y - q[i - 1].y);
        const double a0 = vertexAngle(i - 1);
        double d = vertexAngle(i) - a0;
        if (d < -180) {
          d += 360;
        } else if (d > 180) {
          d -= 360;
        }
        theta = a0 + d * t;
        return;
      }
    }
  };
  for (double s = 0; s <= L + 0.0001; s += step) {
    locate(s);
    const double phi = 6.283185307179586 * s / space;
    double u, v, beta = (theta + 90) * kDeg;
    if (w.wobbleType == 0) {
      const double r = w.wobbleDiaX * 0.5f;
      u = r * std::cos(phi), v = r * std::sin(phi);
    } else if (w.wobbleType == 1) {
      const double a = w.wobbleDiaY * 0.5f;
      u = a * std::sin(phi), v = 0;
    } else if (w.wobbleType == 2) {
      u = double{w.wobbleDiaY * 0.5f} * std::cos(phi),
      v = double{w.wobbleDiaX * 0.5f} * std::sin(phi);
    } else {
      const bool across = w.wobbleType == 3;
      const double A = across ? w.wobbleDiaY : w.wobbleDiaX;
      const double B = across ? w.wobbleDiaX : w.wobbleDiaY;
      double tau = std::fmod(s * 180 / space, 180);
      if (tau < 0) tau += 180;
      const double alpha =
          across ? (tau < 90 ? 45 - tau : tau + 45) : (tau < 90 ? tau - 45 : 315 - tau);
      const double c2 = std::cos(2 * alpha * kDeg);
      const double k = c2 < 0 ? 0 : std::sqrt(c2);
      u = std::cos(alpha * kDeg) * k * A, v = std::sin(alpha * kDeg) * k * B;
      if (!across) beta = theta * kDeg;
    }
    const double cb = std::cos(beta), sb = std::sin(beta);
    out.push_back(P{px + (u * cb - v * sb), py + (u * sb + v * cb)});
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
  RefStats st;
  int cases = 0;
  for (int iter = 0; iter < 1000; ++iter) {
    const double scale = std::pow(10.0, uni(rng) * 3.5 - 2.5);  // 0.003 to 10
    const int n = 1 + static_cast<int>(uni(rng) * 12);
    std::vector<MPointF2d> in;
    for (int i = 0; i < n; ++i) {
      if (i > 0 && uni(rng) < 0.15) {
        in.push_back(in.back());
      } else {
        in.push_back({scale * (uni(rng) - 0.5), scale * (uni(rng) - 0.5), 7});
      }
    }
    const double shape = uni(rng);
    if (n > 2 && shape < 0.3) in.push_back(in.front());
    if (n > 2 && shape >= 0.3 && shape < 0.45) in.push_back({in[0].x + 4e-5, in[0].y - 9e-5, 1});
    // Short periods on short paths reach the wrap at the end.
    const double space =
        scale < 0.3 && uni(rng) < 0.5 ? 0.001 + uni(rng) * 0.01 : 0.001 + scale * (0.02 + uni(rng));
    const WobbleParam w = par(types[iter % 7], space, static_cast<float>(uni(rng) * 2),
                              static_cast<float>(uni(rng) * 2));
    std::vector<Point2d> plain;
    for (const MPointF2d& p : in)
      plain.push_back({p.x, p.y});
    const std::vector<MPointF2d> expected = reference(w, in, st);

    WobblePathProc proc;
    proc.setWobblePar(w);
    std::vector<MPointF2d> got(2, MPointF2d{9, 9, 9});  // what is already there stays
    proc.doWobble(in, got);
    ASSERT_EQ(got.size(), expected.size() + 2) << "case " << iter;
    EXPECT_EQ(got[0], (MPointF2d{9, 9, 9}));
    std::vector<Point2d> gotPlain;
    proc.doWobble(plain, gotPlain);
    ASSERT_EQ(gotPlain.size(), expected.size());
    for (std::size_t k = 0; k < expected.size(); ++k) {
      ASSERT_EQ(bits(got[k + 2]), bits(expected[k])) << "case " << iter << " sample " << k;
      ASSERT_EQ(bits(gotPlain[k]), bits(expected[k])) << "case " << iter << " sample " << k;
      ASSERT_EQ(got[k + 2].flag, 0);
    }
    cases += !expected.empty();
  }
  // The set really reaches the wrap at the end of the path.
  EXPECT_GT(st.wraps, 50);
  EXPECT_EQ(cases, 1000);
}

// Corner from (0,0) over (a,0) to (a,a) with a period of 1 and a circle of
// radius 0.5: the direction turns between the vertex directions listed (arc
// length, degrees), where the extra vertices sit one period from each corner.
TEST(WobblePathProc, CornerTurnsOverExtraVertices) {
  struct Case {
    double a;
    std::vector<std::pair<double, double>> turn;
  };
  const Case cases[] = {
      {1.2, {{0, 0}, {1.2, 45}, {2.4, 90}}},                                // no extra vertex
      {2.0, {{0, 0}, {1, 0}, {2, 45}, {3, 90}, {4, 90}}},                   // one after each start
      {3.0, {{0, 0}, {1, 0}, {2, 0}, {3, 45}, {4, 90}, {5, 90}, {6, 90}}},  // both ends
  };
  for (const Case& c : cases) {
    const auto out = run(par(0, 1.0), {{0, 0}, {c.a, 0}, {c.a, c.a}});
    ASSERT_EQ(out.size(), static_cast<std::size_t>(std::floor(2 * c.a * 48 + 1e-6)) + 1);
    double s = 0;
    for (const Point2d& p : out) {
      std::size_t j = 1;
      while (j + 1 < c.turn.size() && c.turn[j].first < s)
        ++j;
      const auto [s0, a0] = c.turn[j - 1];
      const auto [s1, a1] = c.turn[j];
      const double theta = a0 + (a1 - a0) * (s - s0) / (s1 - s0);
      const double x = s <= c.a ? s : c.a, y = s <= c.a ? 0 : s - c.a;
      const double w = 2 * kPi * s + (theta + 90) * kDeg;
      EXPECT_NEAR(p.x, x + 0.5 * std::cos(w), 1e-9) << c.a << " at " << s;
      EXPECT_NEAR(p.y, y + 0.5 * std::sin(w), 1e-9) << c.a << " at " << s;
      s += 1.0 / 48;
    }
  }
}

TEST(WobblePathProc, ClosedPathJoinsAndOpenPathDoesNot) {
  // Closed square of side 2, period 1: the direction turns evenly, -45 + 45 s
  // degrees, so the figure ends where it began.
  const auto sq = run(par(0, 1.0), {{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0}});
  ASSERT_EQ(sq.size(), 385u);
  EXPECT_NEAR(sq[0].x, 0.5 * std::cos(kPi / 4), 1e-9);
  EXPECT_NEAR(sq[0].y, 0.5 * std::sin(kPi / 4), 1e-9);
  EXPECT_NEAR(sq[384].x, sq[0].x, 1e-9);
  EXPECT_NEAR(sq[384].y, sq[0].y, 1e-9);
  EXPECT_NEAR(sq[192].x, 2 + 0.5 * std::cos(5 * kPi / 4), 1e-9);  // at (2, 2), heading 135
  EXPECT_NEAR(sq[192].y, 2 + 0.5 * std::sin(5 * kPi / 4), 1e-9);
  // Within 0.0001 of the start still counts as closed; 0.0002 does not.
  const auto near = run(par(0, 1.0), {{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0.00005}});
  EXPECT_NEAR(near[0].x, sq[0].x, 1e-4);
  const auto open = run(par(0, 1.0), {{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0.0002}});
  EXPECT_NEAR(open[0].x, 0.0, 1e-12);
  EXPECT_NEAR(open[0].y, 0.5, 1e-12);
}

// Along the x axis the left normal is +y. Period 0.75 (sample k at s = k / 64),
// size 0.6 along the path and 0.4 across it.
TEST(WobblePathProc, FiguresOnAStraightLine) {
  const std::vector<Point2d> line{{0, 0}, {10, 0}};
  for (int type : {0, 1, 2}) {
    const auto out = run(par(type, 0.75, 0.6f, 0.4f), line);
    ASSERT_EQ(out.size(), 641u);
    for (std::size_t k = 0; k < out.size(); ++k) {
      const double s = k / 64.0, phi = 2 * kPi * k / 48;
      const double dx[] = {-0.3 * std::sin(phi), 0, -0.3 * std::sin(phi)};
      const double dy[] = {0.3 * std::cos(phi), 0.2 * std::sin(phi), 0.2 * std::cos(phi)};
      EXPECT_NEAR(out[k].x, s + dx[type], 1e-7) << type << " " << k;
      EXPECT_NEAR(out[k].y, dy[type], 1e-7) << type << " " << k;
    }
  }
  // Figure-eights at lobe angles 45 +- 45, 45 +- 75, 135 and 180 degrees (samples
  // 0, 12, 20, 24, 36): offsets from the point on the path.
  const std::size_t at[] = {0, 12, 20, 24, 36};
  const double across[][2] = {
      {0, 0}, {0, 0.4}, {0.3 * std::sqrt(0.5), 0.4 * std::sqrt(0.375)}, {0, 0}, {0, -0.4}};
  const double along[][2] = {
      {0, 0}, {0.6, 0}, {0.6 * std::sqrt(0.375), 0.2 * std::sqrt(0.5)}, {0, 0}, {-0.6, 0}};
  const auto e3 = run(par(3, 0.75, 0.6f, 0.4f), line);
  const auto e4 = run(par(4, 0.75, 0.6f, 0.4f), line);
  for (int i = 0; i < 5; ++i) {
    const double s = at[i] / 64.0;
    EXPECT_NEAR(e3[at[i]].x, s + across[i][0], 1e-6) << i;
    EXPECT_NEAR(e3[at[i]].y, across[i][1], 1e-6) << i;
    EXPECT_NEAR(e4[at[i]].x, s + along[i][0], 1e-6) << i;
    EXPECT_NEAR(e4[at[i]].y, along[i][1], 1e-6) << i;
  }
  EXPECT_EQ(run(par(7, 0.75, 0.6f, 0.4f), line), e4);
  EXPECT_EQ(run(par(-1, 0.75, 0.6f, 0.4f), line), e4);
}

TEST(WobblePathProc, NothingOrOnePointOrWrapAtTheEdges) {
  const std::vector<Point2d> line{{0, 0}, {1, 0}};
  WobblePathProc proc;
  for (WobbleParam w : {WobbleParam{}, par(0, 0.0009)}) {
    proc.setWobblePar(w);
    std::vector<Point2d> out{{5, 5}};
    proc.doWobble(line, out);
    EXPECT_EQ(out, (std::vector<Point2d>{{5, 5}}));
  }
  proc.setWobblePar(par(0, 0.5));
  std::vector<Point2d> out;
  proc.doWobble(std::vector<Point2d>{}, out);
  EXPECT_TRUE(out.empty());
  // Samples every 0.001f / 48 up to 1.0001: 48005 of them.
  EXPECT_EQ(run(par(0, 0.001), line).size(), 48005u);
  // A single vertex, or only repeats of it: that vertex with direction 0. A
  // repeated vertex inside a path changes nothing.
  EXPECT_EQ(run(par(0, 0.5), {{1, 2}}), (std::vector<Point2d>{{1, 2.5}}));
  EXPECT_EQ(run(par(0, 0.5), {{1, 2}, {1, 2}, {1, 2}}), (std::vector<Point2d>{{1, 2.5}}));
  EXPECT_EQ(run(par(2, 0.3), {{0, 0}, {1, 0}, {1, 0}, {1, 1}}),
            run(par(2, 0.3), {{0, 0}, {1, 0}, {1, 1}}));
  // Period 0.75, samples at k / 64. The last sample, 0.00007 past the end, lies
  // more than 0.0001 * L beyond a path shorter than 1 and wraps to its start; on
  // a longer path it stays at the end vertex.
  const auto shortPath = run(par(0, 0.75), {{0, 0}, {0.49993, 0}});
  ASSERT_EQ(shortPath.size(), 33u);
  EXPECT_NEAR(shortPath[32].x, 0.00007 + 0.5 * std::cos(2 * kPi * 32 / 48 + kPi / 2), 1e-9);
  const auto longPath = run(par(0, 0.75), {{0, 0}, {1.99993, 0}});
  ASSERT_EQ(longPath.size(), 129u);
  EXPECT_NEAR(longPath[128].x, 1.99993 + 0.5 * std::cos(2 * kPi * 128 / 48 + kPi / 2), 1e-9);
}

TEST(WobblePathProc, NonFiniteOrHugePathsFailCleanly) {
  std::vector<std::string> lines;
  auto previous = utils::Logger::setSink(
      [&](utils::LogLevel, std::string_view, std::string_view l) { lines.emplace_back(l); });
  EXPECT_TRUE(run(par(0, 0.5), {{0, 0}, {NAN, 1}}).empty());
  EXPECT_TRUE(run(par(0, 0.5), {{-1e308, 0}, {1e308, 0}}).empty());
  utils::Logger::setSink(previous);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NE(lines[0].find("path length is not finite"), std::string::npos);
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
  EXPECT_NEAR(out[0].x, 1, 1e-12);
  EXPECT_NEAR(out[0].y, 1.5, 1e-12);
  EXPECT_NEAR(out[5].x, 1 - 0.5 * std::sin(1.0), 1e-12);
  EXPECT_NEAR(out[5].y, 1 + 0.5 * std::cos(1.0) + 5 / (10 * kPi), 1e-12);
  EXPECT_NEAR(phase, kPi / 2, 1e-12);
  // Sine over two segments of 1.3 and period 0.5: the period shrinks to 0.52 so
  // that five half periods fit, samples every 0.0104, 126 + 125 of them (the
  // shared vertex once); the second segment goes on in phase.
  p.setWobblePar(par(1, 0.5, 0.5f, 0.25f));
  std::vector<MPointF2d> sine;
  p.genSin({{0, 0, 3}, {1.3, 0, 3}, {1.3, 1.3, 3}}, sine);
  ASSERT_EQ(sine.size(), 251u);
  EXPECT_NEAR(sine[125].y, 0, 1e-12);
  EXPECT_NEAR(sine[126].x, 1.3 + 0.5 * std::sin(0.04 * kPi), 1e-12);
  EXPECT_NEAR(sine[126].y, 0.0104, 1e-12);
  EXPECT_EQ(sine[126].flag, 0);
  // Figure-eight: 60 samples per period, two periods; at 90 degrees the full
  // along-path size, or with the flag the across-path size times 0.7.
  std::vector<Point2d> eight;
  p.gen8({{0, 0}, {1, 0}}, eight, false);
  ASSERT_EQ(eight.size(), 120u);
  EXPECT_NEAR(eight[15].x, 0.125 + 0.5, 1e-12);
  eight.clear();
  p.gen8({{0, 0}, {1, 0}}, eight, true);
  EXPECT_NEAR(eight[15].x, 0.125 + 0.25 * 0.7, 1e-7);
  eight.clear();
  p.gen8({{0, 0}}, eight, false);
  EXPECT_TRUE(eight.empty());
}

}  // namespace
