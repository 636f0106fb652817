#include "parsedText.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <limits>
#include <system_error>

namespace utils::detail {

namespace {

// Objects with more members than this keep a table of their keys; smaller
// ones are searched member by member, which is as fast at that size.
constexpr std::uint32_t kTabledMembers = 32;
// Deeper nesting is left to the full parser, which limits it to 256 levels.
constexpr std::size_t kMaxDepth = 255;

constexpr std::uint64_t kOnes = 0x0101010101010101ull;
constexpr std::uint64_t kHighs = 0x8080808080808080ull;

// The high bit of each of the eight bytes of `w` (first byte lowest) that is
// a quote, a backslash or a control character, the bytes a string's scan
// stops at. The lowest bit set is always right; bits above it may be set
// wrongly, so only the first stop is used.
std::uint64_t stringStops(std::uint64_t w) {
  const auto has = [w](unsigned char c) {
    const std::uint64_t x = w ^ (kOnes * c);
    return (x - kOnes) & ~x & kHighs;
  };
  return has('"') | has('\\') | ((w - kOnes * 0x20) & ~w & kHighs);
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The code unit of the four hex digits at `p`, -1 when they are not hex.
long hexUnit(const char* p) {
  long u = 0;
  for (int i = 0; i < 4; ++i) {
    const int d = hexDigit(p[i]);
    if (d < 0) return -1;
    u = u * 16 + d;
  }
  return u;
}

std::size_t tableSize(std::uint32_t members) {
  std::size_t size = 16;
  while (size < 2 * static_cast<std::size_t>(members))
    size *= 2;
  return size;
}

bool sameRaw(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  const char* x = a.data();
  const char* y = b.data();
  std::size_t n = a.size();
  // Keys are short: word by word, without a call.
  for (; n >= 8; n -= 8, x += 8, y += 8) {
    std::uint64_t u, v;
    std::memcpy(&u, x, 8);
    std::memcpy(&v, y, 8);
    if (u != v) return false;
  }
  for (; n > 0; --n, ++x, ++y) {
    if (*x != *y) return false;
  }
  return true;
}

// A hash of a key from its length and its first and last eight bytes, which
// tell the keys of one object apart well enough for a table.
std::uint64_t keyHash(std::string_view key) {
  const char* p = key.data();
  const std::size_t n = key.size();
  std::uint64_t head = 0;
  std::uint64_t tail = 0;
  if (n >= 8) {
    std::memcpy(&head, p, 8);
    std::memcpy(&tail, p + n - 8, 8);
  } else if (n >= 4) {
    std::uint32_t first, last;
    std::memcpy(&first, p, 4);
    std::memcpy(&last, p + n - 4, 4);
    head = first;
    tail = last;
  } else {
    for (std::size_t i = 0; i < n; ++i)
      head = head << 8 | static_cast<unsigned char>(p[i]);
  }
  std::uint64_t h = (head ^ (n * 0x9e3779b97f4a7c15ull)) * 0xbf58476d1ce4e5b9ull;
  h = (h ^ (h >> 31) ^ tail) * 0x94d049bb133111ebull;
  return h ^ (h >> 29);
}

}  // namespace

// One pass over the text that checks it and records its values.
class TextReader {
 public:
  explicit TextReader(ParsedText& out)
      : out_(out),
        begin_(out.text_.data()),
        p_(begin_),
        end_(begin_ + out.text_.size()),
        nodes_(out.nodes_) {}

  bool run() {
    // Documents hold a value every 6 to 16 characters; pages of the room
    // that stays unused are never touched.
    nodes_.reserve(out_.text_.size() / 6 + 16);
    space();
    if (!value()) return false;
    space();
    return p_ == end_;
  }

 private:
  struct Open {
    std::uint32_t node;
    std::uint32_t count;
    std::uint32_t mark;  // where its elements or keys begin in items_
  };

