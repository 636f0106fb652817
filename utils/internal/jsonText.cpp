#include "jsonText.h"

#include <boost/json.hpp>
#include <boost/json/basic_parser_impl.hpp>

#include <charconv>
#include <cstring>
#include <new>

namespace utils {

namespace bj = boost::json;

namespace {

// Builds the value tree like Boost.JSON's own parser, except that decimal
// numbers are converted from their text with std::from_chars, which is exact:
// every double written by the writer below reads back to the same bits.
struct ExactNumberHandler {
  static constexpr std::size_t max_object_size = bj::object::max_size();
  static constexpr std::size_t max_array_size = bj::array::max_size();
  static constexpr std::size_t max_key_size = bj::string::max_size();
  static constexpr std::size_t max_string_size = bj::string::max_size();

  bj::value_stack st;
  std::string numberText;  // the leading parts of a number split across buffers

  bool on_document_begin(bj::error_code&) { return true; }
  bool on_document_end(bj::error_code&) { return true; }
  bool on_object_begin(bj::error_code&) { return true; }
  bool on_object_end(std::size_t n, bj::error_code&) {
    st.push_object(n);
    return true;
  }
  bool on_array_begin(bj::error_code&) { return true; }
  bool on_array_end(std::size_t n, bj::error_code&) {
    st.push_array(n);
    return true;
  }
  bool on_key_part(bj::string_view s, std::size_t, bj::error_code&) {
    st.push_chars(s);
    return true;
  }
  bool on_key(bj::string_view s, std::size_t, bj::error_code&) {
    st.push_key(s);
    return true;
  }
  bool on_string_part(bj::string_view s, std::size_t, bj::error_code&) {
    st.push_chars(s);
    return true;
  }
  bool on_string(bj::string_view s, std::size_t, bj::error_code&) {
    st.push_string(s);
    return true;
  }
  bool on_number_part(bj::string_view s, bj::error_code&) {
    numberText.append(s.data(), s.size());
    return true;
  }
  bool on_int64(std::int64_t i, bj::string_view, bj::error_code&) {
    numberText.clear();
    st.push_int64(i);
    return true;
  }
  bool on_uint64(std::uint64_t u, bj::string_view, bj::error_code&) {
    numberText.clear();
    st.push_uint64(u);
    return true;
  }
  bool on_double(double d, bj::string_view s, bj::error_code&) {
    const char* first = s.data();
    const char* last = first + s.size();
    if (!numberText.empty()) {
      numberText.append(s.data(), s.size());
      first = numberText.data();
      last = first + numberText.size();
    }
    double exact = 0;
    auto res = std::from_chars(first, last, exact);
    // Out of the double range, keep the parser's own result (an infinity or 0).
    st.push_double(res.ec == std::errc() && res.ptr == last ? exact : d);
    numberText.clear();
    return true;
  }
  bool on_bool(bool b, bj::error_code&) {
    st.push_bool(b);
    return true;
  }
  bool on_null(bj::error_code&) {
    st.push_null();
    return true;
  }
  bool on_comment_part(bj::string_view, bj::error_code&) { return true; }
  bool on_comment(bj::string_view, bj::error_code&) { return true; }
};

}  // namespace

bj::value parseJson(std::string_view text, std::error_code& ec) {
  bj::parse_options options;
  options.allow_invalid_utf8 = true;
  options.max_depth = 256;
  try {
    bj::basic_parser<ExactNumberHandler> parser(options);
    parser.reset();
    parser.handler().st.reset();
    bj::error_code bec;
    const std::size_t used = parser.write_some(false, text.data(), text.size(), bec);
    if (!bec && used < text.size()) bec = bj::error::extra_data;
    if (bec || !parser.done()) {
      ec = std::make_error_code(std::errc::invalid_argument);
      return nullptr;
    }
    ec.clear();
    return parser.handler().st.release();
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
