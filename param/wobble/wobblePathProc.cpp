#include <param/wobble/wobblePathProc.h>

#include <cmath>
#include <cstddef>
#include <stdexcept>

#include <utils/geometry.h>
#include <utils/logger.h>

namespace param {
namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kRadToDeg = 57.29577951308232;
constexpr double kDegToRad = 0.017453292519943295;
// Tolerance on arc lengths when locating a sample, on the path's end beyond
// which samples are still taken, and on the closing vertex of a closed path.
constexpr double kTol = 0.0001;
constexpr double kSamplesPerPeriod = 48.0;
constexpr double kMinSpace = 0.001;

double directionDeg(double dx, double dy) {
  return utils::_impl::radianOfVector(dx, dy) * kRadToDeg;
}

// Throws the standard length error when `count` more elements cannot fit.
template <class P>
std::size_t checkedCount(const std::vector<P>& v, double count) {
  const double room = static_cast<double>(v.max_size() - v.size());
  if (!(count < room)) throw std::length_error("vector<T> too long");
  return count > 0.0 ? static_cast<std::size_t>(count) : 0;
}

// ---------------------------------------------------------------------------
// The densified path: vertices, cumulative lengths and vertex directions.

template <class P>
struct DensePath {
  std::vector<P> q;
  std::vector<double> cum;    // cum[k]: arc length from q[0] to q[k]
  std::vector<double> angle;  // direction at q[k] in degrees (three or more vertices)
  double length = 0.0;
};

// Copies `in` with one extra vertex a period after the start of every segment
// longer than 1.5 periods, and one a period before its end when it is longer
// than 2.5 periods, so that the turning at corners is confined to one period on
// either side. Zero-length segments are dropped.
template <class P>
void densify(const std::vector<P>& in, double space, DensePath<P>& path) {
  std::vector<P>& q = path.q;
  q.reserve(3 * (in.size() - 1) + 1);
  for (std::size_t i = 0; i + 1 < in.size(); ++i) {
    const P& a = in[i];
    const P& b = in[i + 1];
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double len = utils::_impl::distance(dx, dy);
    if (len == 0.0) continue;
    q.push_back(P{a.x, a.y});
    if (len > 1.5 * space) {
      const double f = space / len;
      q.push_back(P{a.x + f * dx, a.y + f * dy});
      if (f < 0.4) q.push_back(P{b.x - f * dx, b.y - f * dy});
    }
  }
  q.push_back(in.back());

  const std::size_t m = q.size();
  path.cum.resize(m);
  path.cum[0] = 0.0;
  for (std::size_t k = 1; k < m; ++k) {
    path.cum[k] =
        path.cum[k - 1] + utils::_impl::distance(q[k].x - q[k - 1].x, q[k].y - q[k - 1].y);
  }
  path.length = path.cum[m - 1];

  if (m < 3) return;
  // An interior vertex takes the direction of the chord across it. The ends of
  // an open path take their segment's direction; on a closed path both ends
  // take the chord across the closing vertex so that the figure joins up.
  const double cx = q[0].x - q[m - 1].x;
  const double cy = q[0].y - q[m - 1].y;
  const bool closed = cx < kTol && cx + kTol > 0 && cy < kTol && cy + kTol > 0;
  path.angle.resize(m);
  for (std::size_t k = 1; k + 1 < m; ++k) {
    path.angle[k] = directionDeg(q[k + 1].x - q[k - 1].x, q[k + 1].y - q[k - 1].y);
  }
  if (closed) {
    const double a = directionDeg(q[1].x - q[m - 2].x, q[1].y - q[m - 2].y);
    path.angle[0] = a;
    path.angle[m - 1] = a;
  } else {
    path.angle[0] = directionDeg(q[1].x - q[0].x, q[1].y - q[0].y);
    path.angle[m - 1] = directionDeg(q[m - 1].x - q[m - 2].x, q[m - 1].y - q[m - 2].y);
  }
}

// ---------------------------------------------------------------------------
// Position and direction at an arc length.
//
// The result for a sample is the one a scan of the length table from its start
// gives: the first vertex within the tolerance of s, or else the segment ending
// at the first vertex lying beyond s by more than the tolerance; when neither
// exists the previous result stays. Samples come in increasing order, so the
// scan resumes behind the vertices that can no longer match any later sample.

template <class P>
class Locator {
 public:
  explicit Locator(const DensePath<P>& path)
      : q_(path.q.data()),
        cum_(path.cum.data()),
        angle_(path.angle.data()),
        m_(path.q.size()),
        length_(path.length) {
    if (m_ == 2) {
      x0_ = q_[0].x;
      y0_ = q_[0].y;
      dx_ = q_[1].x - q_[0].x;
      dy_ = q_[1].y - q_[0].y;
      a0_ = directionDeg(dx_, dy_);
    }
  }

