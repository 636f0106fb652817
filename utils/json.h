#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <utils/error.h>
#include <utils/export.h>

namespace utils {

// Tags that say whether a node is made to be read from or written to. Both kinds
// behave the same; the tag documents intent at the construction site.
struct UTILS_API JsonLoad {
  static const JsonLoad instance;
};
struct UTILS_API JsonSave {
  static const JsonSave instance;
};

// Numbers, bools and enumerations (enumerations are stored as their underlying integer).
template <class T>
concept JsonScalar = std::is_arithmetic_v<T> || std::is_enum_v<T>;

class JsonArray;

namespace detail {
class PendingText;
class ParsedText;
struct NodeAccess;

// A value a lookup found: a boost::json::value of a tree, or value `at` of a
// parsed text. Neither when nothing was found.
struct NodeRef {
  const void* tree = nullptr;
  const ParsedText* text = nullptr;
  std::uint32_t at = 0;

  explicit operator bool() const { return tree != nullptr || text != nullptr; }
};

// The typed conversions behind JsonObject and JsonArray, which check the
// kind and range of the value found.
UTILS_API SdkError toBool(const NodeRef& node, bool& out);
UTILS_API SdkError toSigned(const NodeRef& node, std::int64_t& out, std::int64_t lo,
                            std::int64_t hi);
UTILS_API SdkError toUnsigned(const NodeRef& node, std::uint64_t& out, std::uint64_t hi);
UTILS_API SdkError toDouble(const NodeRef& node, double& out);
UTILS_API SdkError toFloat(const NodeRef& node, float& out);
UTILS_API SdkError toString(const NodeRef& node, std::string& out);

// Reads the scalar `node` (empty when a key or index was not found, `missing`
// then being the code to return) into `out`, checking kind and range.
template <JsonScalar T>
SdkError readScalar(const NodeRef& node, SdkError missing, T& out) {
  if (!node) return missing;
  if constexpr (std::is_enum_v<T>) {
    std::underlying_type_t<T> raw{};
    SdkError e = readScalar(node, missing, raw);
    if (e == 0) out = static_cast<T>(raw);
    return e;
  } else if constexpr (std::is_same_v<T, bool>) {
    return toBool(node, out);
  } else if constexpr (std::is_same_v<T, float>) {
    return toFloat(node, out);
  } else if constexpr (std::is_floating_point_v<T>) {
    double d = 0;
    SdkError e = toDouble(node, d);
    if (e == 0) out = static_cast<T>(d);
    return e;
  } else if constexpr (std::is_signed_v<T>) {
    std::int64_t v = 0;
    SdkError e = toSigned(node, v, std::numeric_limits<T>::min(), std::numeric_limits<T>::max());
    if (e == 0) out = static_cast<T>(v);
    return e;
  } else {
    std::uint64_t v = 0;
    SdkError e = toUnsigned(node, v, std::numeric_limits<T>::max());
    if (e == 0) out = static_cast<T>(v);
    return e;
  }
}

// A JSON scalar to store: the kind and one of the payloads.
struct ScalarValue {
  enum Kind : std::uint8_t { Bool, Signed, Unsigned, Double, Float } kind;
  bool b = false;
  std::int64_t i = 0;
  std::uint64_t u = 0;
  double d = 0;
  float f = 0;
};

template <JsonScalar T>
ScalarValue makeScalar(const T& v) {
  ScalarValue s{};
  if constexpr (std::is_enum_v<T>) {
    return makeScalar(static_cast<std::underlying_type_t<T>>(v));
  } else if constexpr (std::is_same_v<T, bool>) {
    s.kind = ScalarValue::Bool;
    s.b = v;
  } else if constexpr (std::is_same_v<T, float>) {
    s.kind = ScalarValue::Float;
    s.f = v;
  } else if constexpr (std::is_floating_point_v<T>) {
    s.kind = ScalarValue::Double;
    s.d = static_cast<double>(v);
  } else if constexpr (std::is_signed_v<T>) {
    s.kind = ScalarValue::Signed;
    s.i = v;
  } else {
    s.kind = ScalarValue::Unsigned;
    s.u = v;
  }
  return s;
}
}  // namespace detail

// The compact JSON text of a node as consecutive pieces, for writing it out
// without first gathering it into one string. The pieces point into the node
// (or into `owned`) and are valid until the node changes.
struct UTILS_API JsonTextPieces {
  std::vector<std::string_view> pieces;
  std::size_t size = 0;
  std::string owned;

