// Records by type name, through the registry of record types.

#include <string>

#include <param/errors.h>
#include <param/seri/loadReport.h>
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

param_error param_record_load(const char* type, const char* json, char** saved, char** skipped) {
  if (saved == nullptr) return PARAM_C_INVALID_ARGUMENT;
  *saved = nullptr;
  if (skipped != nullptr) *skipped = nullptr;
  if (type == nullptr || json == nullptr) return PARAM_C_INVALID_ARGUMENT;
  return param_c::guarded([&] {
    const param::RecordType* t = param::RecordRegistry::find(type);
    if (t == nullptr) return param_error{utils::errc::keyMissing};
    param::SeriObject in(utils::JsonLoad::instance);
    const std::string_view text(json);
    if (param::SdkError e = in.parser(text.data(), text.size())) return e;
    param::SeriObject out(utils::JsonSave::instance);
    param::LoadReport report;
    const param::SdkError loaded = t->loadAndSave(in, out);
    // The keys the load skipped, as a list a host can show.
    utils::JsonArray list(utils::JsonSave::instance);
    for (const param::SkippedKey& k : report.entries()) {
      utils::JsonObject entry(utils::JsonSave::instance);
      entry.set("path", k.path);
      entry.set("code", k.code);
      entry.set("reason", param::errorText(k.code));
      if (k.found.empty() || entry.setMemberText("found", k.found) != 0) {
        (void)entry.setMemberText("found", "null");
      }
      if (entry.setMemberText("kept", k.kept) != 0) (void)entry.setMemberText("kept", "null");
      (void)list.addJsonObject(std::move(entry));
    }
    if (loaded != 0) return loaded;  // the handler stopped the load: nothing to give
    char* savedText = param_c::copyText(out.stringfy());
    char* skippedText = skipped ? param_c::copyText(list.stringfy()) : nullptr;
    if (savedText == nullptr || (skipped != nullptr && skippedText == nullptr)) {
      std::free(savedText);
      std::free(skippedText);
      return param_error{PARAM_C_INTERNAL_ERROR};
    }
    *saved = savedText;
    if (skipped != nullptr) *skipped = skippedText;
    return param_error{0};
  });
}

}  // extern "C"