  double x = 0.0;
  double y = 0.0;
  double theta = 0.0;  // degrees

  void locate(double s) {
    if (m_ < 2) {
      // A single vertex: no length and no direction of its own.
      x = q_[0].x;
      y = q_[0].y;
      theta = 0.0;
      return;
    }
    // A sample beyond the end wraps to the start unless it lies within a
    // relative 0.0001 above a whole multiple of the length. Below the length
    // the rule leaves s as it is (fmod would return it unchanged), so the
    // division is only needed at the end.
    if (s >= length_) {
      const double q = s / length_;
      const double frac = q - std::trunc(q);
      if (!(frac >= 0.0 && frac < kTol)) {
        s = std::fmod(s, length_);
        if (s < 0.0) s += length_;
      }
    }
    if (m_ == 2) {
      const double t = s / length_;
      x = x0_ + t * dx_;
      y = y0_ + t * dy_;
      theta = a0_;
      return;
    }

    // A vertex is behind s for good once it is neither within the tolerance of
    // s nor beyond it; both tests only get harder to pass as s grows, and the
    // table is non-decreasing, so such vertices form a prefix.
    if (s < last_) live_ = 0;
    last_ = s;
    while (live_ < m_ && cum_[live_] - kTol <= s && (cum_[live_] - s) + kTol <= 0.0)
      ++live_;

    for (std::size_t i = live_; i < m_; ++i) {
      const double diff = cum_[i] - s;
      if (diff < kTol && diff + kTol > 0.0) {
        x = q_[i].x;
        y = q_[i].y;
        theta = angle_[i];
        return;
      }
      if (cum_[i] - kTol > s) {
        // cum_[0] is 0 and s is never negative, so i >= 1 here.
        onSegment(i, s);
        return;
      }
    }
  }

 private:
  void onSegment(std::size_t i, double s) {
    if (i != seg_) {
      seg_ = i;
      c0_ = cum_[i - 1];
      den_ = cum_[i] - cum_[i - 1];
      x0_ = q_[i - 1].x;
      y0_ = q_[i - 1].y;
      dx_ = q_[i].x - q_[i - 1].x;
      dy_ = q_[i].y - q_[i - 1].y;
      a0_ = angle_[i - 1];
      // The shorter way round from one vertex direction to the next.
      da_ = angle_[i] - angle_[i - 1];
      if (da_ < -180.0) {
        da_ += 360.0;
      } else if (da_ > 180.0) {
        da_ -= 360.0;
      }
    }
    const double t = (s - c0_) / den_;
    x = x0_ + t * dx_;
    y = y0_ + t * dy_;
    theta = a0_ + da_ * t;
  }

  const P* q_;
  const double* cum_;
  const double* angle_;
  std::size_t m_;
  double length_;

