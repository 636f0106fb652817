// Values inside a document by key path.

#include <utils/jsonPath.h>

#include "internal/capi.h"

extern "C" {

param_error param_doc_get(const param_doc* doc, const char* path, char** json) {
  if (json == nullptr) return PARAM_C_INVALID_ARGUMENT;
  *json = nullptr;
  if (doc == nullptr || path == nullptr) return PARAM_C_INVALID_ARGUMENT;
  return param_c::guarded([&] {
    utils::JsonPath steps;
    if (param::SdkError e = utils::parseJsonPath(path, steps)) return e;
    std::string text;
    if (param::SdkError e = utils::getJsonText(doc->document, steps, text)) return e;
    return param_c::giveText(text, json);
  });
}

param_error param_doc_set(param_doc* doc, const char* path, const char* json) {
  if (doc == nullptr || path == nullptr || json == nullptr) return PARAM_C_INVALID_ARGUMENT;
  return param_c::guarded([&] {
    utils::JsonPath steps;
    if (param::SdkError e = utils::parseJsonPath(path, steps)) return e;
    return utils::setJsonText(doc->document, steps, json);
  });
}

}  // extern "C"
