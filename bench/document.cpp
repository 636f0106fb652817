// Document file throughput. For a document of about 1 MB of JSON text, each
// encoding's writeToFile and readFromFile are measured beside what they are
// built from, on the same bytes: Boost.JSON's own serialise and parse, the bare
// codec, and (for writing) a bare durable file write of the payload with plain
// POSIX calls. All rates are megabytes of JSON text per second; the file
// benchmarks use wall time, since flushing to disk is waiting, not computing.
//
//   build/release/bench/bench_document --benchmark_min_time=1
//   PARAM_BENCH_DIR=/dev/shm build/release/bench/bench_document --benchmark_min_time=1
#include <benchmark/benchmark.h>

#include <boost/json.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <utils/algorithm/aes.h>
#include <utils/algorithm/base64.h>
#include <utils/algorithm/lzma.h>
#include <utils/algorithm/xor.h>

#include <param/params/penArray.h>
#include <param/seri/seriDocument.h>

namespace {

namespace alg = utils::algorithm;
namespace fs = std::filesystem;

// About 1 MB: a table of 1400 pens with varied values.
const param::SeriDocument& document() {
  static const param::SeriDocument doc = [] {
    param::PenArray pens(1400);
    for (std::size_t i = 0; i < pens.size(); ++i) {
      pens[i].laserPower = static_cast<int>(i % 100);
      pens[i].runSpeed = 100.0f + static_cast<float>(i) * 0.37f;
      pens[i].laserFreq = 20.0f + static_cast<float>(i % 80) * 0.1f;
      pens[i].stepMark.stepLen = 0.001f * static_cast<float>(i % 50);
    }
    param::SeriDocument d(utils::JsonSave::instance, ".cfg");
    param::SeriObject table(utils::JsonSave::instance);
    if (pens.save(table) != 0) std::abort();
    d.setSeriObject("pens", std::move(table));
    const fs::path probe = fs::temp_directory_path() / "param-bench-probe.cfg";
    // Writing stores the information block.
    if (d.writeToFile(probe, param::SeriOption()) != 0) std::abort();
    fs::remove(probe);
    return d;
  }();
  return doc;
}

const std::string& text() {
  static const std::string t = document().stringfy();
  return t;
}

const std::uint8_t kKey[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

// The options measured: one per encoding, AES in its authenticated default.
param::SeriOption option(int encoding) {
  return param::SeriOption(static_cast<param::SeriOption::Encoding>(encoding), 0, 0);
}

const char* name(int encoding) {
  static const char* names[] = {"base64", "xor", "lzma", "aes-gcm"};
  return names[encoding];
}

utils::SdkError encodeBare(int encoding, const std::string& in, std::string& out) {
  switch (encoding) {
    case 0:
      alg::base64::encode(in.data(), in.size(), out);
      return 0;
    case 1:
      alg::XOR::encode(in.data(), in.size(), kKey, 16, out);
      return 0;
    case 2:
      return alg::lzma::compress(in.data(), in.size(), out);
    default:
      return alg::aes::encrypt(alg::AESAlgorithm::GCM, in.data(), in.size(), kKey, 16, out);
  }
}

utils::SdkError decodeBare(int encoding, const std::string& in, std::string& out) {
  switch (encoding) {
    case 0:
      return alg::base64::decode(in.data(), in.size(), out);
    case 1:
      alg::XOR::decode(in.data(), in.size(), kKey, 16, out);
      return 0;
    case 2:
      return alg::lzma::decompress(in.data(), in.size(), out);
    default:
      return alg::aes::decrypt(alg::AESAlgorithm::GCM, in.data(), in.size(), kKey, 16, out);
  }
}

// The folder of the files: PARAM_BENCH_DIR, or the system's temporary folder.
// Run once on a disk and once on a memory file system (/dev/shm) to tell the
// cost of flushing to the disk from the library's own.
fs::path benchFile() {
  const char* dir = std::getenv("PARAM_BENCH_DIR");
  const fs::path folder = dir && *dir ? fs::path(dir) : fs::temp_directory_path();
  return folder / ("param-bench-" + std::to_string(::getpid()) + ".cfg");
}

void setRate(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text().size()));
}