  std::size_t live_ = 0;  // first vertex that may still match
  double last_ = 0.0;     // previous (wrapped) sample
  std::size_t seg_ = 0;   // segment whose values are cached below (0: none)
  double c0_ = 0.0, den_ = 1.0, x0_ = 0.0, y0_ = 0.0, dx_ = 0.0, dy_ = 0.0, a0_ = 0.0, da_ = 0.0;
};

// ---------------------------------------------------------------------------
// Figures. Each maps (s, direction) to a local offset (u, v) and the angle it
// is rotated by. Rotated by the left normal nu = theta + 90 degrees, u points
// across the path to the left and v backwards along it; rotated by theta
// itself, u points forwards and v to the left.

struct Offset {
  double u;
  double v;
  double beta;  // radians
};

double normalOf(double theta) {
  return (theta + 90.0) * kDegToRad;
}

struct Circle {
  double r;
  double space;
  Offset operator()(double s, double theta) const {
    const double phi = kTwoPi * s / space;
    return {r * std::cos(phi), r * std::sin(phi), normalOf(theta)};
  }
};

struct Sine {
  double a;
  double space;
  Offset operator()(double s, double theta) const {
    const double phi = kTwoPi * s / space;
    return {a * std::sin(phi), 0.0, normalOf(theta)};
  }
};

struct Ellipse {
  double across;  // half of the across-path size
  double along;   // half of the along-path size
  double space;
  Offset operator()(double s, double theta) const {
    const double phi = kTwoPi * s / space;
    return {across * std::cos(phi), along * std::sin(phi), normalOf(theta)};
  }
};

// Lemniscate r^2 = cos 2*alpha, one full figure per period. Across the path
// its long axis (A) lies along the normal; along the path, along the tangent.
template <bool kAcross>
struct Eight {
  double a;
  double b;
  double space;
  Offset operator()(double s, double theta) const {
    double tau = std::fmod(s * 180.0 / space, 180.0);
    if (tau < 0.0) tau += 180.0;
    double alpha;
    if constexpr (kAcross) {
      alpha = tau < 90.0 ? 45.0 - tau : tau + 45.0;
    } else {
      alpha = tau < 90.0 ? tau - 45.0 : 315.0 - tau;
    }
    const double c2 = std::cos(2.0 * alpha * kDegToRad);
    const double k = c2 < 0.0 ? 0.0 : std::sqrt(c2);
    const double u = std::cos(alpha * kDegToRad) * k * a;
    const double v = std::sin(alpha * kDegToRad) * k * b;
    return {u, v, kAcross ? normalOf(theta) : theta * kDegToRad};
  }
};

template <class P, class Figure>
void sweep(const DensePath<P>& path, double step, const Figure& figure, std::vector<P>& out) {
  Locator<P> loc(path);
  const double limit = path.length + kTol;
  // s is accumulated, not recomputed from a sample count.
  for (double s = 0.0; s <= limit; s += step) {
    loc.locate(s);
    const Offset o = figure(s, loc.theta);
    const double cb = std::cos(o.beta);
    const double sb = std::sin(o.beta);
    out.push_back(P{loc.x + (o.u * cb - o.v * sb), loc.y + (o.u * sb + o.v * cb)});
  }
}

template <class P>
void wobble(const WobbleParam& par, const std::vector<P>& in, std::vector<P>& out) {
  const double space = par.wobbleSpace;
  if (!par.bEnable || !(space >= kMinSpace) || in.empty()) return;
  const double step = space / kSamplesPerPeriod;

  DensePath<P> path;
  densify(in, space, path);
  if (!std::isfinite(path.length)) {
    utils::Logger(utils::LogLevel::Warning, "Param")
        << "wobble skipped: path length is not finite, " << path.length;
    return;
  }
  // Every sample up to the end, one more for the start and one for the drift
  // of the accumulated arc length.
  out.reserve(out.size() + checkedCount(out, std::floor((path.length + kTol) / step) + 2.0));

  switch (par.wobbleType) {
    case 0:
      sweep(path, step, Circle{par.wobbleDiaX * 0.5f, space}, out);
      break;
    case 1:
      sweep(path, step, Sine{par.wobbleDiaY * 0.5f, space}, out);
      break;
    case 2:
      sweep(path, step, Ellipse{par.wobbleDiaY * 0.5f, par.wobbleDiaX * 0.5f, space}, out);
      break;
    case 3:
      sweep(path, step, Eight<true>{par.wobbleDiaY, par.wobbleDiaX, space}, out);
      break;
    default:
      sweep(path, step, Eight<false>{par.wobbleDiaX, par.wobbleDiaY, space}, out);
      break;
  }
}

// ---------------------------------------------------------------------------
// Older generators.

// Local (along, across) in the frame of a segment starting at a with angle arc.
template <class P>
P fromSegmentFrame(const P& a, double along, double across, double cosArc, double sinArc) {
  return P{a.x + along * cosArc - across * sinArc, a.y + along * sinArc + across * cosArc};
}

double fracOf(double x) {
  return x - std::floor(x);
}

// Subtracts whole turns while the angle is above one turn.
double reduceTurns(double a) {
  if (!(a < 1e9)) return std::fmod(a, kTwoPi);
  while (a > kTwoPi)
    a -= kTwoPi;
  return a;
}

// Sample count of a rounded-down real, zero when it is negative or not a number.
// The generators append segment after segment, so they leave the growth of the
// output to push_back rather than reserving per segment.
template <class P>
std::size_t sampleCount(const std::vector<P>& out, double n) {
  n = std::floor(n);
  if (!(n > 0.0)) return 0;
  return checkedCount(out, n);
}

// Circle-like figure: `along` scales the cosine term, `across` the sine term,
// 10*pi samples per period advancing space / (10*pi) each.
template <class P>
void cycleOnSegment(const P& a, const P& b, double along, double across, double rCount,
                    double space, std::vector<P>& out, double phase) {
  const double d = utils::_impl::distance(b.x - a.x, b.y - a.y);
  const std::size_t n = sampleCount(out, kTwoPi * rCount * (d / space) / (rCount / 5.0));
  if (n == 0) {
    out.push_back(P{a.x, a.y});
    return;
  }
  const double arc = std::atan2(b.y - a.y, b.x - a.x);
  const double ca = std::cos(arc);
  const double sa = std::sin(arc);
  const double advance = space / (kTwoPi * 5.0);
  for (std::size_t j = 0; j < n; ++j) {
    const double w = 0.2 * static_cast<double>(j) + phase;
    out.push_back(fromSegmentFrame(a, along * std::cos(w) + static_cast<double>(j) * advance,
                                   across * std::sin(w), ca, sa));
  }
}

// Sine across one segment, samples at first, first + dx, ... while below d + tol.
// Returns the angle of the last sample, or `phase` when there was none.
template <class P>
double sineOnSegment(const P& a, const P& b, double amplitude, double period, double first,
                     double dx, bool accumulate, std::vector<P>& out, double phase) {
  const double d = utils::_impl::distance(b.x - a.x, b.y - a.y);
  const double end = d + kTol;
  const std::size_t bound = sampleCount(out, (end - first) / dx + 2.0);
  const double arc = std::atan2(b.y - a.y, b.x - a.x);
  const double ca = std::cos(arc);
  const double sa = std::sin(arc);
  double last = phase;
  std::size_t j = 0;
  for (double x = first; x < end && j < bound; ++j) {
    last = x * kTwoPi / period + phase;
    out.push_back(fromSegmentFrame(a, x, amplitude * std::sin(last), ca, sa));
    x = accumulate ? x + dx : first + static_cast<double>(j + 1) * dx;
  }
  return last;
}

template <class P>
void sinePath(const WobbleParam& par, const std::vector<P>& in, std::vector<P>& out) {
  const double space = par.wobbleSpace;
  if (in.size() < 2 || !(space >= kMinSpace)) return;
  double phase = 0.0;
  for (std::size_t i = 0; i + 1 < in.size(); ++i) {
    const P& a = in[i];
    const P& b = in[i + 1];
    const double d = utils::_impl::distance(b.x - a.x, b.y - a.y);
    // Fit a whole number of half periods into the segment.
    double p = space;
    if (d / (p * 0.5) > 1.0) p = 2.0 * d / std::trunc(d / (p * 0.5) + 0.5);
    const double dx = p / 50.0;
    const double last =
        sineOnSegment(a, b, double{par.wobbleDiaX}, p, i == 0 ? 0.0 : dx, dx, false, out, phase);
    if (!out.empty()) phase = reduceTurns(last);
  }
}

// Lemniscate (sin t, sin t cos t) / (1 + cos^2 t), sampled every 6 degrees, one
// figure per period.
template <class P>
void eightOnSegment(const WobbleParam& par, const P& a, const P& b, std::vector<P>& out,
                    double& phase, bool flag) {
  const double space = par.wobbleSpace;
  double along = par.wobbleDiaX;
  double across = par.wobbleDiaY;
  if (flag) {
    along = par.wobbleDiaY * 0.5 * double{1.4f};
    across = par.wobbleDiaX * 0.5 * double{1.4f};
  }
  const double d = utils::_impl::distance(b.x - a.x, b.y - a.y);
  const std::size_t n = sampleCount(out, 60.0 * d / space);
  if (n == 0) {
    out.push_back(P{a.x, a.y});
  } else {
    const double arc = std::atan2(b.y - a.y, b.x - a.x);
    const double ca = std::cos(arc);
    const double sa = std::sin(arc);
    const double dt = 6.0 * kDegToRad;
    const double advance = space / 60.0;
    for (std::size_t j = 0; j < n; ++j) {
      const double t = phase + static_cast<double>(j) * dt;
      const double st = std::sin(t);
      const double ct = std::cos(t);
      const double den = 1.0 + ct * ct;
      out.push_back(fromSegmentFrame(a, static_cast<double>(j) * advance + st / den * along,
                                     st * ct / den * across, ca, sa));
    }
  }
  phase = fracOf(phase / kTwoPi + d / space) * kTwoPi;
}

template <class P>
void eightPath(const WobbleParam& par, const std::vector<P>& in, std::vector<P>& out, bool flag) {
  if (in.size() < 2 || !(double{par.wobbleSpace} >= kMinSpace)) return;
  double phase = 0.0;
  for (std::size_t i = 0; i + 1 < in.size(); ++i) {
    eightOnSegment(par, P{in[i].x, in[i].y}, P{in[i + 1].x, in[i + 1].y}, out, phase, flag);
  }
}

}  // namespace