  std::string joined() const;
};

// A producer of JSON text in pieces, for JsonObject::parser(JsonTextSource&).
class UTILS_API JsonTextSource {
 public:
  virtual ~JsonTextSource();
  // Points `data` at the next piece of text, which stays valid until the next
  // call; `size` 0 when there is no more. A code other than 0 ends the parse
  // with that code.
  virtual SdkError next(const char*& data, std::size_t& size) = 0;
  // About how many characters the whole text holds; 0 when unknown.
  virtual std::size_t sizeHint() const { return 0; }
};

// A JSON object: a value type with typed get and set of its members.
//
// Reading never deep-copies: a child fetched with getJsonObject or getJsonArray
// shares the parent's storage and keeps it alive. The first write to a node
// whose storage is shared copies that node's subtree first, so a node never
// changes what another node sees (copy on write). Members keep their insertion
// order, and a member that is set again keeps its place.
//
// Numbers: integer targets take JSON integers (or integral numbers) within their
// range, anything else is errc::outOfRange; float and double take any number;
// bool takes only true and false. Numbers are written in their shortest exact
// decimal form ("0.02", "2000"), a float as the shortest decimal of the float.
// NaN and infinities, which JSON cannot hold, are written as the strings "NaN",
// "Infinity" and "-Infinity" and read back by float and double targets. Text
// holding a number beyond the range of a double (1e400) does not parse (see
// parser), so every number in a tree is finite and is written back as it was read.
//
// A node that has only been added to (set of new keys, add, a child stored)
// keeps its content as JSON text and builds no tree: saving records and then
// writing them formats each value once. The first operation that needs the
// tree (a get, a view, a replaced member that is not the last one) parses that
// text, which gives exactly the values that were set. Because that first read
// changes the node, a node built this way and not yet read must not be read
// from two threads at once; a parsed or already read tree may.
//
// An object or array made by parser keeps the text and an index of its
// values (8 bytes a value, 4 an array element) and is read in place: a child
// fetched from it is a view of the same text, numbers are converted when
// they are read, and the text is released with the last node that sees any
// part of it. Such a node is never edited in place: the first write to one
// of them parses that node's own text into a tree of ordinary memory, as
// for a shared node. Editing a parsed document therefore costs one parse of
// the edited node (the whole text for the document itself), and later edits
// cost what edits of a built tree cost. Text that only the full parser reads
// exactly (a key written with escapes or given twice, a surrogate escape, an
// integer beyond 64 bits, a number of many digits or a large exponent,
// nesting beyond 255 levels) is parsed into a tree at once, in one block of
// memory, with the same copy on the first write.
class UTILS_API JsonObject {
 public:
  explicit JsonObject(JsonLoad);
  explicit JsonObject(JsonSave);
  JsonObject(JsonObject&& other) noexcept;
  JsonObject& operator=(JsonObject&& other) noexcept;
  JsonObject(const JsonObject&) = delete;
  JsonObject& operator=(const JsonObject&) = delete;
  virtual ~JsonObject();

  // A deep copy that shares nothing with this node.
  JsonObject clone() const;
  void swap(JsonObject& other) noexcept;

  // Typed members. get leaves `out` untouched on error: errc::keyMissing,
  // errc::wrongType or errc::outOfRange.
  template <JsonScalar T>
  SdkError get(const char* key, T& out) const {
    return detail::readScalar(find(key), errc::keyMissing, out);
  }
  SdkError get(const char* key, std::string& out) const;

  // The same lookups for a reader that asks for the keys in about the order
  // they are stored (a record loading what it saved). `cursor` is the position
  // where the next key is expected, 0 to begin with and afterwards only what
  // lookups in this object left there: a key found there costs
  // one comparison instead of a search, and the cursor moves past the member
  // found. A key stored elsewhere is found as usual and the cursor moves past
  // it; a missing key leaves the cursor where it was.
  template <JsonScalar T>
  SdkError get(const char* key, T& out, std::size_t& cursor) const {
    return detail::readScalar(find(key, cursor), errc::keyMissing, out);
  }
  SdkError get(const char* key, std::string& out, std::size_t& cursor) const;
  [[nodiscard]] SdkError getJsonObject(const char* key, JsonObject& out, std::size_t& cursor) const;
  [[nodiscard]] SdkError getJsonArray(const char* key, JsonArray& out, std::size_t& cursor) const;

