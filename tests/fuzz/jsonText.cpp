// JSON text: any bytes parsed as a JSON object are read alike in place and
// as a tree. Parsing reads plain text in place and leaves the rest to the
// full parser; a change turns the object into a tree that the full parser
// builds from the same text. Every accessor must read the same from both,
// and the text written must be the same.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <utils/json.h>

#include "../support/jsonDescribe.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto* text = reinterpret_cast<const char*>(data);
  utils::JsonObject read(utils::JsonLoad::instance);
  utils::JsonObject tree(utils::JsonLoad::instance);
  const auto e = read.parser(text, size);
  if (tree.parser(text, size) != e) std::abort();
  if (e != 0) return 0;
  testing_json::settle(tree);
  const std::string inPlace = testing_json::describe(read);
  const std::string asTree = testing_json::describe(tree);
  if (inPlace != asTree || read.stringfy() != tree.stringfy()) {
    std::fprintf(stderr, "in place:\n%s\nas a tree:\n%s\n", inPlace.c_str(), asTree.c_str());
    std::abort();
  }
  return 0;
}