  // The text is followed by its terminating zero, which no rule below takes:
  // every scan stops there without a separate bounds check.
  void space() {
    while (*p_ == ' ' || *p_ == '\n' || *p_ == '\r' || *p_ == '\t')
      ++p_;
  }

  std::uint32_t offset(const char* p) const { return static_cast<std::uint32_t>(p - begin_); }

  // False when a payload or the number of values outgrows TextNode.
  bool push(TextNode::Kind kind, std::uint32_t a = 0, std::size_t payload = 0,
            bool escaped = false) {
    if (payload > TextNode::kMaxPayload || nodes_.size() >= TextNode::kMaxPayload) return false;
    TextNode n;
    n.a = a;
    n.b = (static_cast<std::uint32_t>(kind) << 28) | (escaped ? 1u << 27 : 0u) |
          static_cast<std::uint32_t>(payload);
    nodes_.push_back(n);
    return true;
  }

  void setPayload(std::uint32_t i, std::uint32_t payload) {
    nodes_[i].b = (nodes_[i].b & ~TextNode::kMaxPayload) | payload;
  }

  // Reads values until the one begun at p_ (after its space) is complete.
  bool value() {
    for (;;) {
      bool complete = true;
      if (!scalarOrOpen(complete)) return false;
      if (!complete) continue;  // a container opened: its first value is next
      // After a complete value: close the containers that end here, or
      // begin the next member or element.
      for (;;) {
        if (open_.empty()) return true;
        space();
        Open& top = open_.back();
        const bool object = nodes_[top.node].kind() == TextNode::Object;
        if (*p_ == ',') {
          ++p_;
          space();
          ++top.count;
          if (object) {
            if (!key()) return false;
          } else {
            items_.push_back(static_cast<std::uint32_t>(nodes_.size()));
          }
          break;
        }
        if (*p_ != (object ? '}' : ']')) return false;
        ++p_;
        if (!close()) return false;
      }
    }
  }

  // Reads a scalar, or opens a container; `complete` false when a container
  // was opened and its content comes next.
  bool scalarOrOpen(bool& complete) {
    switch (*p_) {
      case '{':
      case '[':
        return openContainer(*p_ == '{', complete);
      case '"':
        return string(TextNode::String);
      case 't':
        return literal("true", TextNode::True);
      case 'f':
        return literal("false", TextNode::False);
      case 'n':
        return literal("null", TextNode::Null);
      default:
        return number();
    }
  }

  bool openContainer(bool object, bool& complete) {
    if (open_.size() == kMaxDepth) return false;
    const auto node = static_cast<std::uint32_t>(nodes_.size());
    if (!push(object ? TextNode::Object : TextNode::Array, offset(p_))) return false;
    ++p_;
    space();
    open_.push_back({node, 0, static_cast<std::uint32_t>(items_.size())});
    if (*p_ == (object ? '}' : ']')) {
      ++p_;
      return close();
    }
    complete = false;
    open_.back().count = 1;
    if (object) return key();
    items_.push_back(static_cast<std::uint32_t>(nodes_.size()));
    return true;
  }

  bool close() {
    const Open top = open_.back();
    open_.pop_back();
    const bool object = nodes_[top.node].kind() == TextNode::Object;
    if (object && !checkKeys(top)) return false;
    const auto table = static_cast<std::uint32_t>(out_.extra_.size());
    if (!object) {
      out_.extra_.insert(out_.extra_.end(), items_.begin() + top.mark, items_.end());
      if (!push(TextNode::Table, table)) return false;
    } else if (top.count > kTabledMembers) {
      out_.extra_.insert(out_.extra_.end(), keyTable_.begin(), keyTable_.end());
      if (!push(TextNode::Table, table)) return false;
    }
    items_.resize(top.mark);
    if (!push(TextNode::End, offset(p_), top.count)) return false;
    setPayload(top.node, static_cast<std::uint32_t>(nodes_.size()));
    return true;
  }

