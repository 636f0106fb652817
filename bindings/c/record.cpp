// Records by type name, through the registry of record types.

#include <param/seri/recordRegistry.h>
#include <param/seri/recordSchema.h>

#include "internal/capi.h"

extern "C" {

param_error param_record_types(char** json) {
  if (json == nullptr) return PARAM_C_INVALID_ARGUMENT;
  *json = nullptr;
  return param_c::guarded([&] {
    utils::JsonArray names(utils::JsonSave::instance);
    for (const param::RecordType& t : param::RecordRegistry::types())
      names.add(t.name);
    return param_c::giveText(names.stringfy(), json);
  });
}

param_error param_record_schema(const char* type, char** json) {
  if (json == nullptr) return PARAM_C_INVALID_ARGUMENT;
  *json = nullptr;
  return param_c::guarded([&] {
    param::SeriObject schema(utils::JsonSave::instance);
    if (param::SdkError e = param::recordSchema(type ? type : "", schema)) return e;
    return param_c::giveText(schema.stringfy(), json);
  });
}

}  // extern "C"