void WobblePathProc::doWobble(const std::vector<MPointF2d>& in, std::vector<MPointF2d>& out) const {
  wobble(par_, in, out);
}

void WobblePathProc::doWobble(const std::vector<Point2d>& in, std::vector<Point2d>& out) const {
  wobble(par_, in, out);
}

double WobblePathProc::calcDistance(const Point2d& a, const Point2d& b) {
  return utils::_impl::distance(b.x - a.x, b.y - a.y);
}

double WobblePathProc::calcArc(const Point2d& a, const Point2d& b) {
  return std::atan2(b.y - a.y, b.x - a.x);
}

Point2d WobblePathProc::pointfRotateByArc(const Point2d& p, const Point2d& c, double arc) {
  const double ca = std::cos(arc);
  const double sa = std::sin(arc);
  return {c.x + (p.x - c.x) * ca - (p.y - c.y) * sa, c.y + (p.x - c.x) * sa + (p.y - c.y) * ca};
}

void WobblePathProc::getPointsOnCircle(const Point2d& a, const Point2d& b,
                                       std::vector<Point2d>& out, double& phase) const {
  const double r = par_.wobbleDiaX;
  const double space = par_.wobbleSpace;
  cycleOnSegment(a, b, r, r, r, space, out, phase);
  phase += fracOf(calcDistance(a, b) / space) * kTwoPi;
}