  // Refuses an object that holds a key twice, and leaves the key table of
  // one with more than kTabledMembers members in keyTable_.
  bool checkKeys(const Open& top) {
    const std::uint32_t* keys = items_.data() + top.mark;
    const std::size_t count = items_.size() - top.mark;
    if (count <= 8) {
      for (std::size_t i = 1; i < count; ++i) {
        for (std::size_t j = 0; j < i; ++j) {
          if (sameRaw(out_.raw(keys[i]), out_.raw(keys[j]))) return false;
        }
      }
      return true;
    }
    // Records of one kind come one after another with the same keys in the
    // same order: keys that match those of the last object checked are
    // distinct too, which costs a comparison a key instead of a hash.
    const bool tabled = count > kTabledMembers;
    if (!tabled && count == lastKeys_.size() &&
        std::equal(keys, keys + count, lastKeys_.begin(), [this](std::uint32_t a, std::uint32_t b) {
          return sameRaw(out_.raw(a), out_.raw(b));
        })) {
      return true;
    }
    keyTable_.assign(tableSize(top.count), 0);
    const std::size_t mask = keyTable_.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint32_t k = keys[i];
      const std::string_view name = out_.raw(k);
      std::size_t slot = keyHash(name) & mask;
      for (; keyTable_[slot] != 0; slot = (slot + 1) & mask) {
        if (sameRaw(out_.raw(keyTable_[slot]), name)) return false;
      }
      keyTable_[slot] = k;
    }
    if (!tabled) lastKeys_.assign(keys, keys + count);
    return true;
  }

  // A member's key and its colon, p_ at the key's quote.
  bool key() {
    items_.push_back(static_cast<std::uint32_t>(nodes_.size()));
    if (*p_ != '"' || !string(TextNode::Key)) return false;
    // Escaped keys are compared as decoded text, which the full parser does.
    if (nodes_.back().escaped()) return false;
    space();
    if (*p_ != ':') return false;
    ++p_;
    space();
    return true;
  }

  bool literal(const char* word, TextNode::Kind kind) {
    const std::size_t n = std::strlen(word);
    if (static_cast<std::size_t>(end_ - p_) < n || std::memcmp(p_, word, n) != 0) return false;
    p_ += n;
    return push(kind);
  }

  bool string(TextNode::Kind kind) {
    const char* first = ++p_;
    bool escaped = false;
    for (;;) {
      while (end_ - p_ >= 8) {
        std::uint64_t w;
        std::memcpy(&w, p_, 8);
        if (const std::uint64_t stops = stringStops(w)) {
          // The first stop, where bytes are read lowest first.
          if constexpr (std::endian::native == std::endian::little) {
            p_ += std::countr_zero(stops) / 8;
          }
          break;
        }
        p_ += 8;
      }
      const auto c = static_cast<unsigned char>(*p_);
      if (c == '"') break;
      if (c < 0x20) return false;  // a control character, or the end of the text
      if (c == '\\') {
        if (!escape()) return false;
        escaped = true;
      } else {
        ++p_;
      }
    }
    if (!push(kind, offset(first), static_cast<std::size_t>(p_ - first), escaped)) return false;
    ++p_;
    return true;
  }

  bool escape() {
    switch (p_[1]) {
      case '"':
      case '\\':
      case '/':
      case 'b':
      case 'f':
      case 'n':
      case 'r':
      case 't':
        p_ += 2;
        return true;
      case 'u': {
        if (end_ - p_ < 6) return false;
        const long unit = hexUnit(p_ + 2);
        // Surrogates pair up under rules the full parser applies.
        if (unit < 0 || (unit >= 0xD800 && unit <= 0xDFFF)) return false;
        p_ += 6;
        return true;
      }
      default:
        return false;
    }
  }

