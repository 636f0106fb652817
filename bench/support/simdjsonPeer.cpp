// The job by hand with simdjson's On-Demand API: members are found with
// find_field_unordered (fast when they come in the expected order) and numbers
// are parsed where they are used. Reading only: simdjson does not write JSON.
#include <cstring>
#include <string_view>
#include <utility>

#include <simdjson.h>

#include "documentFile.h"
#include "peers.h"

namespace peers {
namespace {

namespace od = simdjson::ondemand;
using simdjson::error_code;

// Keeps the first error that is more than a missing key or a value of
// another kind or range (those keep the member's value, as in the library).
void note(error_code e, error_code& status) {
  if (e == simdjson::SUCCESS || e == simdjson::INCORRECT_TYPE ||
      e == simdjson::NUMBER_OUT_OF_RANGE || e == simdjson::NO_SUCH_FIELD) {
    return;
  }
  if (status == simdjson::SUCCESS) status = e;
}

template <class T>
void read(od::value v, T& m, error_code& status);

struct Reader {
  od::object& obj;
  error_code& status;
  template <class T>
  void operator()(const char* key, T& member) {
    od::value v;
    const error_code e = obj.find_field_unordered(key).get(v);
    if (e == simdjson::SUCCESS) {
      read(v, member, status);
    } else {
      note(e, status);
    }
  }
};

// Each element of the array `v` in turn, until `each` returns false.
template <class F>
void elements(od::value v, error_code& status, F&& each) {
  od::array a;
  error_code e = v.get_array().get(a);
  if (e != simdjson::SUCCESS) return note(e, status);
  for (auto element : a) {
    od::value item;
    if ((e = element.get(item)) != simdjson::SUCCESS) return note(e, status);
    if (!each(item)) break;
  }
}

template <class T>
void read(od::value v, T& m, error_code& status) {
  error_code e = simdjson::SUCCESS;
  if constexpr (std::is_same_v<T, bool>) {
    bool b = false;
    if ((e = v.get_bool().get(b)) == simdjson::SUCCESS) m = b;
  } else if constexpr (std::is_integral_v<T> && std::is_signed_v<T>) {
    std::int64_t i = 0;
    if ((e = v.get_int64().get(i)) == simdjson::SUCCESS && std::in_range<T>(i))
      m = static_cast<T>(i);
  } else if constexpr (std::is_integral_v<T>) {
    std::uint64_t u = 0;
    if ((e = v.get_uint64().get(u)) == simdjson::SUCCESS && std::in_range<T>(u))
      m = static_cast<T>(u);
  } else if constexpr (std::is_floating_point_v<T>) {
    double d = 0;
    if ((e = v.get_double().get(d)) == simdjson::SUCCESS) m = static_cast<T>(d);
  } else if constexpr (std::is_same_v<T, std::string>) {
    std::string_view s;
    if ((e = v.get_string().get(s)) == simdjson::SUCCESS) m.assign(s);
  } else if constexpr (CharArray<T>) {
    std::string_view s;
    if ((e = v.get_string().get(s)) == simdjson::SUCCESS) {
      const std::size_t n = std::min(s.size(), sizeof m - 1);
      std::memcpy(m, s.data(), n);
      std::memset(m + n, 0, sizeof m - n);
    }
  } else if constexpr (IsStdArray<T>::value) {
    std::size_t i = 0;
    elements(v, status, [&](od::value item) {
      read(item, m[i++], status);
      return i < m.size();
    });
  } else if constexpr (IsVector<T>::value) {
    // The length is known only at the end: load in place, then trim.
    std::size_t i = 0;
    elements(v, status, [&](od::value item) {
      if (i == m.size()) m.emplace_back();
      read(item, m[i++], status);
      return true;
    });
    if (status == simdjson::SUCCESS) m.resize(i);
  } else {
    static_assert(Record<T>);
    od::object o;
    if ((e = v.get_object().get(o)) == simdjson::SUCCESS) {
      Reader r{o, status};
      fields(r, m);
    }
  }
  note(e, status);
}

}  // namespace

bool simdjsonRead(const std::string& file, Job& job) {
  std::string text;
  if (!readDocument(file, text)) return false;
  if (text.capacity() - text.size() < simdjson::SIMDJSON_PADDING) {
    text.reserve(text.size() + simdjson::SIMDJSON_PADDING);
  }
  od::parser parser;
  od::document doc;
  error_code status = parser.iterate(text.data(), text.size(), text.capacity()).get(doc);
  od::object root;
  if (status == simdjson::SUCCESS) status = doc.get_object().get(root);
  if (status != simdjson::SUCCESS) return false;
  Reader r{root, status};
  fields(r, job);
  return status == simdjson::SUCCESS;
}

}  // namespace peers
