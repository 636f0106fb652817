// The job by hand with nlohmann-json: json (std::map objects) to read,
// ordered_json (insertion order, as the library writes) to write.
#include <charconv>
#include <cmath>
#include <cstring>
#include <utility>

#include <nlohmann/json.hpp>

#include "documentFile.h"
#include "peers.h"

namespace peers {
namespace {

using json = nlohmann::json;
using ordered = nlohmann::ordered_json;

template <class T>
void read(const json& j, T& m);

struct Reader {
  const json& obj;
  template <class T>
  void operator()(const char* key, T& member) {
    const auto it = obj.find(key);
    if (it != obj.end()) read(*it, member);
  }
};

template <class T>
void read(const json& j, T& m) {
  if constexpr (std::is_same_v<T, bool>) {
    if (j.is_boolean()) m = j.get<bool>();
  } else if constexpr (std::is_integral_v<T>) {
    if (j.is_number_unsigned()) {
      const auto u = j.get<std::uint64_t>();
      if (std::in_range<T>(u)) m = static_cast<T>(u);
    } else if (j.is_number_integer()) {
      const auto i = j.get<std::int64_t>();
      if (std::in_range<T>(i)) m = static_cast<T>(i);
    }
  } else if constexpr (std::is_floating_point_v<T>) {
    if (j.is_number()) m = static_cast<T>(j.get<double>());
  } else if constexpr (std::is_same_v<T, std::string>) {
    if (j.is_string()) m = j.get_ref<const std::string&>();
  } else if constexpr (CharArray<T>) {
    if (j.is_string()) {
      const auto& s = j.get_ref<const std::string&>();
      const std::size_t n = std::min(s.size(), sizeof m - 1);
      std::memcpy(m, s.data(), n);
      std::memset(m + n, 0, sizeof m - n);
    }
  } else if constexpr (IsStdArray<T>::value) {
    if (j.is_array()) {
      for (std::size_t i = 0; i < std::min(j.size(), m.size()); ++i)
        read(j[i], m[i]);
    }
  } else if constexpr (IsVector<T>::value) {
    if (j.is_array()) {
      m.resize(j.size());
      for (std::size_t i = 0; i < m.size(); ++i)
        read(j[i], m[i]);
    }
  } else {
    static_assert(Record<T>);
    if (j.is_object()) {
      Reader r{j};
      fields(r, m);
    }
  }
}

// A number as a value that nlohmann-json writes as the library does: the
// double of the shortest text, and integral values as integers (it would write
// 2000 as "2000.0").
template <class F>
ordered number(F value) {
  char text[32];
  const std::size_t n = numberText(value, text);
  double d = 0;
  std::from_chars(text, text + n, d);
  if (std::trunc(d) == d && std::fabs(d) < 9007199254740992.0 && !(d == 0 && std::signbit(d)))
    return ordered(static_cast<std::int64_t>(d));
  return ordered(d);
}

template <class T>
ordered write(const T& m);

struct Writer {
  ordered& obj;
  template <class T>
  void operator()(const char* key, const T& member) {
    obj[key] = write(member);
  }
};

template <class T>
ordered write(const T& m) {
  if constexpr (std::is_same_v<T, bool>) {
    return ordered(m);
  } else if constexpr (std::is_integral_v<T> && std::is_signed_v<T>) {
    return ordered(static_cast<std::int64_t>(m));
  } else if constexpr (std::is_integral_v<T>) {
    return ordered(static_cast<std::uint64_t>(m));
  } else if constexpr (std::is_floating_point_v<T>) {
    return number(m);
  } else if constexpr (std::is_same_v<T, std::string>) {
    return ordered(m);
  } else if constexpr (CharArray<T>) {
    return ordered(std::string(m, strnlen(m, sizeof m)));
  } else if constexpr (IsStdArray<T>::value || IsVector<T>::value) {
    ordered a = ordered::array();
    a.get_ref<ordered::array_t&>().reserve(m.size());
    for (const auto& e : m)
      a.push_back(write(e));
    return a;
  } else {
    static_assert(Record<T>);
    ordered o = ordered::object();
    Writer w{o};
    fields(w, m);
    return o;
  }
}

}  // namespace

bool nlohmannRead(const std::string& file, Job& job) {
  std::string text;
  if (!readDocument(file, text)) return false;
  const json root = json::parse(text, nullptr, false);
  if (!root.is_object()) return false;
  read(root, job);
  return true;
}

std::string nlohmannText(const Job& job) {
  return write(job).dump();
}

bool nlohmannWrite(const Job& job, const std::string& file, param::SeriOption option) {
  return writeDocument(file, option, nlohmannText(job));
}

}  // namespace peers
