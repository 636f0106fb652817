#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include <param/legacy/sriFile.h>

namespace {

constexpr std::size_t valueSize = 64u << 20;

// A version 2 stream whose body is one value of 64 MB followed by the end marker.
// Plain values hold no byte that starts a marker; random ones hold about three
// such bytes in 256, none of which completes a marker (the bytes that follow a
// marker's first byte are kept out); the last kind is all "{".
const std::vector<char>& stream(int kind) {
  static std::vector<char> streams[3];
  std::vector<char>& s = streams[kind];
  if (!s.empty()) return s;
  s.assign(256 + valueSize + 4, kind == 2 ? '{' : 'a');
  const std::uint32_t header[2] = {0xd097adf2, 2};
  std::memcpy(s.data(), header, sizeof header);
  if (kind == 1) {
    std::mt19937_64 rng(42);
    for (std::size_t i = 256; i < 256 + valueSize; ++i) {
      const char c = static_cast<char>(rng());
      s[i] = c == ':' || c == '!' || c == '8' ? 'a' : c;
    }
  }
  std::memcpy(s.data() + 256 + valueSize, "}!~p", 4);
  return s;
}

void BM_MoveToDataEnd(benchmark::State& state) {
  const std::vector<char>& s = stream(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    param::SriFile f;
    if (!f.readFromStream(s.data(), s.size())) state.SkipWithError("the header was refused");
    f.MoveToDataEnd();
    if (f.GetPos() != valueSize) state.SkipWithError("the end marker was not found");
    benchmark::DoNotOptimize(f);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(valueSize));
}

}  // namespace

// Argument 0: a value without marker bytes; 1: random bytes; 2: nothing but
// first bytes of the start marker (the worst case: every byte is a candidate).
BENCHMARK(BM_MoveToDataEnd)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
