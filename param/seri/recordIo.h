#pragma once

// The record convention: how a parameter record reads and writes its keys.
//
// A record lists its keys once, in order, in one function template that serves
// both directions:
//
//   namespace {
//   SdkError keys(auto&& io, RecordOf<StepMarkParam> auto& r) {
//     io("bEnable", r.bEnable);
//     io("stepDelay", r.stepDelay);
//     io("stepLen", r.stepLen);
//     return io.result();
//   }
//   }  // namespace
//
//   PARAM_RECORD_IO(StepMarkParam)   // defines load and save from keys()
//
// Each key goes through the error-response step (errorStep): on Abort the walk
// stops and returns the key's code, otherwise the member keeps its value and the
// walk goes on. Loading keeps utils::KeyPath up to date with the key or element
// being read, and a key or element that cannot be read is reported once, where
// it failed, with its path (loadReport.h).
//
// Saving into an object that already holds the record's keys (the object it
// was loaded from) updates them in place and keeps every other member, at every
// depth: a child record, point, fixed array or list is written over the object
// or array stored under its key, element i of an array over element i. A fresh
// object gets exactly the keys of the record, in order.
//
// The kind of a member decides how it is stored (FieldIo below):
//
//   bool, integers, float, double, enums  a JSON number or boolean
//   std::string                           a string
//   char[N]                               a string; a longer one is cut to the whole
//                                         UTF-8 characters that fit in N - 1 bytes
//   Point2dConcept<T>                     an object {"x", "y"}
//   a record (load/save members)          a child object
//   std::array<T, N>, T[N]                an array; loading reads the first
//                                         min(length, N) elements in place
//   std::vector<T>                        an array; loading rebuilds the list at the
//                                         array's length and replaces the member
//                                         only when every element was read
//   a CustomField                         whatever its read and write do

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <utils/json.h>
#include <utils/keyPath.h>
#include <utils/utf8.h>

#include <param/export.h>
#include <param/seri/errorStep.h>
#include <param/seri/loadReport.h>
#include <param/seri/seriObject.h>
#include <param/shape/point2dConcept.h>

namespace param {

// ---- Where a value is read from and written to ----

// The member `key` of an object. A walker that reads an object's keys in turn
// passes `cursor`, the position at which the key is expected (see the lookups
// with a cursor in utils::JsonObject).
struct KeySource {
  const SeriObject& obj;
  const char* key;
  std::size_t* cursor = nullptr;

  template <class T>
  SdkError get(T& value) const {
    return cursor ? obj.get(key, value, *cursor) : obj.get(key, value);
  }
  SdkError getObject(SeriObject& out) const {
    return cursor ? obj.getSeriObject(key, out, *cursor) : obj.getSeriObject(key, out);
  }
  SdkError getArray(SeriArray& out) const {
    return cursor ? obj.getSeriArray(key, out, *cursor) : obj.getSeriArray(key, out);
  }
  // The JSON text stored there, for reports; empty when missing.
  std::string text() const { return obj.memberText(key); }
};

// Sinks put values, and take out the object or array stored there for editing
// in place (errc::keyMissing, errc::wrongType or errc::indexOutOfRange when
// there is none); editObjectAt and editArrayAt below use them.
//
// A sink into a `fresh` object (empty when its record began saving) adds the
// key without looking it up, since a key list names each key once.
struct KeySink {
  SeriObject& obj;
  const char* key;
  bool fresh = false;

  template <class T>
  SdkError put(const T& value) {
    return fresh ? obj.add(key, value) : obj.set(key, value);
  }
  SdkError put(std::string_view value) { return fresh ? obj.add(key, value) : obj.set(key, value); }
  SdkError putObject(SeriObject&& child) {
    return fresh ? obj.addSeriObject(key, std::move(child))
                 : obj.setSeriObject(key, std::move(child));
  }
  SdkError putArray(SeriArray&& child) {
    return fresh ? obj.addSeriArray(key, std::move(child))
                 : obj.setSeriArray(key, std::move(child));
  }
  SdkError takeObject(SeriObject& out) {
    return fresh ? SdkError{utils::errc::keyMissing} : obj.takeSeriObject(key, out);
  }
  SdkError takeArray(SeriArray& out) {
    return fresh ? SdkError{utils::errc::keyMissing} : obj.takeSeriArray(key, out);
  }
};

// Element `index` of an array.
struct IndexSource {
  const SeriArray& arr;
  std::size_t index;

