// Document files: any bytes, read through SeriDocument::readFromFile. Reading
// must refuse bad bytes with a code (never crash, never read outside the file),
// and a document that reads must write back, with the encoding its header
// names, into a file that reads to the same tree: the library reads its own
// output.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

#include <utils/algorithm/codec.h>

#include <param/seri/seriDocument.h>

#include "fuzzInput.h"

namespace {

namespace fs = std::filesystem;

// Two scratch files of this process, removed when it ends.
struct Scratch {
  fs::path input;
  fs::path output;
  Scratch() {
    const fs::path dir = fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
    const std::string stem = "param-fuzz-document-" + std::to_string(getpid());
    input = dir / (stem + ".in");
    output = dir / (stem + ".cfg");
  }
  ~Scratch() {
    std::error_code ec;
    fs::remove(input, ec);
    fs::remove(output, ec);
  }
};

[[noreturn]] void fail(const char* what, const std::string& detail) {
  std::fprintf(stderr, "%s\n%s\n", what, detail.c_str());
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::quietLog();
  // A small payload must not decode into gigabytes: keep a bomb within reach.
  utils::algorithm::setDecodeLimit(std::size_t{16} << 20);
  static const Scratch scratch;

  std::FILE* f = std::fopen(scratch.input.c_str(), "wb");
  if (f == nullptr) return 0;
  const bool written = std::fwrite(data, 1, size, f) == size;
  if (std::fclose(f) != 0 || !written) return 0;

  param::SeriDocument doc(utils::JsonLoad::instance);
  if (doc.readFromFile(scratch.input) != 0) return 0;

  std::uint64_t word = 0;
  for (std::size_t i = 0; i < 8; ++i)
    word |= std::uint64_t{data[i]} << (8 * i);
  param::SeriOption option(word);
  if (option.encoding() > 3) fail("a document read under an unknown encoding", "");

  if (param::SdkError e = doc.writeToFile(scratch.output, option)) {
    fail("a document that reads does not write", std::to_string(e));
  }
  const std::string text = doc.stringfy();
  param::SeriDocument back(utils::JsonLoad::instance);
  if (param::SdkError e = back.readFromFile(scratch.output)) {
    fail("the library does not read its own document", std::to_string(e) + "\n" + text);
  }
  if (back.stringfy() != text) fail("the document changed on its way through a file", text);

  // The indented form is the same tree.
  const std::string pretty = doc.stringfy(2);
  param::SeriObject again(utils::JsonLoad::instance);
  if (again.parser(pretty.data(), pretty.size()) != 0 || again.stringfy() != text) {
    fail("the indented text is not the same tree", pretty);
  }
  return 0;
}