  template <JsonScalar T>
  SdkError set(const char* key, const T& in) {
    return setScalar(key, detail::makeScalar(in));
  }
  SdkError set(const char* key, std::string_view in);
  SdkError set(const char* key, const std::string& in) { return set(key, std::string_view(in)); }
  SdkError set(const char* key, const char* in) { return set(key, std::string_view(in ? in : "")); }

  // Adds a member that the object does not have yet, without looking the key
  // up: for building a fresh object from a list of distinct keys (a record's
  // key list), where it is faster than set. On an object that already holds
  // members it is set. Adding a key twice to a fresh object is a fault of the
  // caller: the text written then holds the key twice (reads keep the last).
  template <JsonScalar T>
  SdkError add(std::string_view key, const T& in) {
    return addScalar(key, detail::makeScalar(in));
  }
  SdkError add(std::string_view key, std::string_view in);
  SdkError addJsonObject(std::string_view key, JsonObject&& child);
  SdkError addJsonArray(std::string_view key, JsonArray&& child);

  // The stored value, or `fallback` when the key is missing or unreadable as T.
  template <JsonScalar T>
  T load(const char* key, T fallback) const {
    T value = fallback;
    return get(key, value) == 0 ? value : fallback;
  }

  // Nested objects and arrays. get makes `out` a view of the child (see above);
  // set moves `child` in, replacing a member of the same name.
  [[nodiscard]] SdkError getJsonObject(const char* key, JsonObject& out) const;
  [[nodiscard]] SdkError getJsonArray(const char* key, JsonArray& out) const;
  SdkError setJsonObject(const char* key, JsonObject&& child);
  SdkError setJsonArray(const char* key, JsonArray&& child);

  // Moves the object or array stored under `key` out into `out`, to be edited
  // and stored back with setJsonObject or setJsonArray: the member keeps its
  // place, holding an empty object or array meanwhile, and nothing is copied
  // beyond making this node's storage its own. errc::keyMissing or
  // errc::wrongType otherwise, `out` untouched.
  SdkError takeJsonObject(const char* key, JsonObject& out);
  SdkError takeJsonArray(const char* key, JsonArray& out);

  // The JSON text of one member ("75", "\"75\"", "{...}"); empty when missing.
  std::string memberText(const char* key) const;
  // Stores the value of the JSON text `text` (any JSON value) under `key`,
  // replacing a member of that name in its place. errc::parseError for text
  // that is not one JSON value, errc::outOfRange for a number beyond a double.
  SdkError setMemberText(const char* key, std::string_view text);

  std::vector<std::string> keys() const;
  std::size_t size() const;
  bool empty() const { return size() == 0; }
  bool contains(const char* key) const { return static_cast<bool>(find(key)); }
  // Removes a member; false when there was none.
  bool erase(const char* key);

  // The JSON text of the object: compact, or with members on their own lines
  // indented by `indent` spaces a level.
  std::string stringfy() const { return stringfy(0); }
  std::string stringfy(int indent) const;
  // stringfy() in pieces.
  JsonTextPieces textPieces() const;
  // Replaces the content by the parsed text, which must be one JSON object.
  // errc::parseError for text that is not JSON, errc::outOfRange for a number
  // beyond the range of a double, errc::wrongType for JSON that is not an
  // object; the content is unchanged then.
  [[nodiscard]] SdkError parser(const char* text, std::size_t length);
  // The same for text that `source` hands over in pieces (decoded from a
  // payload, say), so that the caller need not gather it first: the pieces
  // are gathered once here, since the object is read in place from its text.
  // A code from the source ends the parse with that code. The source's codes come first: after bad
  // text the rest is still drawn from the source, and a code it gives then is returned.
  [[nodiscard]] SdkError parser(JsonTextSource& source);

 protected:
  // setJsonObject for bookkeeping members that a const operation maintains (a
  // document stores its information block while it is written).
  SdkError setJsonObjectOfConst(const char* key, JsonObject&& child) const;

 private:
  friend class JsonArray;
  friend struct detail::NodeAccess;
  detail::NodeRef find(const char* key) const;
  detail::NodeRef find(const char* key, std::size_t& cursor) const;
  SdkError setScalar(const char* key, const detail::ScalarValue& value);
  SdkError addScalar(std::string_view key, const detail::ScalarValue& value);
  // The text to add the member `key` to, begun; null when the object is a tree.
  detail::PendingText* uncheckedTextFor(std::string_view key);
  // The text to write the value of `key` into, its member begun; null when the
  // member goes through the tree (which is then built).
  detail::PendingText* textFor(const char* key) const;
  // Builds the tree from the pending text or the parsed text, if the node
  // holds either: before a change, or a read that needs the tree.
  void settle() const;
  // Stores `child` (of container T) under `key`: into `text`, the member
  // begun there, or into the tree when `text` is null.
  template <class T, class Child>
  SdkError storeChild(detail::PendingText* text, std::string_view key, Child& child) const;