  template <class T>
  SdkError get(T& value) const {
    return arr.get(index, value);
  }
  SdkError getObject(SeriObject& out) const { return arr.getSeriObject(index, out); }
  SdkError getArray(SeriArray& out) const { return arr.getSeriArray(index, out); }
  std::string text() const { return arr.elementText(index); }
};

// Element `index` of an array: replaced when it exists, appended when `index`
// is the array's size.
struct IndexSink {
  SeriArray& arr;
  std::size_t index;

  template <class T>
  SdkError put(const T& value) {
    return arr.set(index, value);
  }
  SdkError putObject(SeriObject&& child) { return arr.setSeriObject(index, std::move(child)); }
  SdkError putArray(SeriArray&& child) { return arr.setSeriArray(index, std::move(child)); }
  SdkError takeObject(SeriObject& out) { return arr.takeSeriObject(index, out); }
  SdkError takeArray(SeriArray& out) { return arr.takeSeriArray(index, out); }
};

// The end of an array: always a fresh element.
struct AppendSink {
  SeriArray& arr;

  template <class T>
  SdkError put(const T& value) {
    return arr.add(value);
  }
  SdkError putObject(SeriObject&& child) { return arr.addSeriObject(std::move(child)); }
  SdkError putArray(SeriArray&& child) { return arr.addSeriArray(std::move(child)); }
  SdkError takeObject(SeriObject&) { return utils::errc::indexOutOfRange; }
  SdkError takeArray(SeriArray&) { return utils::errc::indexOutOfRange; }
};

// Writes a child object at `dst` through `edit(SeriObject&)`: into the object
// already stored there, which keeps its place and its other members, or into a
// fresh one. When `edit` fails, a fresh object is dropped (nothing is stored)
// and a stored one goes back with what was written before the failure.
template <class Sink, class Edit>
SdkError editObjectAt(Sink& dst, Edit&& edit) {
  SeriObject child(utils::JsonSave::instance);
  const bool stored = dst.takeObject(child) == 0;
  const SdkError e = edit(child);
  if (e != 0 && !stored) return e;
  const SdkError put = dst.putObject(std::move(child));
  return e != 0 ? e : put;
}

// The same for a child array, through `edit(SeriArray&)`.
template <class Sink, class Edit>
SdkError editArrayAt(Sink& dst, Edit&& edit) {
  SeriArray child(utils::JsonSave::instance);
  const bool stored = dst.takeArray(child) == 0;
  const SdkError e = edit(child);
  if (e != 0 && !stored) return e;
  const SdkError put = dst.putArray(std::move(child));
  return e != 0 ? e : put;
}

// ---- How each kind of member is stored ----

// A record: anything with `SdkError load(const SeriObject&)` and `SdkError save(SeriObject&)
// const`.
template <class T>
concept SeriRecord = requires(T& t, const T& c, const SeriObject& in, SeriObject& out) {
  { t.load(in) } -> std::same_as<SdkError>;
  { c.save(out) } -> std::same_as<SdkError>;
};

// A key that a record reads and writes in its own way: a small adapter object
// with `SdkError read(const KeySource&)` and `SdkError write(KeySink&) const`.
template <class T>
concept CustomField = requires(T& t, const T& c, const KeySource& in, KeySink& out) {
  { t.read(in) } -> std::same_as<SdkError>;
  { c.write(out) } -> std::same_as<SdkError>;
};

// `R` is the record type `T`, const or not: lets one key list serve load and save.
template <class R, class T>
concept RecordOf = std::same_as<std::remove_const_t<R>, T>;

template <class T>
struct FieldIo;

template <utils::JsonScalar T>
struct FieldIo<T> {
  static SdkError read(const auto& src, T& value) { return src.get(value); }
  static SdkError write(auto& dst, const T& value) { return dst.put(value); }
};

template <>
struct FieldIo<std::string> {
  static SdkError read(const auto& src, std::string& value) { return src.get(value); }
  static SdkError write(auto& dst, const std::string& value) { return dst.put(value); }
};

// A zero-terminated character array of N bytes: at most N - 1 bytes of text, cut
// before a UTF-8 character that would not fit whole.
template <std::size_t N>
struct FieldIo<char[N]> {
  static_assert(N > 0);
  static SdkError read(const auto& src, char (&value)[N]) {
    std::string text;
    if (SdkError e = src.get(text)) return e;
    const std::size_t n = utils::utf8::fitPrefix(text, N - 1);
    std::memcpy(value, text.data(), n);
    std::memset(value + n, 0, N - n);
    return 0;
  }
  static SdkError write(auto& dst, const char (&value)[N]) {
    const void* end = std::memchr(value, 0, N);
    const std::size_t n = end ? static_cast<const char*>(end) - value : N;
    return dst.put(std::string_view(value, n));
  }
};

// A child record: fetched and loaded by the record's own load. Saved over the
// object stored under its key, or into a fresh one; a fresh record whose save
// fails stores nothing and its code is the key's code.
template <SeriRecord T>
struct FieldIo<T> {
  static SdkError read(const auto& src, T& value) {
    SeriObject child(utils::JsonLoad::instance);
    if (SdkError e = src.getObject(child)) return e;
    return value.load(child);
  }
  static SdkError write(auto& dst, const T& value) {
    return editObjectAt(dst, [&value](SeriObject& child) { return value.save(child); });
  }
};

template <CustomField T>
struct FieldIo<T> {
  static SdkError read(const KeySource& src, T& value) { return value.read(src); }
  static SdkError write(KeySink& dst, const T& value) { return value.write(dst); }
};

class RecordLoader;
class RecordSaver;

// A point: an object with the keys "x" and "y", each with the error-response step.
template <class C>
struct FieldIo<Point2dConcept<C>> {
  static SdkError read(const auto& src, Point2dConcept<C>& p);
  static SdkError write(auto& dst, const Point2dConcept<C>& p);
};

// ---- Reports ----

// The JSON text that `write` stores under a key, without asking the error
// handler (a failing save shows what it wrote before failing).
PARAM_API std::string savedText(const std::function<SdkError(KeySink&)>& write);

// Reports the key or element at the top of `path` as skipped with `code`
// (loadReport.h): what `src` holds and the value `kept` still has. Nothing is
// reported when the failure comes up from a deeper key that was reported.
template <class Src, class V>
void reportSkipped(utils::KeyPath& path, SdkError code, const Src& src, const V& kept) {
  if (path.unwinding(code)) return;
  reportSkippedKey(code, src.text(),
                   savedText([&kept](KeySink& sink) { return FieldIo<V>::write(sink, kept); }));
}

// The same with the kept value written by `write`.
template <class Src>
void reportSkippedAs(utils::KeyPath& path, SdkError code, const Src& src,
                     const std::function<SdkError(KeySink&)>& write) {
  if (path.unwinding(code)) return;
  reportSkippedKey(code, src.text(), savedText(write));
}

// Whether an element of kind T can be written over element i of an array.
// Kinds whose FieldIo knows only AppendSink are written into a fresh array.
template <class T>
concept WritesInPlace = requires(IndexSink& sink, const T& value) {
  { FieldIo<T>::write(sink, value) } -> std::same_as<SdkError>;
};

// Fixed-length arrays: loading reads the first min(length, N) elements in place;
// the rest keep their values and surplus elements are ignored. The first element
// that cannot be read ends the load with its code. Saving writes the N elements
// over the first N of the stored array; surplus stored elements are kept.
template <class T, std::size_t N>
struct FixedArrayIo {
  static SdkError read(const auto& src, T* values) {
    SeriArray arr(utils::JsonLoad::instance);
    if (SdkError e = src.getArray(arr)) return e;
    utils::KeyPath& path = utils::KeyPath::current();
    const std::size_t n = std::min(arr.size(), N);
    for (std::size_t i = 0; i < n; ++i) {
      utils::KeyPath::Scope at(path, i);
      const IndexSource element{arr, i};
      if (SdkError e = FieldIo<T>::read(element, values[i])) {
        reportSkipped(path, e, element, values[i]);
        return e;
      }
    }
    return 0;
  }
  static SdkError write(auto& dst, const T* values) {
    if constexpr (WritesInPlace<T>) {
      return editArrayAt(dst, [values](SeriArray& arr) -> SdkError {
        arr.reserve(N);
        for (std::size_t i = 0; i < N; ++i) {
          IndexSink sink{arr, i};
          if (SdkError e = FieldIo<T>::write(sink, values[i])) return e;
        }
        return 0;
      });
    } else {
      SeriArray arr(utils::JsonSave::instance);
      arr.reserve(N);
      AppendSink sink{arr};
      for (std::size_t i = 0; i < N; ++i) {
        if (SdkError e = FieldIo<T>::write(sink, values[i])) return e;
      }
      return dst.putArray(std::move(arr));
    }
  }
};

template <class T, std::size_t N>
requires(!std::same_as<T, char>) struct FieldIo<T[N]> {
  static SdkError read(const auto& src, T (&values)[N]) {
    return FixedArrayIo<T, N>::read(src, values);
  }
  static SdkError write(auto& dst, const T (&values)[N]) {
    return FixedArrayIo<T, N>::write(dst, values);
  }
};

template <class T, std::size_t N>
struct FieldIo<std::array<T, N>> {
  static SdkError read(const auto& src, std::array<T, N>& values) {
    return FixedArrayIo<T, N>::read(src, values.data());
  }
  static SdkError write(auto& dst, const std::array<T, N>& values) {
    return FixedArrayIo<T, N>::write(dst, values.data());
  }
};

// Variable-length lists: loading builds a fresh list of default elements at the
// array's length, reads every element into it, and replaces the member only when
// all were read; otherwise the first failing element's code is returned and the
// member is left as it was. Saving writes element i over stored element i and
// drops stored elements beyond the list's length.
template <class T, class A>
struct FieldIo<std::vector<T, A>> {
  static SdkError read(const auto& src, std::vector<T, A>& values) {
    SeriArray arr(utils::JsonLoad::instance);
    if (SdkError e = src.getArray(arr)) return e;
    return readElements(arr, values);
  }
  // Every element of `arr`, or nothing: the first unreadable element's code.
  static SdkError readElements(const SeriArray& arr, std::vector<T, A>& values) {
    utils::KeyPath& path = utils::KeyPath::current();
    std::vector<T, A> fresh;
    fresh.reserve(arr.size());
    for (std::size_t i = 0; i < arr.size(); ++i) {
      T element{};
      utils::KeyPath::Scope at(path, i);
      const IndexSource src{arr, i};
      if (SdkError e = FieldIo<T>::read(src, element)) {
        reportSkipped(path, e, src, values);
        return e;
      }
      fresh.push_back(std::move(element));
    }
    values = std::move(fresh);
    return 0;
  }
  static SdkError write(auto& dst, const std::vector<T, A>& values) {
    if constexpr (WritesInPlace<T>) {
      return editArrayAt(dst, [&values](SeriArray& arr) -> SdkError {
        arr.reserve(values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
          IndexSink sink{arr, i};
          if (SdkError e = FieldIo<T>::write(sink, static_cast<const T&>(values[i]))) return e;
        }
        arr.truncate(values.size());
        return 0;
      });
    } else {
      SeriArray arr(utils::JsonSave::instance);
      arr.reserve(values.size());
      AppendSink sink{arr};
      for (const auto& element : values) {
        if (SdkError e = FieldIo<T>::write(sink, static_cast<const T&>(element))) return e;
      }
      return dst.putArray(std::move(arr));
    }
  }
};

// ---- The key walkers ----

// Logs that the list `key` holds an element that cannot be read.
PARAM_API void logUnreadableElement(const char* key, SdkError code);

// Loads a record's keys in order (see the top of this file).
class RecordLoader {
 public:
  explicit RecordLoader(const SeriObject& obj) : obj_(obj), path_(utils::KeyPath::current()) {}

