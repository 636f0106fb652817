#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

#include <utils/keyPath.h>

#include <param/seri/errorStep.h>
#include <param/seri/recordIo.h>
#include <param/seri/seriObject.h>

namespace param {

// A growable array of records that saves itself as {"params": [ {...}, ... ]}.
//
// Loading is in place and never shrinks the array: saved element i is loaded
// over element i (keys missing from the file keep the element's values), saved
// elements beyond the current size are appended as default elements loaded from
// their objects, and elements beyond the saved count stay as they are. The first
// element that cannot be fetched or loaded ends the loop; its code then goes
// through the error-response step once more.
//
// Saving writes element i over the object stored at position i of "params"
// (keeping the members this build does not know) or, past the stored ones, as
// a fresh object, and drops stored objects beyond the array's size. It stops
// quietly at the first element whose save fails and reports success: a fresh
// array holds the elements before it, a stored one keeps its objects from that
// element on.
//
// While loading, the load path (utils::KeyPath) holds "params" and the element
// index, so a key of pen 3 reads "params[3].laserPower".
template <class T>
struct ParamArray : std::vector<T> {
  using std::vector<T>::vector;

  [[nodiscard]] virtual SdkError load(const SeriObject& obj);
  [[nodiscard]] virtual SdkError save(SeriObject& obj) const;

  // The element rules of load and save on a bare array of element objects, for
  // records that store the array directly under a key of their own. They return
  // the raw code; load and save put it through the error-response step.
  // saveElements writes over the objects `out` holds, as save does.
  [[nodiscard]] SdkError loadElements(const SeriArray& saved);
  void saveElements(SeriArray& out) const;

  // Position of the first element whose id() equals `id`, or -1.
  std::int32_t indexOf(unsigned int id) const requires requires(const T& t) { t.id(); }
  {
    for (std::size_t i = 0; i < this->size(); ++i) {
      if (static_cast<std::int64_t>((*this)[i].id()) == static_cast<std::int64_t>(id)) {
        return static_cast<std::int32_t>(i);
      }
    }
    return -1;
  }
};

template <class T>
SdkError ParamArray<T>::load(const SeriObject& obj) {
  utils::KeyPath& path = utils::KeyPath::current();
  utils::KeyPath::Scope at(path, "params");
  const KeySource src{obj, "params"};
  SeriArray saved(utils::JsonLoad::instance);
  SdkError e = src.getArray(saved);
  if (e == 0) e = loadElements(saved);
  if (e != 0) {
    reportSkippedAs(path, e, src, [this](KeySink& sink) {
      return editArrayAt(sink, [this](SeriArray& items) {
        saveElements(items);
        return SdkError{0};
      });
    });
  }
  return errorStep(e);
}

template <class T>
SdkError ParamArray<T>::save(SeriObject& obj) const {
  KeySink dst{obj, "params"};
  return errorStep(editArrayAt(dst, [this](SeriArray& items) {
    saveElements(items);
    return SdkError{0};
  }));
}

template <class T>
SdkError ParamArray<T>::loadElements(const SeriArray& saved) {
  const std::size_t n = saved.size();
  const std::size_t c = this->size();
  if (n > c) {
    if (n > this->max_size()) throw std::length_error("vector<T> too long");
    this->reserve(n);
  }
  utils::KeyPath& path = utils::KeyPath::current();
  for (std::size_t i = 0; i < n; ++i) {
    std::optional<T> appended;
    if (i >= c) appended.emplace();
    T& element = i < c ? (*this)[i] : *appended;
    utils::KeyPath::Scope at(path, i);
    const IndexSource src{saved, i};
    SeriObject child(utils::JsonLoad::instance);
    SdkError e = src.getObject(child);
    if (e == 0) e = element.load(child);
    if (e != 0) {
      // An appended element that failed is not kept.
      if (i < c) {
        reportSkipped(path, e, src, element);
      } else {
        reportSkippedAs(path, e, src, [](KeySink&) { return SdkError{0}; });
      }
      return e;
    }
    if (appended) this->push_back(std::move(*appended));
  }
  return 0;
}

template <class T>
void ParamArray<T>::saveElements(SeriArray& out) const {
  out.reserve(this->size());
  for (std::size_t i = 0; i < this->size(); ++i) {
    IndexSink sink{out, i};
    if (FieldIo<T>::write(sink, (*this)[i]) != 0) return;
  }
  out.truncate(this->size());
}

}  // namespace param
