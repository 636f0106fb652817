// The job by hand with RapidJSON: a Document parsed with full-precision
// numbers (doubles read back to the same bits, as the library's do), members
// found with FindMember; writing streams through a Writer into a StringBuffer.
#include <cstring>
#include <utility>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "documentFile.h"
#include "peers.h"

namespace peers {
namespace {

using Value = rapidjson::Value;
using TextWriter = rapidjson::Writer<rapidjson::StringBuffer>;

template <class T>
void read(const Value& j, T& m);

struct Reader {
  const Value& obj;
  template <class T>
  void operator()(const char* key, T& member) {
    const auto it = obj.FindMember(key);
    if (it != obj.MemberEnd()) read(it->value, member);
  }
};

template <class T>
void read(const Value& j, T& m) {
  if constexpr (std::is_same_v<T, bool>) {
    if (j.IsBool()) m = j.GetBool();
  } else if constexpr (std::is_integral_v<T>) {
    if (j.IsInt64()) {
      if (std::in_range<T>(j.GetInt64())) m = static_cast<T>(j.GetInt64());
    } else if (j.IsUint64()) {
      if (std::in_range<T>(j.GetUint64())) m = static_cast<T>(j.GetUint64());
    }
  } else if constexpr (std::is_floating_point_v<T>) {
    if (j.IsNumber()) m = static_cast<T>(j.GetDouble());
  } else if constexpr (std::is_same_v<T, std::string>) {
    if (j.IsString()) m.assign(j.GetString(), j.GetStringLength());
  } else if constexpr (CharArray<T>) {
    if (j.IsString()) {
      const std::size_t n = std::min<std::size_t>(j.GetStringLength(), sizeof m - 1);
      std::memcpy(m, j.GetString(), n);
      std::memset(m + n, 0, sizeof m - n);
    }
  } else if constexpr (IsStdArray<T>::value) {
    if (j.IsArray()) {
      for (rapidjson::SizeType i = 0; i < j.Size() && i < m.size(); ++i)
        read(j[i], m[i]);
    }
  } else if constexpr (IsVector<T>::value) {
    if (j.IsArray()) {
      m.resize(j.Size());
      for (rapidjson::SizeType i = 0; i < j.Size(); ++i)
        read(j[i], m[i]);
    }
  } else {
    static_assert(Record<T>);
    if (j.IsObject()) {
      Reader r{j};
      fields(r, m);
    }
  }
}

template <class T>
void write(TextWriter& w, const T& m);

struct Writer {
  TextWriter& w;
  template <class T>
  void operator()(const char* key, const T& member) {
    w.Key(key, static_cast<rapidjson::SizeType>(std::strlen(key)));
    write(w, member);
  }
};

template <class T>
void write(TextWriter& w, const T& m) {
  if constexpr (std::is_same_v<T, bool>) {
    w.Bool(m);
  } else if constexpr (std::is_integral_v<T> && std::is_signed_v<T>) {
    w.Int64(m);
  } else if constexpr (std::is_integral_v<T>) {
    w.Uint64(m);
  } else if constexpr (std::is_floating_point_v<T>) {
    // Writer::Double would write a float's double ("0.019999999552965164").
    char text[32];
    const std::size_t n = numberText(m, text);
    w.RawValue(text, n, rapidjson::kNumberType);
  } else if constexpr (std::is_same_v<T, std::string>) {
    w.String(m.data(), static_cast<rapidjson::SizeType>(m.size()));
  } else if constexpr (CharArray<T>) {
    w.String(m, static_cast<rapidjson::SizeType>(strnlen(m, sizeof m)));
  } else if constexpr (IsStdArray<T>::value || IsVector<T>::value) {
    w.StartArray();
    for (const auto& e : m)
      write(w, e);
    w.EndArray();
  } else {
    static_assert(Record<T>);
    w.StartObject();
    Writer v{w};
    fields(v, m);
    w.EndObject();
  }
}

void writeText(const Job& job, rapidjson::StringBuffer& buffer) {
  TextWriter w(buffer);
  write(w, job);
}

}  // namespace

bool rapidjsonRead(const std::string& file, Job& job) {
  std::string text;
  if (!readDocument(file, text)) return false;
  rapidjson::Document root;
  root.Parse<rapidjson::kParseFullPrecisionFlag>(text.data(), text.size());
  if (root.HasParseError() || !root.IsObject()) return false;
  read(static_cast<const Value&>(root), job);
  return true;
}

std::string rapidjsonText(const Job& job) {
  rapidjson::StringBuffer buffer;
  writeText(job, buffer);
  return std::string(buffer.GetString(), buffer.GetSize());
}

bool rapidjsonWrite(const Job& job, const std::string& file, param::SeriOption option) {
  rapidjson::StringBuffer buffer;
  writeText(job, buffer);
  return writeDocument(file, option, std::string_view(buffer.GetString(), buffer.GetSize()));
}

}  // namespace peers