  template <class T>
  RecordLoader& operator()(const char* key, T&& member) {
    if (result_ == 0) {
      using V = std::remove_cvref_t<T>;
      utils::KeyPath::Scope at(path_, key);
      const KeySource src{obj_, key, &cursor_};
      if (SdkError e = FieldIo<V>::read(src, member)) result_ = keyFailed(e, src, member);
    }
    return *this;
  }

  // The same with a few words on what the key means. Loading and saving ignore
  // them; the schema and the format reference show them.
  template <class T>
  RecordLoader& operator()(const char* key, T&& member, const char* /*meaning*/) {
    return (*this)(key, std::forward<T>(member));
  }

  // A list whose unreadable element ends the walk at once with the element's
  // code, whatever the error handler would answer; the list keeps its content.
  // A missing or mistyped key goes through the error-response step as usual.
  template <class T, class A>
  RecordLoader& strictList(const char* key, std::vector<T, A>& list) {
    if (result_ != 0) return *this;
    utils::KeyPath::Scope at(path_, key);
    SeriArray arr(utils::JsonLoad::instance);
    const KeySource src{obj_, key, &cursor_};
    if (SdkError e = src.getArray(arr)) {
      result_ = keyFailed(e, src, list);
    } else if (SdkError e = FieldIo<std::vector<T, A>>::readElements(arr, list)) {
      logUnreadableElement(key, e);
      result_ = e;
    }
    return *this;
  }
  template <class T, class A>
  RecordLoader& strictList(const char* key, std::vector<T, A>& list, const char* /*meaning*/) {
    return strictList(key, list);
  }