void BM_BareSerialize(benchmark::State& state) {
  const boost::json::value tree = boost::json::parse(text());
  for (auto _ : state)
    benchmark::DoNotOptimize(boost::json::serialize(tree));
  setRate(state);
}
BENCHMARK(BM_BareSerialize)->Unit(benchmark::kMillisecond);

void BM_BareParse(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(boost::json::parse(text()));
  setRate(state);
}
BENCHMARK(BM_BareParse)->Unit(benchmark::kMillisecond);

void BM_LibraryStringfy(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(document().stringfy());
  setRate(state);
}
BENCHMARK(BM_LibraryStringfy)->Unit(benchmark::kMillisecond);

void BM_LibraryParse(benchmark::State& state) {
  for (auto _ : state) {
    param::SeriDocument doc(utils::JsonLoad::instance);
    benchmark::DoNotOptimize(doc.parser(text().data(), text().size()));
  }
  setRate(state);
}
BENCHMARK(BM_LibraryParse)->Unit(benchmark::kMillisecond);

void BM_BareEncode(benchmark::State& state) {
  const int encoding = static_cast<int>(state.range(0));
  state.SetLabel(name(encoding));
  std::string out;
  for (auto _ : state) {
    if (encodeBare(encoding, text(), out) != 0) state.SkipWithError("encode failed");
    benchmark::DoNotOptimize(out);
  }
  setRate(state);
}
BENCHMARK(BM_BareEncode)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

void BM_BareDecode(benchmark::State& state) {
  const int encoding = static_cast<int>(state.range(0));
  state.SetLabel(name(encoding));
  std::string encoded, out;
  if (encodeBare(encoding, text(), encoded) != 0) state.SkipWithError("encode failed");
  for (auto _ : state) {
    if (decodeBare(encoding, encoded, out) != 0) state.SkipWithError("decode failed");
    benchmark::DoNotOptimize(out);
  }
  setRate(state);
}
BENCHMARK(BM_BareDecode)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

// What durable storage costs by itself: the payload's bytes written to a
// temporary file with plain POSIX calls, flushed, renamed over the target and
// the directory flushed, as writeToFile does.
void BM_BareDurableWrite(benchmark::State& state) {
  const int encoding = static_cast<int>(state.range(0));
  state.SetLabel(name(encoding));
  std::string payload;
  if (encodeBare(encoding, text(), payload) != 0) state.SkipWithError("encode failed");
  payload.insert(0, 8, '\0');
  const fs::path file = benchFile();
  const std::string temporary = file.string() + ".tmp";
  for (auto _ : state) {
    const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0 || ::write(fd, payload.data(), payload.size()) < 0 || ::fsync(fd) != 0) {
      state.SkipWithError("write failed");
    }
    ::close(fd);
    std::rename(temporary.c_str(), file.c_str());
    const int dir = ::open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY);
    ::fsync(dir);
    ::close(dir);
  }
  fs::remove(file);
  setRate(state);
}
BENCHMARK(BM_BareDurableWrite)->DenseRange(0, 3)->UseRealTime()->Unit(benchmark::kMillisecond);

void BM_WriteToFile(benchmark::State& state) {
  const int encoding = static_cast<int>(state.range(0));
  state.SetLabel(name(encoding));
  const fs::path file = benchFile();
  for (auto _ : state) {
    if (document().writeToFile(file, option(encoding)) != 0) state.SkipWithError("write failed");
  }
  fs::remove(file);
  setRate(state);
}
BENCHMARK(BM_WriteToFile)->DenseRange(0, 3)->UseRealTime()->Unit(benchmark::kMillisecond);

void BM_ReadFromFile(benchmark::State& state) {
  const int encoding = static_cast<int>(state.range(0));
  state.SetLabel(name(encoding));
  const fs::path file = benchFile();
  if (document().writeToFile(file, option(encoding)) != 0) state.SkipWithError("write failed");
  for (auto _ : state) {
    param::SeriDocument doc(utils::JsonLoad::instance);
    if (doc.readFromFile(file) != 0) state.SkipWithError("read failed");
  }
  fs::remove(file);
  setRate(state);
}
BENCHMARK(BM_ReadFromFile)->DenseRange(0, 3)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
