#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace utils::detail {

// One value of a parsed JSON text, in 8 bytes. Values follow each other in
// text order: a container is followed by its content, then, for an array or
// an object of many members, by a Table value, and by an End value. An
// object's content is, for each member, a Key value and the member's own
// values.
struct TextNode {
  enum Kind : std::uint8_t {
    Null,
    False,
    True,
    Int,
    Uint,
    Double,
    String,
    Key,
    Object,
    Array,
    Table,
    End
  };
  static constexpr std::uint32_t kMaxPayload = (1u << 27) - 1;

  // Int, Uint, Double, String, Key: offset of the first character in the
  // text. Object, Array: offset of the opening bracket. Table: where the
  // container's table starts in the extra indexes (see ParsedText). End:
  // offset past the closing bracket.
  std::uint32_t a = 0;
  // The kind (high 4 bits), whether a String or Key holds escapes (bit 27),
  // and the payload (low 27 bits): the length of the characters (Int, Uint,
  // Double, String, Key), the index past the End value (Object, Array), or
  // the number of members or elements (End).
  std::uint32_t b = 0;

  Kind kind() const { return static_cast<Kind>(b >> 28); }
  bool escaped() const { return ((b >> 27) & 1u) != 0; }
  std::uint32_t payload() const { return b & kMaxPayload; }
};

// A JSON text checked once and kept with an index of its values, so that a
// reader finds members and elements without a tree being built: the text,
// 8 bytes a value, and 4 bytes an array element. Numbers are converted when
// they are read. Values are referred
// to by their index, the root being 0, so 0 also means "none" where a member
// or element is looked up.
//
// Only text that reads unambiguously is taken: anything the full parser
// refuses, and the rare text whose value needs its care (an escaped key, a
// key twice in one object, a surrogate escape, an integer beyond 64 bits, a
// number of many digits or a large exponent, nesting past 255 levels, a
// text beyond 1 GiB or of more values than a payload counts), is left to it.
class ParsedText {
 public:
  // Reads `text`, one whole JSON value. Null when the text is not taken
  // (see above): the caller parses it with the full parser, which gives the
  // value or says what is wrong.
  static std::shared_ptr<const ParsedText> parse(std::string&& text);

  TextNode::Kind kind(std::uint32_t i) const { return nodes_[i].kind(); }
  // The index past the value at `i` and all it holds.
  std::uint32_t next(std::uint32_t i) const {
    const TextNode& n = nodes_[i];
    const TextNode::Kind k = n.kind();
    return k == TextNode::Object || k == TextNode::Array ? n.payload() : i + 1;
  }
  // The number of members or elements of the container at `i`.
  std::uint32_t count(std::uint32_t i) const { return nodes_[next(i) - 1].payload(); }
  // The characters of the number, String or Key at `i`, escapes as written.
  std::string_view raw(std::uint32_t i) const {
    return std::string_view(text_.data() + nodes_[i].a, nodes_[i].payload());
  }
  // The number at `i` (Int, Uint, Double).
  std::int64_t integer(std::uint32_t i) const;
  std::uint64_t unsignedInteger(std::uint32_t i) const;
  double real(std::uint32_t i) const;
  // The String or Key at `i` with its escapes decoded.
  void decode(std::uint32_t i, std::string& out) const;
  // The text of the container at `i`, bracket to bracket.
  std::string_view span(std::uint32_t i) const;

  // The Key values of the object at `object` are those from `object` + 1
  // (each followed by its value) up to this index.
  std::uint32_t membersEnd(std::uint32_t object) const;
  // The value of member `key` of the object at `object`; 0 when missing.
  std::uint32_t find(std::uint32_t object, std::string_view key) const;
  // The same, first trying the member `cursor` points at (0 for the first
  // member), and pointing `cursor` at the member after the one found.
  std::uint32_t find(std::uint32_t object, std::string_view key, std::size_t& cursor) const;
  // Element `index` of the array at `array`; 0 past its end.
  std::uint32_t element(std::uint32_t array, std::size_t index) const;

 private:
  friend class TextReader;

  std::string text_;
  std::vector<TextNode> nodes_;
  // Arrays' element indexes, and the key tables of large objects.
  std::vector<std::uint32_t> extra_;
};

}  // namespace utils::detail
