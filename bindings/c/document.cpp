// Documents: create, read, write, list members.

#include <fstream>
#include <memory>

#include <param/errors.h>

#include "internal/capi.h"

namespace {

// The 8-byte option word at the start of a document file.
std::uint64_t headerWord(const char* path) {
  std::ifstream in(utils::path(path).native(), std::ios::binary);
  unsigned char bytes[8] = {};
  if (!in.read(reinterpret_cast<char*>(bytes), sizeof bytes)) return 0;
  std::uint64_t word = 0;
  for (int i = 0; i < 8; ++i)
    word |= static_cast<std::uint64_t>(bytes[i]) << (8 * i);
  return word;
}

}  // namespace

extern "C" {

param_error param_doc_create(param_doc** doc) {
  if (doc == nullptr) return PARAM_C_INVALID_ARGUMENT;
  *doc = nullptr;
  return param_c::guarded([&] {
    *doc = new param_doc;
    return param_error{0};
  });
}

param_error param_doc_read(const char* path, param_doc** doc) {
  if (doc == nullptr) return PARAM_C_INVALID_ARGUMENT;
  *doc = nullptr;
  if (path == nullptr) return PARAM_C_INVALID_ARGUMENT;
  return param_c::guarded([&] {
    auto read = std::make_unique<param_doc>();
    if (param::SdkError e = read->document.readFromFile(path)) return e;
    read->option = headerWord(path);
    *doc = read.release();
    return param_error{0};
  });
}

param_error param_doc_write(param_doc* doc, const char* path, uint64_t option) {
  if (doc == nullptr || path == nullptr) return PARAM_C_INVALID_ARGUMENT;
  return param_c::guarded(
      [&] { return doc->document.writeToFile(path, param::SeriOption(option)); });
}

param_error param_doc_option(const param_doc* doc, uint64_t* option) {
  if (doc == nullptr || option == nullptr) return PARAM_C_INVALID_ARGUMENT;
  *option = doc->option;
  return 0;
}

void param_doc_free(param_doc* doc) {
  delete doc;
}

param_error param_doc_members(const param_doc* doc, char** json) {
  if (json == nullptr) return PARAM_C_INVALID_ARGUMENT;
  *json = nullptr;
  if (doc == nullptr) return PARAM_C_INVALID_ARGUMENT;
  return param_c::guarded([&] {
    utils::JsonArray names(utils::JsonSave::instance);
    for (const std::string& key : doc->document.keys())
      names.add(key);
    return param_c::giveText(names.stringfy(), json);
  });
}

}  // extern "C"
