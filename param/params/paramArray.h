#pragma once

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include <param/seri/errorStep.h>
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
// Saving stops quietly at the first element whose save fails: the stored array
// holds the elements before it and the save reports success.
template <class T>
struct ParamArray : std::vector<T> {
  using std::vector<T>::vector;

  [[nodiscard]] virtual SdkError load(const SeriObject& obj);
  [[nodiscard]] virtual SdkError save(SeriObject& obj) const;

  // The element rules of load and save on a bare array of element objects, for
  // records that store the array directly under a key of their own. They return
  // the raw code; load and save put it through the error-response step.
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
  SeriArray saved(utils::JsonLoad::instance);
  SdkError e = obj.getSeriArray("params", saved);
  if (e == 0) e = loadElements(saved);
  return errorStep(e);
}

template <class T>
SdkError ParamArray<T>::save(SeriObject& obj) const {
  SeriArray out(utils::JsonSave::instance);
  saveElements(out);
  return errorStep(obj.setSeriArray("params", std::move(out)));
}

template <class T>
SdkError ParamArray<T>::loadElements(const SeriArray& saved) {
  const std::size_t n = saved.size();
  const std::size_t c = this->size();
  if (n > c) {
    if (n > this->max_size()) throw std::length_error("vector<T> too long");
    this->reserve(n);
  }
  for (std::size_t i = 0; i < n; ++i) {
    SeriObject child(utils::JsonLoad::instance);
    if (SdkError e = saved.getSeriObject(i, child)) return e;
    if (i < c) {
      if (SdkError e = (*this)[i].load(child)) return e;
    } else {
      T element{};
      if (SdkError e = element.load(child)) return e;
      this->push_back(std::move(element));
    }
  }
  return 0;
}

template <class T>
void ParamArray<T>::saveElements(SeriArray& out) const {
  out.reserve(out.size() + this->size());
  for (const T& element : *this) {
    SeriObject child(utils::JsonSave::instance);
    if (element.save(child) != 0) break;
    out.addSeriObject(std::move(child));
  }
}

}  // namespace param
