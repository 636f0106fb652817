#pragma once

#include <string_view>
#include <typeindex>
#include <vector>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// One record type as tools and other languages see it: its name and what can
// be done with it without knowing its C++ type.
struct RecordType {
  std::string_view name;  // "PenParam", "LmcParam", "PenArray"...
  std::type_index type;
  // Loads `in` into a record with its defaults, then saves the record into
  // `saved` (which then holds every key, with the defaults for what `in` lacks).
  // Returns the load's code, else the save's.
  SdkError (*loadAndSave)(const SeriObject& in, SeriObject& saved);
  // Writes the JSON Schema "properties" of the record's keys, in order, into
  // `properties` (see recordSchema.h).
  void (*describe)(SeriObject& properties);
};

// Every record type of the library, registered by the same line that defines
// its load and save (PARAM_RECORD_IO), so that the list cannot miss one.
//
// The records whose constructors consult stored defaults (AnchorPoint,
// RectArrayParam, ArrayParam, FillLayerParam, DataRecordParam) are built by
// loadAndSave and describe: call param::load first.
class PARAM_API RecordRegistry {
 public:
  // Sorted by name.
  static std::vector<RecordType> types();
  static const RecordType* find(std::string_view name);
  static const RecordType* find(std::type_index type);

  // Registers a type; the first registration of a name wins.
  static void add(const RecordType& type);
};

// Registers a type at load time of the library.
struct PARAM_API RecordRegistration {
  explicit RecordRegistration(const RecordType& type) { RecordRegistry::add(type); }
};

}  // namespace param