  const SeriObject& object() const { return obj_; }
  // 0, or the code of the key at which the walk stopped.
  SdkError result() const { return result_; }

 private:
  template <class V>
  SdkError keyFailed(SdkError code, const KeySource& src, const V& member) {
    reportSkipped(path_, code, src, member);
    return errorStep(code);
  }

  const SeriObject& obj_;
  utils::KeyPath& path_;
  std::size_t cursor_ = 0;  // where the next key is expected: keys load in the order saved
  SdkError result_ = 0;
};

// Saves a record's keys in order (see the top of this file).
class RecordSaver {
 public:
  // An object that is empty when the walk begins gets its keys without lookups.
  explicit RecordSaver(SeriObject& obj) : obj_(obj), fresh_(obj.empty()) {}

  template <class T>
  RecordSaver& operator()(const char* key, const T& member) {
    if (result_ == 0) {
      using V = std::remove_cvref_t<T>;
      KeySink sink{obj_, key, fresh_};
      if (SdkError e = FieldIo<V>::write(sink, member)) result_ = errorStep(e);
    }
    return *this;
  }

  template <class T>
  RecordSaver& operator()(const char* key, const T& member, const char* /*meaning*/) {
    return (*this)(key, member);
  }

  // Saved like any list; see RecordLoader::strictList.
  template <class T, class A>
  RecordSaver& strictList(const char* key, const std::vector<T, A>& list,
                          const char* /*meaning*/ = nullptr) {
    return (*this)(key, list);
  }

