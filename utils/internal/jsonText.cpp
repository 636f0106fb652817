#include "jsonText.h"

#include <boost/json.hpp>

#include <charconv>
#include <cstring>
#include <new>

namespace utils {

namespace bj = boost::json;

bj::value parseJson(std::string_view text, std::error_code& ec) {
  bj::parse_options options;
  options.allow_invalid_utf8 = true;
  options.max_depth = 256;
  try {
    boost::system::error_code bec;
    bj::value v = bj::parse(bj::string_view(text.data(), text.size()), bec, {}, options);
    ec = bec ? std::make_error_code(std::errc::invalid_argument) : std::error_code();
    return v;
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception&) {
    // A string or array beyond the container limits.
    ec = std::make_error_code(std::errc::value_too_large);
    return nullptr;
  }
}

namespace {

class Writer {
 public:
  explicit Writer(int indent) : indent_(indent) {}

  std::string take() { return std::move(out_); }

  void value(const bj::value& v, int depth) {
    switch (v.kind()) {
      case bj::kind::null:
        out_ += "null";
        break;
      case bj::kind::bool_:
        out_ += v.get_bool() ? "true" : "false";
        break;
      case bj::kind::int64:
        number(v.get_int64());
        break;
      case bj::kind::uint64:
        number(v.get_uint64());
        break;
      case bj::kind::double_:
        number(v.get_double());
        break;
      case bj::kind::string:
        string(v.get_string());
        break;
      case bj::kind::array:
        array(v.get_array(), depth);
        break;
      case bj::kind::object:
        object(v.get_object(), depth);
        break;
    }
  }

  void object(const bj::object& o, int depth) {
    out_ += '{';
    bool first = true;
    for (const auto& kv : o) {
      if (!first) out_ += ',';
      first = false;
      newline(depth + 1);
      string(kv.key());
      out_ += indent_ > 0 ? ": " : ":";
      value(kv.value(), depth + 1);
    }
    if (!o.empty()) newline(depth);
    out_ += '}';
  }

  void array(const bj::array& a, int depth) {
    out_ += '[';
    bool first = true;
    for (const auto& v : a) {
      if (!first) out_ += ',';
      first = false;
      newline(depth + 1);
      value(v, depth + 1);
    }
    if (!a.empty()) newline(depth);
    out_ += ']';
  }

 private:
  void newline(int depth) {
    if (indent_ <= 0) return;
    out_ += '\n';
    out_.append(static_cast<std::size_t>(depth * indent_), ' ');
  }

  template <class T>
  void number(T n) {
    char buf[32];
    auto res = std::to_chars(buf, buf + sizeof buf, n);
    std::size_t len = static_cast<std::size_t>(res.ptr - buf);
    if constexpr (std::is_floating_point_v<T>) {
      // Keep the sign of a negative zero, which "-0" would lose on reading.
      if (len == 2 && buf[0] == '-' && buf[1] == '0') {
        out_ += "-0.0";
        return;
      }
    }
    out_.append(buf, len);
  }

  void string(bj::string_view s) {
    out_ += '"';
    const char* p = s.data();
    const char* end = p + s.size();
    const char* run = p;
    for (; p != end; ++p) {
      unsigned char c = static_cast<unsigned char>(*p);
      if (c >= 0x20 && c != '"' && c != '\\') continue;
      out_.append(run, p);
      escape(c);
      run = p + 1;
    }
    out_.append(run, end);
    out_ += '"';
  }

  void escape(unsigned char c) {
    switch (c) {
      case '"':
        out_ += "\\\"";
        return;
      case '\\':
        out_ += "\\\\";
        return;
      case '\n':
        out_ += "\\n";
        return;
      case '\r':
        out_ += "\\r";
        return;
      case '\t':
        out_ += "\\t";
        return;
      case '\b':
        out_ += "\\b";
        return;
      case '\f':
        out_ += "\\f";
        return;
      default: {
        static const char hex[] = "0123456789abcdef";
        char u[6] = {'\\', 'u', '0', '0', hex[c >> 4], hex[c & 15]};
        out_.append(u, sizeof u);
      }
    }
  }

  int indent_;
  std::string out_;
};

}  // namespace

std::string writeJson(const bj::object& object, int indent) {
  Writer w(indent);
  w.object(object, 0);
  return w.take();
}

std::string writeJson(const bj::array& array, int indent) {
  Writer w(indent);
  w.array(array, 0);
  return w.take();
}

}  // namespace utils