void WobblePathProc::getPointsOnEllipse(const Point2d& a, const Point2d& b,
                                        std::vector<Point2d>& out, double& phase) const {
  const double along = par_.wobbleDiaY;
  const double space = par_.wobbleSpace;
  cycleOnSegment(a, b, along, double{par_.wobbleDiaX}, along, space, out, phase);
  phase = fracOf(phase / kTwoPi + calcDistance(a, b) / space) * kTwoPi;
}

void WobblePathProc::getPointsOnSin(const Point2d& a, const Point2d& b, std::vector<Point2d>& out,
                                    double& phase) const {
  const double dx = double{0.01f};
  const double last = sineOnSegment(a, b, double{par_.wobbleDiaX}, double{par_.wobbleSpace}, dx, dx,
                                    true, out, phase);
  if (!out.empty()) phase = reduceTurns(last);
}

void WobblePathProc::genSin(const std::vector<MPointF2d>& in, std::vector<MPointF2d>& out) const {
  sinePath(par_, in, out);
}

void WobblePathProc::genSin(const std::vector<Point2d>& in, std::vector<Point2d>& out) const {
  sinePath(par_, in, out);
}

void WobblePathProc::getPointsOnEight(const Point2d& a, const Point2d& b, std::vector<Point2d>& out,
                                      double& phase, bool flag) const {
  eightOnSegment(par_, a, b, out, phase, flag);
}

void WobblePathProc::gen8(const std::vector<MPointF2d>& in, std::vector<MPointF2d>& out,
                          bool flag) const {
  eightPath(par_, in, out, flag);
}

void WobblePathProc::gen8(const std::vector<Point2d>& in, std::vector<Point2d>& out,
                          bool flag) const {
  eightPath(par_, in, out, flag);
}

}  // namespace param
