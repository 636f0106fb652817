#pragma once

// The JSON Schema of the records, generated from the same key lists that load
// and save walk (recordIo.h), so that it cannot drift from them.
//
// A third walker, SchemaWriter, goes over a record's keys in order and writes
// one JSON Schema property per key: its JSON type, the range of an integer, the
// length of a fixed array, a "$ref" to a nested record type, and the key's
// built-in default (what save writes for a default record).

#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>
#include <typeindex>

#include <param/export.h>
#include <param/seri/recordIo.h>
#include <param/seri/recordRegistry.h>

namespace param {

// The schema of one kind of member, without its default.
template <class T>
struct FieldSchema {
  static void describe(SeriObject&) {}  // anything: the type reads it its own way
};

// "#/$defs/<name>" of a registered record type, or an empty view.
PARAM_API std::string_view registeredName(std::type_index type);

// Sets "$ref" to the registered type, or "type": "object" for an unknown one.
PARAM_API void describeRecordRef(SeriObject& prop, std::type_index type);

// Sets "type" to "integer" with the given range.
PARAM_API void describeInteger(SeriObject& prop, std::int64_t lo, std::uint64_t hi);

// A number, or one of the strings "NaN", "Infinity", "-Infinity".
PARAM_API void describeFloating(SeriObject& prop);

// Sets "description" to `meaning`, after what the kind of member already says.
PARAM_API void describeMeaning(SeriObject& prop, const char* meaning);

// "type": "array" with the items described by `items` and, for fixed arrays,
// minItems = maxItems = `length`.
PARAM_API void describeArray(SeriObject& prop, void (*items)(SeriObject&), std::size_t length);

template <utils::JsonScalar T>
struct FieldSchema<T> {
  static void describe(SeriObject& prop) {
    if constexpr (std::is_same_v<T, bool>) {
      prop.set("type", "boolean");
    } else if constexpr (std::is_enum_v<T>) {
      FieldSchema<std::underlying_type_t<T>>::describe(prop);
    } else if constexpr (std::is_integral_v<T>) {
      describeInteger(prop, static_cast<std::int64_t>(std::numeric_limits<T>::min()),
                      static_cast<std::uint64_t>(std::numeric_limits<T>::max()));
    } else {
      describeFloating(prop);
    }
  }
};

template <>
struct FieldSchema<std::string> {
  static void describe(SeriObject& prop) { prop.set("type", "string"); }
};

template <std::size_t N>
struct FieldSchema<char[N]> {
  static void describe(SeriObject& prop) {
    prop.set("type", "string");
    prop.set("maxLength", N - 1);
    prop.set("description", "at most " + std::to_string(N - 1) +
                                " bytes of UTF-8; a longer text is cut at a character boundary");
  }
};

template <class C>
struct FieldSchema<Point2dConcept<C>> {
  static void describe(SeriObject& prop) {
    prop.set("type", "object");
    SeriObject xy(utils::JsonSave::instance);
    for (const char* k : {"x", "y"}) {
      SeriObject p(utils::JsonSave::instance);
      FieldSchema<C>::describe(p);
      xy.setSeriObject(k, std::move(p));
    }
    prop.setSeriObject("properties", std::move(xy));
  }
};

template <SeriRecord T>
struct FieldSchema<T> {
  static void describe(SeriObject& prop) { describeRecordRef(prop, typeid(T)); }
};

template <CustomField T>
struct FieldSchema<T> {
  static void describe(SeriObject& prop) {
    if constexpr (requires { T::describe(prop); }) T::describe(prop);
  }
};

template <class T, std::size_t N>
requires(!std::same_as<T, char>) struct FieldSchema<T[N]> {
  static void describe(SeriObject& prop) { describeArray(prop, &FieldSchema<T>::describe, N); }
};

template <class T, std::size_t N>
struct FieldSchema<std::array<T, N>> {
  static void describe(SeriObject& prop) { describeArray(prop, &FieldSchema<T>::describe, N); }
};

template <class T, class A>
struct FieldSchema<std::vector<T, A>> {
  static void describe(SeriObject& prop) { describeArray(prop, &FieldSchema<T>::describe, 0); }
};

// Walks a record's keys and writes their schema properties (see the top).
class SchemaWriter {
 public:
  explicit SchemaWriter(SeriObject& properties) : properties_(properties) {}