  // A boost::json::object, possibly inside a larger tree that it keeps alive,
  // or, when null, the content still as text (text_, see above), or the
  // object at `at_` of a parsed text (parsed_), read in place. Mutable for
  // setJsonObjectOfConst and for reads that build the tree.
  mutable std::shared_ptr<void> node_;
  mutable std::unique_ptr<detail::PendingText> text_;
  mutable std::shared_ptr<const detail::ParsedText> parsed_;
  mutable std::uint32_t at_ = 0;
};

// A JSON array: the same storage, text and number rules as JsonObject.
class UTILS_API JsonArray {
 public:
  explicit JsonArray(JsonLoad);
  explicit JsonArray(JsonSave);
  JsonArray(JsonArray&& other) noexcept;
  JsonArray& operator=(JsonArray&& other) noexcept;
  JsonArray(const JsonArray&) = delete;
  JsonArray& operator=(const JsonArray&) = delete;
  virtual ~JsonArray();

  JsonArray clone() const;
  void swap(JsonArray& other) noexcept;

  std::size_t size() const;
  bool empty() const { return size() == 0; }
  void reserve(std::size_t count);

  // errc::indexOutOfRange past the end, else as JsonObject::get.
  template <JsonScalar T>
  SdkError get(std::size_t index, T& out) const {
    return detail::readScalar(at(index), errc::indexOutOfRange, out);
  }
  SdkError get(std::size_t index, std::string& out) const;

  template <JsonScalar T>
  SdkError add(const T& in) {
    return addScalar(detail::makeScalar(in));
  }
  SdkError add(std::string_view in);
  SdkError add(const std::string& in) { return add(std::string_view(in)); }
  SdkError add(const char* in) { return add(std::string_view(in ? in : "")); }

  [[nodiscard]] SdkError getJsonObject(std::size_t index, JsonObject& out) const;
  [[nodiscard]] SdkError getJsonArray(std::size_t index, JsonArray& out) const;
  SdkError addJsonObject(JsonObject&& child);
  SdkError addJsonArray(JsonArray&& child);

  // Replace element `index`; at index size() they append.
  // errc::indexOutOfRange beyond that.
  template <JsonScalar T>
  SdkError set(std::size_t index, const T& in) {
    return setScalar(index, detail::makeScalar(in));
  }
  SdkError set(std::size_t index, std::string_view in);
  SdkError set(std::size_t index, const std::string& in) {
    return set(index, std::string_view(in));
  }
  SdkError set(std::size_t index, const char* in) {
    return set(index, std::string_view(in ? in : ""));
  }
  SdkError setJsonObject(std::size_t index, JsonObject&& child);
  SdkError setJsonArray(std::size_t index, JsonArray&& child);

  // As JsonObject::takeJsonObject, for element `index`
  // (errc::indexOutOfRange past the end).
  SdkError takeJsonObject(std::size_t index, JsonObject& out);
  SdkError takeJsonArray(std::size_t index, JsonArray& out);

  // Drops the elements from position `count` on.
  void truncate(std::size_t count);

  // The JSON text of one element; empty past the end.
  std::string elementText(std::size_t index) const;
  // As JsonObject::setMemberText, for element `index`; index size() appends.
  SdkError setElementText(std::size_t index, std::string_view text);

  std::string stringfy() const { return stringfy(0); }
  std::string stringfy(int indent) const;
  // Replaces the content by the parsed text, which must be one JSON array.
  [[nodiscard]] SdkError parser(const char* text, std::size_t length);

 private:
  friend class JsonObject;
  friend struct detail::NodeAccess;
  detail::NodeRef at(std::size_t index) const;
  SdkError addScalar(const detail::ScalarValue& value);
  SdkError setScalar(std::size_t index, const detail::ScalarValue& value);
  // The text to write element `index` into, the element begun, when it can be
  // appended there; null otherwise.
  detail::PendingText* textAt(std::size_t index);
  void settle() const;

  // As JsonObject's.
  mutable std::shared_ptr<void> node_;
  mutable std::unique_ptr<detail::PendingText> text_;
  mutable std::shared_ptr<const detail::ParsedText> parsed_;
  mutable std::uint32_t at_ = 0;
};

}  // namespace utils
