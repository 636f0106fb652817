#include "jsonText.h"

#include <boost/json.hpp>
#include <boost/json/basic_parser_impl.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
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
  std::string numberText;   // the leading parts of a number split across buffers
  bool outOfRange = false;  // a number beyond the double range stopped the parse

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
  bool on_double(double d, bj::string_view s, bj::error_code& ec) {
    const char* first = s.data();
    const char* last = first + s.size();
    if (!numberText.empty()) {
      numberText.append(s.data(), s.size());
      first = numberText.data();
      last = first + numberText.size();
    }
    double exact = 0;
    auto res = std::from_chars(first, last, exact);
    numberText.clear();
    if (res.ec == std::errc() && res.ptr == last) {
      st.push_double(exact);
      return true;
    }
    // Beyond the double range: refused, since no double can hold it and the
    // text written back would not be this number. A number too small for a
    // double (1e-400) keeps the parser's result, a zero.
    if (!std::isfinite(d)) {
      outOfRange = true;
      ec = bj::error::exponent_overflow;
      return false;
    }
    st.push_double(d);
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

bj::parse_options parseOptions(std::size_t maxDepth = 256) {
  bj::parse_options options;
  options.allow_invalid_utf8 = true;
  options.max_depth = maxDepth;
  return options;
}

bj::value parseWith(std::string_view text, std::error_code& ec, bj::storage_ptr storage,
                    std::size_t maxDepth) {
  try {
    bj::basic_parser<ExactNumberHandler> parser(parseOptions(maxDepth));
    parser.reset();
    parser.handler().st.reset(std::move(storage));
    bj::error_code bec;
    const std::size_t used = parser.write_some(false, text.data(), text.size(), bec);
    if (!bec && used < text.size()) bec = bj::error::extra_data;
    if (bec || !parser.done()) {
      ec = std::make_error_code(parser.handler().outOfRange ? std::errc::result_out_of_range
                                                            : std::errc::invalid_argument);
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

}  // namespace

bj::value parseJson(std::string_view text, std::error_code& ec, bj::storage_ptr storage) {
  return parseWith(text, ec, std::move(storage), 256);
}

bj::value parseOwnJson(std::string_view text, std::error_code& ec) {
  return parseWith(text, ec, {}, std::numeric_limits<std::size_t>::max());
}

namespace {
// Characters that a JSON string cannot hold as they are.
constexpr bool needsEscape(unsigned char c) {
  return c < 0x20 || c == '"' || c == '\\';
}

// Keeps the sign of a negative zero, which "-0" would lose on reading.
char* signedZero(char* p, char* end) {
  if (end - p == 2 && p[0] == '-' && p[1] == '0') {
    std::memcpy(p, "-0.0", 4);
    return p + 4;
  }
  return end;
}

template <class T>
char* putFloating(char* p, T d) {
  // JSON has no token for NaN or an infinity: they are written as the strings
  // that the typed readers take back, never as a bare token no parser reads.
  if (std::isnan(d)) return putJsonString(p, "NaN");
  if (std::isinf(d)) return putJsonString(p, d > 0 ? "Infinity" : "-Infinity");
  return signedZero(p, std::to_chars(p, p + kMaxNumberText, d).ptr);
}

}  // namespace

char* putJsonNumber(char* p, std::int64_t n) {
  return std::to_chars(p, p + kMaxNumberText, n).ptr;
}

char* putJsonNumber(char* p, std::uint64_t n) {
  return std::to_chars(p, p + kMaxNumberText, n).ptr;
}

char* putJsonNumber(char* p, double d) {
  return putFloating(p, d);
}

char* putJsonNumber(char* p, float f) {
  return putFloating(p, f);
}

char* putJsonString(char* p, std::string_view s) {
  *p++ = '"';
  for (unsigned char c : s) {
    if (!needsEscape(c)) {
      *p++ = static_cast<char>(c);
      continue;
    }
    *p++ = '\\';
    switch (c) {
      case '"':
      case '\\':
        *p++ = static_cast<char>(c);
        break;
      case '\n':
        *p++ = 'n';
        break;
      case '\r':
        *p++ = 'r';
        break;
      case '\t':
        *p++ = 't';
        break;
      case '\b':
        *p++ = 'b';
        break;
      case '\f':
        *p++ = 'f';
        break;
      default: {
        static const char hex[] = "0123456789abcdef";
        const char u[5] = {'u', '0', '0', hex[c >> 4], hex[c & 15]};
        std::memcpy(p, u, 5);
        p += 5;
      }
    }
  }
  *p++ = '"';
  return p;
}

namespace {

class Writer {
 public:
  explicit Writer(int indent) : indent_(indent) { out_.resize(4096); }

  std::string take() {
    out_.resize(n_);
    return std::move(out_);
  }

  void value(const bj::value& v, int depth) {
    switch (v.kind()) {
      case bj::kind::null:
        put("null", 4);
        break;
      case bj::kind::bool_:
        v.get_bool() ? put("true", 4) : put("false", 5);
        break;
      case bj::kind::int64:
        number(v.get_int64());
        break;
      case bj::kind::uint64:
        number(v.get_uint64());
        break;
      case bj::kind::double_:
        real(v.get_double());
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
    put('{');
    bool first = true;
    for (const auto& kv : o) {
      if (!first) put(',');
      first = false;
      newline(depth + 1);
      string(kv.key());
      indent_ > 0 ? put(": ", 2) : put(':');
      value(kv.value(), depth + 1);
    }
    if (!o.empty()) newline(depth);
    put('}');
  }

  void array(const bj::array& a, int depth) {
    put('[');
    bool first = true;
    for (const auto& v : a) {
      if (!first) put(',');
      first = false;
      newline(depth + 1);
      value(v, depth + 1);
    }
    if (!a.empty()) newline(depth);
    put(']');
  }

 private:
  // Makes room for `count` more characters.
  char* room(std::size_t count) {
    if (n_ + count > out_.size()) out_.resize(std::max(out_.size() * 2, n_ + count));
    return out_.data() + n_;
  }
  void put(char c) {
    *room(1) = c;
    ++n_;
  }
  void put(const char* text, std::size_t count) {
    std::memcpy(room(count), text, count);
    n_ += count;
  }

  void newline(int depth) {
    if (indent_ <= 0) return;
    const std::size_t spaces = static_cast<std::size_t>(depth * indent_);
    char* p = room(spaces + 1);
    *p = '\n';
    std::memset(p + 1, ' ', spaces);
    n_ += spaces + 1;
  }

  template <class T>
  void number(T n) {
    char* p = room(maxStringText(9));
    n_ += static_cast<std::size_t>(putJsonNumber(p, n) - p);
  }
  void real(double d) { number(d); }

  void string(bj::string_view s) {
    char* p = room(maxStringText(s.size()));
    n_ += static_cast<std::size_t>(putJsonString(p, std::string_view(s.data(), s.size())) - p);
  }

  int indent_;
  std::string out_;
  std::size_t n_ = 0;
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