  // Checks a number and records its kind; it is converted when read.
  bool number() {
    const char* first = p_;
    const bool negative = *p_ == '-';
    if (negative) ++p_;
    std::uint64_t magnitude = 0;
    const char* digits = p_;
    if (*p_ == '0') {
      ++p_;
      if (isDigit(*p_)) return false;
    } else if (isDigit(*p_)) {
      for (; isDigit(*p_); ++p_)
        magnitude = magnitude * 10 + static_cast<std::uint64_t>(*p_ - '0');
    } else {
      return false;
    }
    std::size_t count = static_cast<std::size_t>(p_ - digits);
    bool integer = true;
    if (*p_ == '.') {
      const char* fraction = ++p_;
      while (isDigit(*p_))
        ++p_;
      if (p_ == fraction) return false;
      count += static_cast<std::size_t>(p_ - fraction);
      integer = false;
    }
    if (*p_ == 'e' || *p_ == 'E') {
      ++p_;
      if (*p_ == '+' || *p_ == '-') ++p_;
      const char* exponent = p_;
      int e = 0;
      for (; isDigit(*p_); ++p_)
        e = std::min(e * 10 + (*p_ - '0'), 100000);
      if (p_ == exponent) return false;
      // Up to 50 digits and an exponent up to 250 always give a finite,
      // normal double (or zero); beyond that the full parser decides.
      if (e > 250) return false;
      integer = false;
    }
    const auto length = static_cast<std::size_t>(p_ - first);
    if (!integer) return count <= 50 && push(TextNode::Double, offset(first), length);
    // Nineteen digits always fit 64 bits; longer integers, which may not,
    // negative ones beyond the signed range, and the negative zero are left
    // to the full parser.
    if (count > 19 || (negative && magnitude == 0)) return false;
    constexpr auto kSignedMax =
        static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (negative && magnitude > kSignedMax + 1) return false;
    const bool unsignedOnly = !negative && magnitude > kSignedMax;
    return push(unsignedOnly ? TextNode::Uint : TextNode::Int, offset(first), length);
  }