  SeriObject& object() const { return obj_; }
  SdkError result() const { return result_; }

 private:
  SeriObject& obj_;
  bool fresh_;
  SdkError result_ = 0;
};

template <class C>
SdkError FieldIo<Point2dConcept<C>>::read(const auto& src, Point2dConcept<C>& p) {
  SeriObject child(utils::JsonLoad::instance);
  if (SdkError e = src.getObject(child)) return e;
  return RecordLoader(child)("x", p.x)("y", p.y).result();
}

template <class C>
SdkError FieldIo<Point2dConcept<C>>::write(auto& dst, const Point2dConcept<C>& p) {
  return editObjectAt(
      dst, [&p](SeriObject& child) { return RecordSaver(child)("x", p.x)("y", p.y).result(); });
}

}  // namespace param

// Defines Record::load and Record::save from the keys() function of the same
// source file: both directions walk the one key list. It also registers the
// type (recordRegistry.h), with its schema from the same list.
#define PARAM_RECORD_IO(Record)                                    \
  ::param::SdkError Record::load(const ::param::SeriObject& obj) { \
    return keys(::param::RecordLoader(obj), *this);                \
  }                                                                \
  ::param::SdkError Record::save(::param::SeriObject& obj) const { \
    return keys(::param::RecordSaver(obj), *this);                 \
  }                                                                \
  PARAM_RECORD_TYPE(Record)

// The schema walker and the registration that PARAM_RECORD_IO adds.
#include <param/seri/recordSchema.h>