  template <class T>
  SchemaWriter& operator()(const char* key, const T& member, const char* meaning = nullptr) {
    using V = std::remove_cvref_t<T>;
    SeriObject prop(utils::JsonSave::instance);
    FieldSchema<V>::describe(prop);
    if (meaning != nullptr) describeMeaning(prop, meaning);
    KeySink sink{prop, "default"};
    (void)FieldIo<V>::write(sink, member);  // a default that cannot be written is left out
    properties_.setSeriObject(key, std::move(prop));
    return *this;
  }

  template <class T, class A>
  SchemaWriter& strictList(const char* key, const std::vector<T, A>& list,
                           const char* meaning = nullptr) {
    return (*this)(key, list, meaning);
  }

  SdkError result() const { return 0; }

 private:
  SeriObject& properties_;
};

// A default-constructed record in zeroed storage, for the registry: a member
// that the constructor leaves alone on purpose (AxSupRulerCtrlData's rType)
// then reads as 0 instead of whatever the stack held, so that what the
// registry saves and describes is the same on every call.
template <class T>
class ZeroedRecord {
 public:
  ZeroedRecord() {
    std::memset(storage_, 0, sizeof storage_);
    record_ = ::new (static_cast<void*>(storage_)) T;
  }
  ~ZeroedRecord() { record_->~T(); }
  ZeroedRecord(const ZeroedRecord&) = delete;
  ZeroedRecord& operator=(const ZeroedRecord&) = delete;
  T& operator*() { return *record_; }

 private:
  alignas(T) unsigned char storage_[sizeof(T)];
  T* record_ = nullptr;
};

// The JSON Schema (draft 2020-12) of record type `type`, or of every registered
// type when `type` is empty: "$defs" holds one object schema per type, and
// "$ref" names the one asked for. utils::errc::keyMissing for an unknown type.
PARAM_API SdkError recordSchema(std::string_view type, SeriObject& schema);

}  // namespace param

// Registers `Record` (see recordRegistry.h): its name, a load-and-save through
// its key list, and its schema from the same list.
#define PARAM_RECORD_TYPE(Record)                                                          \
  namespace {                                                                              \
  const ::param::RecordRegistration registration_##Record(::param::RecordType{             \
      #Record, typeid(Record),                                                             \
      [](const ::param::SeriObject& in, ::param::SeriObject& saved) -> ::param::SdkError { \
        ::param::ZeroedRecord<Record> record;                                              \
        const ::param::SdkError loaded = (*record).load(in);                               \
        const ::param::SdkError stored = (*record).save(saved);                            \
        return loaded ? loaded : stored;                                                   \
      },                                                                                   \
      [](::param::SeriObject& properties) {                                                \
        ::param::ZeroedRecord<Record> record;                                              \
        keys(::param::SchemaWriter(properties), *record);                                  \
      }});                                                                                 \
  }

// Registers an array of records (a ParamArray), saved as {"params": [...]};
// `meaning` says in a few words what the elements are.
#define PARAM_RECORD_ARRAY_TYPE(Array, meaning)                                                 \
  namespace {                                                                                   \
  const ::param::RecordRegistration registration_##Array(::param::RecordType{                   \
      #Array, typeid(Array),                                                                    \
      [](const ::param::SeriObject& in, ::param::SeriObject& saved) -> ::param::SdkError {      \
        Array array;                                                                            \
        const ::param::SdkError loaded = array.load(in);                                        \
        const ::param::SdkError stored = array.save(saved);                                     \
        return loaded ? loaded : stored;                                                        \
      },                                                                                        \
      [](::param::SeriObject& properties) {                                                     \
        ::param::SeriObject params(::utils::JsonSave::instance);                                \
        ::param::describeArray(params,                                                          \
                               &::param::FieldSchema<typename Array::value_type>::describe, 0); \
        ::param::describeMeaning(params, meaning);                                              \
        properties.setSeriObject("params", std::move(params));                                  \
      }});                                                                                      \
  }