  ParsedText& out_;
  const char* begin_;
  const char* p_;
  const char* end_;
  std::vector<TextNode>& nodes_;
  std::vector<Open> open_;
  // The element values of the open arrays and the keys of the open objects.
  std::vector<std::uint32_t> items_;
  std::vector<std::uint32_t> keyTable_;
  std::vector<std::uint32_t> lastKeys_;  // of the last object of 9 to 32 members checked
};

std::shared_ptr<const ParsedText> ParsedText::parse(std::string&& text) {
  if (text.size() > (std::size_t(1) << 30)) return nullptr;
  auto parsed = std::make_shared<ParsedText>();
  parsed->text_ = std::move(text);
  TextReader reader(*parsed);
  if (!reader.run()) {
    text = std::move(parsed->text_);
    return nullptr;
  }
  return parsed;
}

void ParsedText::decode(std::uint32_t i, std::string& out) const {
  const std::string_view s = raw(i);
  if (!nodes_[i].escaped()) {
    out.assign(s.data(), s.size());
    return;
  }
  out.clear();
  out.reserve(s.size());
  for (std::size_t k = 0; k < s.size(); ++k) {
    if (s[k] != '\\') {
      out.push_back(s[k]);
      continue;
    }
    const char e = s[++k];
    switch (e) {
      case 'u': {
        // Checked when read: four hex digits, not a surrogate.
        const auto u = static_cast<unsigned long>(hexUnit(s.data() + k + 1));
        k += 4;
        if (u < 0x80) {
          out.push_back(static_cast<char>(u));
        } else if (u < 0x800) {
          out.push_back(static_cast<char>(0xC0 | (u >> 6)));
          out.push_back(static_cast<char>(0x80 | (u & 0x3F)));
        } else {
          out.push_back(static_cast<char>(0xE0 | (u >> 12)));
          out.push_back(static_cast<char>(0x80 | ((u >> 6) & 0x3F)));
          out.push_back(static_cast<char>(0x80 | (u & 0x3F)));
        }
        break;
      }
      default: {
        // Control characters by letter; the quote, the backslash and the
        // slash stand for themselves.
        constexpr std::string_view kLetters = "bfnrt";
        constexpr std::string_view kControls = "\b\f\n\r\t";
        const std::size_t letter = kLetters.find(e);
        out.push_back(letter == std::string_view::npos ? e : kControls[letter]);
        break;
      }
    }
  }
}

std::int64_t ParsedText::integer(std::uint32_t i) const {
  const std::string_view s = raw(i);
  const bool negative = s[0] == '-';
  const std::uint64_t magnitude = unsignedInteger(i);
  // Two's complement: the magnitude 2^63 of the smallest value comes out right.
  return static_cast<std::int64_t>(negative ? ~magnitude + 1 : magnitude);
}

std::uint64_t ParsedText::unsignedInteger(std::uint32_t i) const {
  std::uint64_t magnitude = 0;
  for (const char c : raw(i)) {
    if (c != '-') magnitude = magnitude * 10 + static_cast<std::uint64_t>(c - '0');
  }
  return magnitude;
}

double ParsedText::real(std::uint32_t i) const {
  const std::string_view s = raw(i);
  double d = 0;
  // Checked when read: a number that converts exactly, in range.
  std::from_chars(s.data(), s.data() + s.size(), d);
  return d;
}

std::string_view ParsedText::span(std::uint32_t i) const {
  const std::uint32_t past = nodes_[i].payload();
  const std::uint32_t first = nodes_[i].a;
  return std::string_view(text_.data() + first, nodes_[past - 1].a - first);
}

std::uint32_t ParsedText::membersEnd(std::uint32_t object) const {
  const std::uint32_t end = next(object) - 1;
  return nodes_[end - 1].kind() == TextNode::Table ? end - 1 : end;
}

std::uint32_t ParsedText::find(std::uint32_t object, std::string_view key) const {
  const std::uint32_t end = next(object) - 1;
  const std::uint32_t members = nodes_[end].payload();
  if (members > kTabledMembers) {
    const std::uint32_t* table = extra_.data() + nodes_[end - 1].a;
    const std::size_t mask = tableSize(members) - 1;
    for (std::size_t slot = keyHash(key) & mask; table[slot] != 0; slot = (slot + 1) & mask) {
      if (sameRaw(raw(table[slot]), key)) return table[slot] + 1;
    }
    return 0;
  }
  for (std::uint32_t k = object + 1; k < end; k = next(k + 1)) {
    if (sameRaw(raw(k), key)) return k + 1;
  }
  return 0;
}

std::uint32_t ParsedText::find(std::uint32_t object, std::string_view key,
                               std::size_t& cursor) const {
  // The cursor holds the index of the Key expected next and, where size_t
  // has room, the object it belongs to: a cursor from another object's
  // lookups starts over at the first member instead of reading a Key that
  // is not a member of this one.
  constexpr bool kTagged = sizeof(std::size_t) >= 8;
  std::size_t expected = object + 1;
  if constexpr (kTagged) {
    if ((static_cast<std::uint64_t>(cursor) >> 32) == object + 1ull) {
      expected = static_cast<std::uint32_t>(cursor);
    }
  } else if (cursor != 0) {
    expected = cursor;
  }
  std::uint32_t v = 0;
  if (expected > object && expected < next(object) && nodes_[expected].kind() == TextNode::Key &&
      sameRaw(raw(static_cast<std::uint32_t>(expected)), key)) {
    v = static_cast<std::uint32_t>(expected) + 1;
  } else {
    v = find(object, key);
    if (v == 0) return 0;
  }
  cursor = next(v);
  if constexpr (kTagged) cursor |= static_cast<std::size_t>((object + 1ull) << 32);
  return v;
}

std::uint32_t ParsedText::element(std::uint32_t array, std::size_t index) const {
  const std::uint32_t end = next(array) - 1;
  if (index >= nodes_[end].payload()) return 0;
  return extra_[nodes_[end - 1].a + index];
}

}  // namespace utils::detail
