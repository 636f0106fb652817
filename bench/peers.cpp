// The library beside the same job written by hand with other JSON libraries,
// in one run on one document: 1000 pens and a board record (0.69 MB of
// JSON text). For every encoding:
//
//   read/<encoding>/<who>   file -> decoded text -> parsed -> PenArray and LmcParam
//   write/<encoding>/<who>  PenArray and LmcParam -> JSON text -> encoded -> durable file
//   bare/xz-decode          the LZMA payload decoded by liblzma alone, in memory
//   bare/xz-encode          the JSON text encoded by liblzma alone, in memory
//
// <who> is param (the library), nlohmann (nlohmann-json), rapidjson and
// simdjson (reading only); see support/peers.h for what the hand-written code
// does. Before timing, a check proves that every peer loads the library's
// values and writes the library's text (support/peerCheck.h). After the run it
// prints the table of times with param ÷ peer, taking the fastest repetition,
// then the peak memory ÷ JSON text of reading and writing a document of about
// 100 MB, each in a fresh process (support/memoryProbe.h). Times are wall
// time, like bench_document's.
//
//   PARAM_BENCH_DIR=/dev/shm build/release/bench/bench_peers --benchmark_repetitions=5
//       --benchmark_report_aggregates_only=true
//
// Options besides Google Benchmark's: --peers_memory_mb=N sets the size of
// the large document (0 skips the memory table); --peers_check_only runs the
// check alone (the bench_peers_check test).
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <utils/algorithm/lzma.h>

#include "support/contenders.h"
#include "support/libraryJob.h"
#include "support/memoryProbe.h"
#include "support/peerCheck.h"
#include "support/summaryReporter.h"

namespace {

constexpr std::size_t kPens = 1000;

const peers::Job& sample() {
  static const peers::Job job = peers::sampleJob(kPens);
  return job;
}

std::int64_t textBytes() {
  static const auto n = static_cast<std::int64_t>(peers::librarySavedText(sample()).size());
  return n;
}

// PARAM_BENCH_DIR, or the system's temporary folder.
std::string folder() {
  const char* dir = std::getenv("PARAM_BENCH_DIR");
  return dir && *dir ? std::string(dir) : std::filesystem::temp_directory_path().string();
}

std::string benchFile(const std::string& tag) {
  return folder() + "/param-peers-" + std::to_string(::getpid()) + "-" + tag + ".cfg";
}

void readJob(benchmark::State& state, const peers::Contender* who, int encoding) {
  const std::string file = benchFile("read");
  if (!peers::libraryWrite(sample(), file, peers::encodingOption(encoding))) {
    state.SkipWithError("cannot write the document");
    return;
  }
  peers::Job job;  // loaded in place, as a host reloads its tables
  for (auto _ : state) {
    if (!who->read(file, job)) state.SkipWithError("read failed");
  }
  std::remove(file.c_str());
  state.SetBytesProcessed(state.iterations() * textBytes());
}

void writeJob(benchmark::State& state, const peers::Contender* who, int encoding) {
  const std::string file = benchFile("write");
  for (auto _ : state) {
    if (!who->write(sample(), file, peers::encodingOption(encoding)))
      state.SkipWithError("write failed");
  }
  std::remove(file.c_str());
  state.SetBytesProcessed(state.iterations() * textBytes());
}

// The LZMA payload of the document decoded by the bare codec, in memory: what
// an LZMA read costs beyond a base64 one is measured against it.
void bareXzDecode(benchmark::State& state) {
  const std::string file = benchFile("xz");
  std::string payload;
  const bool written = peers::libraryWrite(sample(), file, peers::encodingOption(2));
  std::ifstream in(file, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::remove(file.c_str());
  if (!written || bytes.size() < 8) {
    state.SkipWithError("cannot write the document");
    return;
  }
  payload = bytes.substr(8);
  std::string text;
  for (auto _ : state) {
    if (utils::algorithm::lzma::decompress(payload.data(), payload.size(), text) != 0)
      state.SkipWithError("decode failed");
  }
  state.SetBytesProcessed(state.iterations() * textBytes());
}

// The document's text encoded by the bare codec, in memory: what an LZMA
// write costs beyond a base64 one is measured against it.
void bareXzEncode(benchmark::State& state) {
  const std::string text = peers::librarySavedText(sample());
  std::string payload;
  for (auto _ : state) {
    if (utils::algorithm::lzma::compress(text.data(), text.size(), payload) != 0)
      state.SkipWithError("encode failed");
  }
  state.SetBytesProcessed(state.iterations() * textBytes());
}

double fastest(const std::vector<double>& v) {
  return *std::min_element(v.begin(), v.end());
}

// Grouped by job and encoding, so that the contenders of one row run close
// together in time.
void registerBenchmarks() {
  for (int encoding = 0; encoding < 4; ++encoding) {
    const std::string suffix = std::string("/") + peers::kEncodingNames[encoding] + "/";
    for (const peers::Contender& c : peers::contenders()) {
      benchmark::RegisterBenchmark(("read" + suffix + c.name).c_str(), readJob, &c, encoding)
          ->UseRealTime()
          ->ComputeStatistics("min", fastest)
          ->Unit(benchmark::kMillisecond);
    }
    if (encoding == 2) {
      benchmark::RegisterBenchmark(peers::kBareXzName, bareXzDecode)
          ->UseRealTime()
          ->ComputeStatistics("min", fastest)
          ->Unit(benchmark::kMillisecond);
      benchmark::RegisterBenchmark(peers::kBareXzEncodeName, bareXzEncode)
          ->UseRealTime()
          ->ComputeStatistics("min", fastest)
          ->Unit(benchmark::kMillisecond);
    }
    for (const peers::Contender& c : peers::contenders()) {
      if (c.write == nullptr) continue;
      benchmark::RegisterBenchmark(("write" + suffix + c.name).c_str(), writeJob, &c, encoding)
          ->UseRealTime()
          ->ComputeStatistics("min", fastest)
          ->Unit(benchmark::kMillisecond);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::strcmp(argv[1], peers::kMemoryCaseFlag) == 0)
    return peers::memoryCaseMain(argc, argv);

  benchmark::Initialize(&argc, argv);
  bool checkOnly = false;
  double memoryMb = 100;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--peers_check_only") == 0) {
      checkOnly = true;
    } else if (std::strncmp(argv[i], "--peers_memory_mb=", 18) == 0) {
      memoryMb = std::atof(argv[i] + 18);
    } else {
      std::fprintf(stderr, "unknown option %s\n", argv[i]);
      return 2;
    }
  }

  peers::checkPeers(sample(), folder());
  std::printf("peer check passed: every peer loads the library's values and writes its text\n");
  if (checkOnly) return 0;

  registerBenchmarks();
  peers::SummaryReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.printSummary();
  if (memoryMb > 0) peers::printMemoryTable(memoryMb, folder());
  benchmark::Shutdown();
  return 0;
}
