// Pen table throughput: saving 1000 pens into a document, saving them back over
// the object they were loaded from, loading them from an already parsed
// document, and, for comparison in the same run, parsing and writing the JSON
// text that holds them.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include <param/params/penArray.h>
#include <param/seri/seriDocument.h>

namespace {

constexpr int kPens = 1000;

param::PenArray samplePens() {
  param::PenArray pens(kPens);
  for (int i = 0; i < kPens; ++i) {
    auto& pen = pens[static_cast<std::size_t>(i)];
    pen.laserPower = i % 100;
    pen.runSpeed = 100.0f + static_cast<float>(i) * 0.5f;
    pen.laserFreq = 20.0f + static_cast<float>(i % 80);
    pen.wobble.bEnable = i % 2 == 0;
  }
  return pens;
}

param::SeriDocument savedDocument(const param::PenArray& pens) {
  param::SeriDocument doc(utils::JsonSave::instance, ".cfg");
  param::SeriObject table(utils::JsonSave::instance);
  if (pens.save(table) != 0) std::abort();
  doc.setSeriObject("pens", std::move(table));
  return doc;
}

void BM_PenArraySave(benchmark::State& state) {
  const param::PenArray pens = samplePens();
  for (auto _ : state) {
    param::SeriDocument doc = savedDocument(pens);
    benchmark::DoNotOptimize(doc);
  }
  state.SetItemsProcessed(state.iterations() * kPens);
}
BENCHMARK(BM_PenArraySave)->Unit(benchmark::kMicrosecond);

// The round trip's save, over the parsed document's own "pens" object. Fetched
// as a view (Take = 0), the object becomes a private copy at the first write
// since the document still shares it; taken out of the document (Take = 1), it
// is updated where it is. Either way the document then holds the result.
void BM_PenArraySaveInPlace(benchmark::State& state) {
  const param::PenArray pens = samplePens();
  const std::string text = savedDocument(pens).stringfy();
  param::SeriDocument doc(utils::JsonLoad::instance);
  if (doc.parser(text.data(), text.size()) != 0) state.SkipWithError("document text");
  const bool take = state.range(0) != 0;
  for (auto _ : state) {
    param::SeriObject table(utils::JsonLoad::instance);
    if (take) {
      doc.takeSeriObject("pens", table);
    } else {
      benchmark::DoNotOptimize(doc.getSeriObject("pens", table));
    }
    benchmark::DoNotOptimize(pens.save(table));
    doc.setSeriObject("pens", std::move(table));
  }
  state.SetItemsProcessed(state.iterations() * kPens);
}
BENCHMARK(BM_PenArraySaveInPlace)->ArgName("Take")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_PenArrayLoad(benchmark::State& state) {
  const std::string text = savedDocument(samplePens()).stringfy();
  param::SeriDocument doc(utils::JsonLoad::instance);
  if (doc.parser(text.data(), text.size()) != 0) state.SkipWithError("parse failed");
  param::PenArray pens(kPens);
  for (auto _ : state) {
    param::SeriObject table(utils::JsonLoad::instance);
    if (doc.getSeriObject("pens", table) != 0) state.SkipWithError("no pens");
    benchmark::DoNotOptimize(pens.load(table));
  }
  state.SetItemsProcessed(state.iterations() * kPens);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_PenArrayLoad)->Unit(benchmark::kMicrosecond);

void BM_PenTextParse(benchmark::State& state) {
  const std::string text = savedDocument(samplePens()).stringfy();
  for (auto _ : state) {
    param::SeriDocument doc(utils::JsonLoad::instance);
    benchmark::DoNotOptimize(doc.parser(text.data(), text.size()));
  }
  state.SetItemsProcessed(state.iterations() * kPens);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_PenTextParse)->Unit(benchmark::kMicrosecond);

void BM_PenTextWrite(benchmark::State& state) {
  const param::SeriDocument doc = savedDocument(samplePens());
  for (auto _ : state) {
    std::string text = doc.stringfy();
    benchmark::DoNotOptimize(text);
  }
  state.SetItemsProcessed(state.iterations() * kPens);
}
BENCHMARK(BM_PenTextWrite)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
