// Wobble path throughput, in output points per second.
//
//   BM_Figure/<type>          each figure on a 10,000-vertex zigzag (segments of
//                             length 1 turning by 40 degrees), period 0.5
//   BM_Scaling/<vertices>     circle on a straight line of length 20,000 held as
//                             2 or as 100,000 vertices, period 0.5: the cost per
//                             point must not depend on the vertex count
//   BM_ScalingZigzag/100000   the same length as a 100,000-vertex zigzag
//
// The output vector is cleared, not freed, between runs, so that the figures
// measure the sampling rather than the allocator.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include <param/wobble/wobblePathProc.h>

namespace {

using param::MPointF2d;
using param::WobbleParam;
using param::WobblePathProc;

std::vector<MPointF2d> zigzag(int vertices, double segment) {
  std::vector<MPointF2d> p{{0, 0}};
  const double dx = segment * std::cos(20 * 0.017453292519943295);
  const double dy = segment * std::sin(20 * 0.017453292519943295);
  for (int i = 1; i < vertices; ++i)
    p.push_back({p.back().x + dx, i % 2 ? dy : 0.0});
  return p;
}

// A straight line at 30 degrees from (0, 0) to length `length`, in equal pieces.
std::vector<MPointF2d> line(int vertices, double length) {
  std::vector<MPointF2d> p;
  const double c = std::cos(30 * 0.017453292519943295), s = std::sin(30 * 0.017453292519943295);
  for (int i = 0; i < vertices; ++i) {
    const double d = length * i / (vertices - 1);
    p.push_back({d * c, d * s});
  }
  return p;
}

void runWobble(benchmark::State& state, int type, const std::vector<MPointF2d>& in) {
  WobblePathProc proc;
  proc.setWobblePar(WobbleParam{true, type, 0.4f, 0.3f, 0.5f});
  std::vector<MPointF2d> out;
  std::size_t points = 0;
  for (auto _ : state) {
    out.clear();
    proc.doWobble(in, out);
    benchmark::DoNotOptimize(out.data());
    benchmark::ClobberMemory();
    points += out.size();
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(points));
  state.counters["points"] = static_cast<double>(out.size());
  state.counters["s/point"] = benchmark::Counter(
      static_cast<double>(points), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void BM_Figure(benchmark::State& state) {
  static const std::vector<MPointF2d> in = zigzag(10000, 1.0);
  runWobble(state, static_cast<int>(state.range(0)), in);
}
BENCHMARK(BM_Figure)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

void BM_Scaling(benchmark::State& state) {
  const std::vector<MPointF2d> in = line(static_cast<int>(state.range(0)), 20000.0);
  runWobble(state, 0, in);
}
BENCHMARK(BM_Scaling)->Arg(2)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_ScalingZigzag(benchmark::State& state) {
  const std::vector<MPointF2d> in = zigzag(static_cast<int>(state.range(0)), 20000.0 / 99999);
  runWobble(state, 0, in);
}
BENCHMARK(BM_ScalingZigzag)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
