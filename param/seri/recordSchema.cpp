#include <param/seri/recordSchema.h>

namespace param {

std::string_view registeredName(std::type_index type) {
  const RecordType* t = RecordRegistry::find(type);
  return t ? t->name : std::string_view();
}

void describeRecordRef(SeriObject& prop, std::type_index type) {
  const std::string_view name = registeredName(type);
  if (name.empty()) {
    prop.set("type", "object");
  } else {
    prop.set("$ref", "#/$defs/" + std::string(name));
  }
}

void describeInteger(SeriObject& prop, std::int64_t lo, std::uint64_t hi) {
  prop.set("type", "integer");
  prop.set("minimum", lo);
  prop.set("maximum", hi);
}

void describeFloating(SeriObject& prop) {
  SeriArray anyOf(utils::JsonSave::instance);
  SeriObject number(utils::JsonSave::instance);
  number.set("type", "number");
  anyOf.addSeriObject(std::move(number));
  SeriObject special(utils::JsonSave::instance);
  SeriArray values(utils::JsonSave::instance);
  for (const char* v : {"NaN", "Infinity", "-Infinity"})
    values.add(v);
  special.setSeriArray("enum", std::move(values));
  anyOf.addSeriObject(std::move(special));
  prop.setSeriArray("anyOf", std::move(anyOf));
}

void describeMeaning(SeriObject& prop, const char* meaning) {
  std::string text = meaning;
  std::string kind;
  if (prop.get("description", kind) == 0 && !kind.empty()) text += "; " + kind;
  prop.set("description", text);
}

void describeArray(SeriObject& prop, void (*items)(SeriObject&), std::size_t length) {
  prop.set("type", "array");
  SeriObject item(utils::JsonSave::instance);
  items(item);
  prop.setSeriObject("items", std::move(item));
  if (length > 0) {
    prop.set("minItems", length);
    prop.set("maxItems", length);
  }
}

SdkError recordSchema(std::string_view type, SeriObject& schema) {
  if (!type.empty() && RecordRegistry::find(type) == nullptr) return utils::errc::keyMissing;
  schema.set("$schema", "https://json-schema.org/draft/2020-12/schema");
  if (type.empty()) {
    schema.set("title", "param records");
  } else {
    schema.set("$ref", "#/$defs/" + std::string(type));
  }
  SeriObject defs(utils::JsonSave::instance);
  for (const RecordType& t : RecordRegistry::types()) {
    SeriObject def(utils::JsonSave::instance);
    def.set("type", "object");
    def.set("title", t.name);
    SeriObject properties(utils::JsonSave::instance);
    t.describe(properties);
    def.setSeriObject("properties", std::move(properties));
    defs.setSeriObject(std::string(t.name).c_str(), std::move(def));
  }
  schema.setSeriObject("$defs", std::move(defs));
  return 0;
}

}  // namespace param
