// Wobble paths: random parameters (any float, NaN and infinities included) and
// polylines (any doubles, or small coordinates that make long outputs likely),
// through both doWobble overloads. An input whose output would pass 20,000
// points is skipped; every other one must append at most the samples its path
// length allows, leave what `out` held, give every point flag 0, and append
// nothing where wobble is off.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <param/wobble/wobblePathProc.h>

#include "fuzzInput.h"

namespace {

using param::MPointF2d;
using param::Point2d;

constexpr double kMaxPoints = 20000;

[[noreturn]] void fail(const char* what, double a, double b) {
  std::fprintf(stderr, "%s: %.17g %.17g\n", what, a, b);
  std::abort();
}

double coordinate(fuzz::Input& in, bool anyDouble) {
  return anyDouble ? in.real() : in.take<std::int16_t>() / 64.0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::quietLog();
  fuzz::Input in(data, size);
  const std::uint8_t mode = in.byte();
  param::WobbleParam par;
  par.bEnable = (mode & 1) == 0;
  par.wobbleType = (mode & 2) ? in.take<std::int32_t>() : static_cast<std::int32_t>(in.pick(5));
  const bool anyFloat = (mode & 4) != 0;
  par.wobbleDiaX = anyFloat ? in.real32() : in.byte() / 16.0f;
  par.wobbleDiaY = anyFloat ? in.real32() : in.byte() / 16.0f;
  par.wobbleSpace = anyFloat ? in.real32() : (in.byte() + 1) / 64.0f;
  const bool anyDouble = (mode & 8) != 0;

  std::vector<MPointF2d> line;
  while (!in.empty() && line.size() < 256) {
    const double x = coordinate(in, anyDouble);
    const double y = coordinate(in, anyDouble);
    line.push_back(MPointF2d{x, y, 7});
  }
  if ((mode & 16) && line.size() > 2) line.push_back(line.front());  // a closed figure

  // What the library may produce: one sample every wobbleSpace / 48 of path
  // length, nothing at all when it has nothing to do.
  double length = 0;
  for (std::size_t i = 1; i < line.size(); ++i)
    length += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
  const double space = par.wobbleSpace;
  const bool works = par.bEnable && space >= 0.001 && !line.empty() && std::isfinite(length);
  const double bound = works ? std::floor((length + 1e-4) / (space / 48.0)) + 4.0 : 0.0;
  if (!(bound <= kMaxPoints)) return 0;

  param::WobblePathProc proc;
  proc.setWobblePar(par);
  std::vector<MPointF2d> out{MPointF2d{1, 2, 3}};
  proc.doWobble(line, out);
  if (out[0].x != 1 || out[0].y != 2 || out[0].flag != 3) fail("out lost what it held", 0, 0);
  if (static_cast<double>(out.size() - 1) > bound) fail("too many points", out.size(), bound);
  for (std::size_t i = 1; i < out.size(); ++i) {
    if (out[i].flag != 0) fail("a point with a flag", i, out[i].flag);
  }

  std::vector<Point2d> plain;
  for (const MPointF2d& p : line)
    plain.emplace_back(p.x, p.y);
  std::vector<Point2d> plainOut;
  proc.doWobble(plain, plainOut);
  if (plainOut.size() != out.size() - 1) fail("the overloads differ", plainOut.size(), out.size());
  return 0;
}
