#include <utils/json.h>

#include <boost/json.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <stdexcept>
#include <type_traits>

#include "internal/jsonText.h"
#include "internal/parsedText.h"
#include "internal/pendingText.h"

namespace utils {

namespace bj = boost::json;

const JsonLoad JsonLoad::instance{};
const JsonSave JsonSave::instance{};

JsonTextSource::~JsonTextSource() = default;

namespace {

const bj::value& asValue(const void* node) {
  return *static_cast<const bj::value*>(node);
}

using detail::ParsedText;
using detail::TextNode;

// Value `at` of a parsed text as a tree value. Containers come out empty:
// a scalar conversion only needs their kind.
bj::value scalarOf(const ParsedText& text, std::uint32_t at) {
  switch (text.kind(at)) {
    case TextNode::False:
      return bj::value(false);
    case TextNode::True:
      return bj::value(true);
    case TextNode::Int:
      return bj::value(text.integer(at));
    case TextNode::Uint:
      return bj::value(text.unsignedInteger(at));
    case TextNode::Double:
      return bj::value(text.real(at));
    case TextNode::String:
    case TextNode::Key: {
      std::string s;
      text.decode(at, s);
      return bj::value(bj::string(s));
    }
    case TextNode::Object:
      return bj::value(bj::object());
    case TextNode::Array:
      return bj::value(bj::array());
    default:
      return bj::value(nullptr);
  }
}

// The value a lookup found, as a tree value to convert: the tree's own, or
// one made for a value of parsed text.
class ValueOf {
 public:
  explicit ValueOf(const detail::NodeRef& n)
      : own_(n.text != nullptr ? scalarOf(*n.text, n.at) : bj::value()),
        value_(n.text != nullptr ? &own_ : static_cast<const bj::value*>(n.tree)) {}
  const bj::value& operator*() const { return *value_; }

 private:
  bj::value own_;
  const bj::value* value_;
};

// What a lookup in a parsed text found at `v`: nothing for 0.
detail::NodeRef parsedRef(const std::shared_ptr<const ParsedText>& text, std::uint32_t v) {
  if (v == 0) return {};
  return {nullptr, text.get(), v};
}

// The whole value a lookup found as a tree of its own: a parsed container is
// parsed again from its text, which is known to parse.
bj::value treeOf(const detail::NodeRef& n) {
  if (n.text == nullptr) return asValue(n.tree);
  const TextNode::Kind kind = n.text->kind(n.at);
  if (kind != TextNode::Object && kind != TextNode::Array) return scalarOf(*n.text, n.at);
  std::error_code ec;
  bj::value v = parseJson(n.text->span(n.at), ec);
  if (ec) throw std::logic_error("utils::JsonObject: parsed JSON text does not parse again");
  return v;
}

template <class T>
T* as(const std::shared_ptr<void>& node) {
  return static_cast<T*>(node.get());
}

// Whether `c` lives in the arena of a parsed tree (see ParsedTree): only the
// arena's storage frees nothing on deallocation.
template <class T>
bool inArena(const T& c) {
  return c.storage().is_deallocate_trivial();
}

// The node's container, made exclusive first: a fresh one when there is none,
// a private copy in ordinary memory when the storage is shared with another
// node or is a parse arena, which is never edited in place.
template <class T>
T& exclusive(std::shared_ptr<void>& node) {
  if (!node) {
    node = std::make_shared<T>();
  } else if (node.use_count() > 1 || inArena(*as<const T>(node))) {
    node = std::make_shared<T>(*as<const T>(node), bj::storage_ptr());
  }
  return *as<T>(node);
}

// The node's container as a value to store elsewhere: moved out when nobody
// else can see it, copied otherwise.
template <class T>
bj::value release(std::shared_ptr<void>& node) {
  bj::value v;
  if (!node) {
    v = T();
  } else if (node.use_count() == 1) {
    v = std::move(*as<T>(node));
  } else {
    v = *as<const T>(node);
  }
  node.reset();
  return v;
}

// A float stored as the double whose shortest decimal is the float's own, so
// that 0.02f is written as 0.02 and still reads back as 0.02f.
double floatToStored(float f) {
  if (!std::isfinite(f)) return static_cast<double>(f);
  char buf[32];
  auto res = std::to_chars(buf, buf + sizeof buf, f);
  double d = 0;
  auto back = std::from_chars(buf, res.ptr, d);
  if (back.ec != std::errc() || static_cast<float>(d) != f) return static_cast<double>(f);
  return d;
}

// Non-finite numbers travel as strings (see the class comment).
bj::value nonFiniteOr(double d) {
  if (std::isnan(d)) return bj::string("NaN");
  if (std::isinf(d)) return bj::string(d > 0 ? "Infinity" : "-Infinity");
  return bj::value(d);
}

bj::value makeValue(const detail::ScalarValue& s) {
  switch (s.kind) {
    case detail::ScalarValue::Bool:
      return bj::value(s.b);
    case detail::ScalarValue::Signed:
      return bj::value(s.i);
    case detail::ScalarValue::Unsigned:
      return bj::value(s.u);
    case detail::ScalarValue::Float:
      return nonFiniteOr(floatToStored(s.f));
    case detail::ScalarValue::Double:
      break;
  }
  return nonFiniteOr(s.d);
}

bool parseNonFinite(const bj::value& v, double& out) {
  const bj::string* s = v.if_string();
  if (s == nullptr) return false;
  if (*s == "NaN") {
    out = std::numeric_limits<double>::quiet_NaN();
  } else if (*s == "Infinity") {
    out = std::numeric_limits<double>::infinity();
  } else if (*s == "-Infinity") {
    out = -std::numeric_limits<double>::infinity();
  } else {
    return false;
  }
  return true;
}

// Whether the zero-terminated `key` is `stored`, reading no byte of `key`
// past its end.
bool sameKey(bj::string_view stored, const char* key) {
  std::size_t i = 0;
  for (; i < stored.size(); ++i) {
    if (key[i] != stored[i] || key[i] == '\0') return false;
  }
  return key[i] == '\0';
}

bool integralDouble(double d) {
  return std::isfinite(d) && std::trunc(d) == d;
}

// A parsed tree with the arena its containers and strings were allocated from.
// Parsing one allocation after another from a single block is about twice as
// fast as a heap allocation per container, and dropping the tree frees the
// blocks without visiting its nodes. Pages of a block the tree has not reached
// are never touched, so sizing the first block generously costs no memory.
struct ParsedTree {
  explicit ParsedTree(std::size_t textSize) : arena(firstBlock(textSize)) {}

  // A parsed tree takes two to three times its text.
  static std::size_t firstBlock(std::size_t textSize) {
    constexpr std::size_t kMin = 4096;
    constexpr std::size_t kMax = std::size_t(1) << 30;
    return std::clamp(textSize * 2, kMin, kMax);
  }

  bj::monotonic_resource arena;
  // Move-constructed from the parse (an assignment would copy the tree into
  // the target's storage); destroyed before the arena.
  std::optional<bj::value> root;
};

// Parses what `parse(storage)` returns, a value or an error in `ec`, into a
// ParsedTree of its own, and points `node` at its root when it is of kind
// `wanted`.
template <class Parse>
SdkError parseTree(std::size_t textSize, std::shared_ptr<void>& node, bj::kind wanted,
                   Parse&& parse) {
  auto tree = std::make_shared<ParsedTree>(textSize);
  std::error_code ec;
  bj::value& root = tree->root.emplace(parse(bj::storage_ptr(&tree->arena), ec));
  if (ec == std::errc::result_out_of_range) return errc::outOfRange;
  if (ec) return errc::parseError;
  if (root.kind() != wanted) return errc::wrongType;
  if (wanted == bj::kind::object) {
    node = std::shared_ptr<void>(tree, &root.get_object());
  } else {
    node = std::shared_ptr<void>(tree, &root.get_array());
  }
  return 0;
}

SdkError parseInto(const char* text, std::size_t length, std::shared_ptr<void>& node,
                   bj::kind wanted) {
  if (text == nullptr && length != 0) return errc::parseError;
  const std::string_view all(text ? text : "", length);
  return parseTree(length, node, wanted, [all](bj::storage_ptr storage, std::error_code& ec) {
    return parseJson(all, ec, std::move(storage));
  });
}

// Makes `text` the content of a node of container T: read in place as
// parsed text when it reads plainly (see ParsedText), else parsed into a
// tree. The content is unchanged on error.
template <class T>
SdkError parseWhole(std::string&& text, std::shared_ptr<void>& node,
                    std::unique_ptr<detail::PendingText>& pending,
                    std::shared_ptr<const ParsedText>& parsed, std::uint32_t& at) {
  constexpr bool object = std::is_same_v<T, bj::object>;
  if (std::shared_ptr<const ParsedText> read = ParsedText::parse(std::move(text))) {
    if (read->kind(0) != (object ? TextNode::Object : TextNode::Array)) return errc::wrongType;
    node.reset();
    pending.reset();
    parsed = std::move(read);
    at = 0;
    return 0;
  }
  const SdkError e =
      parseInto(text.data(), text.size(), node, object ? bj::kind::object : bj::kind::array);
  if (e == 0) {
    pending.reset();
    parsed.reset();
  }
  return e;
}

// The JSON text of any value.
std::string valueText(const bj::value& v) {
  if (const bj::object* o = v.if_object()) return writeJson(*o);
  if (const bj::array* a = v.if_array()) return writeJson(*a);
  bj::array one;
  one.push_back(v);
  const std::string text = writeJson(one);
  return text.substr(1, text.size() - 2);
}

// Moves the container held by `slot` (of kind T) into a node of its own.
template <class T>
void moveOut(bj::value& slot, std::shared_ptr<void>& out) {
  if constexpr (std::is_same_v<T, bj::object>) {
    out = std::make_shared<bj::object>(std::move(slot.get_object()));
  } else {
    out = std::make_shared<bj::array>(std::move(slot.get_array()));
  }
}

template <class T>
bool isKind(const bj::value& v) {
  if constexpr (std::is_same_v<T, bj::object>) {
    return v.is_object();
  } else {
    return v.is_array();
  }
}

// Element `index` of the array `node` becomes `v`; index size() appends.
SdkError storeAt(std::shared_ptr<void>& node, std::size_t index, bj::value&& v) {
  const std::size_t size = node ? as<const bj::array>(node)->size() : 0;
  if (index > size) return errc::indexOutOfRange;
  bj::array& a = exclusive<bj::array>(node);
  if (index == size) {
    a.push_back(std::move(v));
  } else {
    a[index] = std::move(v);
  }
  return 0;
}

// Moves the member `key` (of kind T) of the object `node` out into `out`.
template <class T>
SdkError takeMember(std::shared_ptr<void>& node, const char* key, std::shared_ptr<void>& out) {
  if (!node || key == nullptr) return errc::keyMissing;
  const bj::value* found = as<const bj::object>(node)->if_contains(key);
  if (found == nullptr) return errc::keyMissing;
  if (!isKind<T>(*found)) return errc::wrongType;
  moveOut<T>(*exclusive<bj::object>(node).if_contains(key), out);
  return 0;
}

// Moves element `index` (of kind T) of the array `node` out into `out`.
template <class T>
SdkError takeElement(std::shared_ptr<void>& node, std::size_t index, std::shared_ptr<void>& out) {
  if (!node || index >= as<const bj::array>(node)->size()) return errc::indexOutOfRange;
  if (!isKind<T>((*as<const bj::array>(node))[index])) return errc::wrongType;
  moveOut<T>(exclusive<bj::array>(node)[index], out);
  return 0;
}

// Builds the tree of a node whose content is still text, pending or parsed:
// `open` and `close` are its brackets, T its container.
template <class T>
void settleText(std::shared_ptr<void>& node, std::unique_ptr<detail::PendingText>& text,
                std::shared_ptr<const ParsedText>& parsed, std::uint32_t at, char open,
                char close) {
  if (parsed) {
    bj::value v = treeOf({nullptr, parsed.get(), at});
    if constexpr (std::is_same_v<T, bj::object>) {
      node = std::make_shared<bj::object>(std::move(v.get_object()));
    } else {
      node = std::make_shared<bj::array>(std::move(v.get_array()));
    }
    parsed.reset();
    return;
  }
  if (!text) return;
  std::error_code ec;
  bj::value v = parseOwnJson(text->joined(open, close), ec);
  // The text is the writer's own, so it always parses; anything else is a
  // fault here, never a reason to drop the content.
  if (ec) throw std::logic_error("utils::JsonObject: pending JSON text does not parse");
  if constexpr (std::is_same_v<T, bj::object>) {
    node = std::make_shared<bj::object>(std::move(v.get_object()));
  } else {
    node = std::make_shared<bj::array>(std::move(v.get_array()));
  }
  text.reset();
}

}  // namespace

namespace detail {

// What JsonObject and JsonArray do alike with each other's content.
struct NodeAccess {
  // Makes `out` (a JsonObject or JsonArray) a view of the container `found`
  // in `from`, or says why it cannot: `missing` when nothing was found.
  template <class Out, class From>
  static SdkError view(const NodeRef& found, SdkError missing, const From& from, Out& out) {
    constexpr bool object = std::is_same_v<Out, JsonObject>;
    using T = std::conditional_t<object, bj::object, bj::array>;
    if (!found) return missing;
    if (found.text != nullptr) {
      if (found.text->kind(found.at) != (object ? TextNode::Object : TextNode::Array)) {
        return errc::wrongType;
      }
      std::shared_ptr<const ParsedText> keep = from.parsed_;
      out.node_.reset();
      out.text_.reset();
      out.parsed_ = std::move(keep);
      out.at_ = found.at;
      return 0;
    }
    const bj::value& v = asValue(found.tree);
    const T* c = nullptr;
    if constexpr (object) {
      c = v.if_object();
    } else {
      c = v.if_array();
    }
    if (c == nullptr) return errc::wrongType;
    std::shared_ptr<void> keep(from.node_, const_cast<T*>(c));
    out.text_.reset();
    out.parsed_.reset();
    out.node_ = std::move(keep);
    return 0;
  }

  // Writes `child` (a JsonObject or JsonArray, as a tree, text or empty) as
  // the value just begun in `text`, leaving the child empty.
  template <class Child>
  static void putChild(PendingText& text, Child& child) {
    constexpr bool object = std::is_same_v<Child, JsonObject>;
    using T = std::conditional_t<object, bj::object, bj::array>;
    if (child.parsed_) child.settle();
    if (child.text_) {
      text.putContainer(std::move(*child.text_), object ? '{' : '[', object ? '}' : ']');
      child.text_.reset();
    } else if (child.node_) {
      text.putRaw(writeJson(*as<const T>(child.node_)));
    } else {
      text.putRaw(object ? "{}" : "[]");
    }
    child.node_.reset();
  }
};

SdkError toBool(const NodeRef& node, bool& out) {
  const ValueOf value(node);
  const bj::value& v = *value;
  if (!v.is_bool()) return errc::wrongType;
  out = v.get_bool();
  return 0;
}

SdkError toSigned(const NodeRef& node, std::int64_t& out, std::int64_t lo, std::int64_t hi) {
  if (node.text != nullptr && node.text->kind(node.at) == TextNode::Int) {
    const std::int64_t i = node.text->integer(node.at);
    if (i < lo || i > hi) return errc::outOfRange;
    out = i;
    return 0;
  }
  const ValueOf value(node);
  const bj::value& v = *value;
  switch (v.kind()) {
    case bj::kind::int64: {
      std::int64_t i = v.get_int64();
      if (i < lo || i > hi) return errc::outOfRange;
      out = i;
      return 0;
    }
    case bj::kind::uint64: {
      std::uint64_t u = v.get_uint64();
      if (u > static_cast<std::uint64_t>(hi)) return errc::outOfRange;
      out = static_cast<std::int64_t>(u);
      return 0;
    }
    case bj::kind::double_: {
      double d = v.get_double();
      // [lo, hi + 1) holds every integer in range, and both bounds are exact doubles.
      if (!integralDouble(d) || d < static_cast<double>(lo) || d >= static_cast<double>(hi) + 1.0) {
        return errc::outOfRange;
      }
      out = static_cast<std::int64_t>(d);
      return 0;
    }
    default:
      return errc::wrongType;
  }
}

SdkError toUnsigned(const NodeRef& node, std::uint64_t& out, std::uint64_t hi) {
  const ValueOf value(node);
  const bj::value& v = *value;
  switch (v.kind()) {
    case bj::kind::int64: {
      std::int64_t i = v.get_int64();
      if (i < 0 || static_cast<std::uint64_t>(i) > hi) return errc::outOfRange;
      out = static_cast<std::uint64_t>(i);
      return 0;
    }
    case bj::kind::uint64: {
      std::uint64_t u = v.get_uint64();
      if (u > hi) return errc::outOfRange;
      out = u;
      return 0;
    }
    case bj::kind::double_: {
      double d = v.get_double();
      if (!integralDouble(d) || d < 0 || d >= static_cast<double>(hi) + 1.0) {
        return errc::outOfRange;
      }
      out = static_cast<std::uint64_t>(d);
      return 0;
    }
    default:
      return errc::wrongType;
  }
}

SdkError toDouble(const NodeRef& node, double& out) {
  if (node.text != nullptr && node.text->kind(node.at) == TextNode::Double) {
    out = node.text->real(node.at);
    return 0;
  }
  const ValueOf value(node);
  const bj::value& v = *value;
  switch (v.kind()) {
    case bj::kind::double_:
      out = v.get_double();
      return 0;
    case bj::kind::int64:
      out = static_cast<double>(v.get_int64());
      return 0;
    case bj::kind::uint64:
      out = static_cast<double>(v.get_uint64());
      return 0;
    default:
      return parseNonFinite(v, out) ? 0 : errc::wrongType;
  }
}

SdkError toFloat(const NodeRef& node, float& out) {
  double d = 0;
  SdkError e = toDouble(node, d);
  if (e != 0) return e;
  if (std::isfinite(d) && std::fabs(d) > std::numeric_limits<float>::max()) {
    return errc::outOfRange;
  }
  out = static_cast<float>(d);
  return 0;
}

SdkError toString(const NodeRef& node, std::string& out) {
  if (node.text != nullptr) {
    if (node.text->kind(node.at) != TextNode::String) return errc::wrongType;
    node.text->decode(node.at, out);
    return 0;
  }
  const bj::value& v = asValue(node.tree);
  const bj::string* s = v.if_string();
  if (s == nullptr) return errc::wrongType;
  out.assign(s->data(), s->size());
  return 0;
}

}  // namespace detail

// ---- JsonObject ----

JsonObject::JsonObject(JsonLoad) {}
JsonObject::JsonObject(JsonSave) {}
JsonObject::JsonObject(JsonObject&& other) noexcept = default;
JsonObject& JsonObject::operator=(JsonObject&& other) noexcept = default;
JsonObject::~JsonObject() = default;

JsonObject JsonObject::clone() const {
  JsonObject copy(JsonSave::instance);
  if (node_) {
    copy.node_ = std::make_shared<bj::object>(*as<const bj::object>(node_), bj::storage_ptr());
  }
  if (text_) copy.text_ = std::make_unique<detail::PendingText>(*text_);
  // Parsed text is never changed: the copy reads the same.
  copy.parsed_ = parsed_;
  copy.at_ = at_;
  return copy;
}

void JsonObject::swap(JsonObject& other) noexcept {
  node_.swap(other.node_);
  text_.swap(other.text_);
  parsed_.swap(other.parsed_);
  std::swap(at_, other.at_);
}

void JsonObject::settle() const {
  settleText<bj::object>(node_, text_, parsed_, at_, '{', '}');
}

detail::PendingText* JsonObject::textFor(const char* key) const {
  if (parsed_) settle();
  if (node_) return nullptr;
  if (!text_) text_ = std::make_unique<detail::PendingText>();
  const std::string_view name(key);
  const std::uint64_t h = detail::PendingText::hash(name);
  if (text_->mayHave(h)) {
    // Set again: the last member is rewritten in its place, any other goes
    // through the tree.
    if (!text_->isLast(h)) {
      settle();
      return nullptr;
    }
    text_->dropLast();
  }
  text_->beginMember(name, h);
  return text_.get();
}

detail::PendingText* JsonObject::uncheckedTextFor(std::string_view key) {
  if (parsed_) settle();
  if (node_) return nullptr;
  if (!text_) text_ = std::make_unique<detail::PendingText>();
  text_->beginUncheckedMember(key);
  return text_.get();
}

SdkError JsonObject::addScalar(std::string_view key, const detail::ScalarValue& value) {
  if (detail::PendingText* text = uncheckedTextFor(key)) {
    text->putScalar(value);
    return 0;
  }
  exclusive<bj::object>(node_).insert_or_assign(key, makeValue(value));
  return 0;
}

SdkError JsonObject::add(std::string_view key, std::string_view in) {
  if (detail::PendingText* text = uncheckedTextFor(key)) {
    text->putString(in);
    return 0;
  }
  exclusive<bj::object>(node_).insert_or_assign(key, bj::string(in));
  return 0;
}

template <class T, class Child>
SdkError JsonObject::storeChild(detail::PendingText* text, std::string_view key,
                                Child& child) const {
  if (text != nullptr) {
    detail::NodeAccess::putChild(*text, child);
    return 0;
  }
  child.settle();
  bj::value v = release<T>(child.node_);
  exclusive<bj::object>(node_).insert_or_assign(key, std::move(v));
  return 0;
}

SdkError JsonObject::addJsonObject(std::string_view key, JsonObject&& child) {
  return storeChild<bj::object>(uncheckedTextFor(key), key, child);
}

SdkError JsonObject::addJsonArray(std::string_view key, JsonArray&& child) {
  return storeChild<bj::array>(uncheckedTextFor(key), key, child);
}

detail::NodeRef JsonObject::find(const char* key) const {
  if (key == nullptr) return {};
  if (parsed_) {
    return parsedRef(parsed_, parsed_->find(at_, key));
  }
  settle();
  if (!node_) return {};
  return {as<const bj::object>(node_)->if_contains(key)};
}

detail::NodeRef JsonObject::find(const char* key, std::size_t& cursor) const {
  if (key == nullptr) return {};
  if (parsed_) {
    return parsedRef(parsed_, parsed_->find(at_, key, cursor));
  }
  settle();
  if (!node_) return {};
  const bj::object& o = *as<const bj::object>(node_);
  if (cursor < o.size()) {
    const bj::key_value_pair& expected = o.begin()[cursor];
    if (sameKey(expected.key(), key)) {
      ++cursor;
      return {&expected.value()};
    }
  }
  const auto found = o.find(key);
  if (found == o.end()) return {};
  cursor = static_cast<std::size_t>(found - o.begin()) + 1;
  return {&found->value()};
}

SdkError JsonObject::get(const char* key, std::string& out, std::size_t& cursor) const {
  const detail::NodeRef v = find(key, cursor);
  return v ? detail::toString(v, out) : errc::keyMissing;
}

SdkError JsonObject::getJsonObject(const char* key, JsonObject& out, std::size_t& cursor) const {
  return detail::NodeAccess::view(find(key, cursor), errc::keyMissing, *this, out);
}

SdkError JsonObject::getJsonArray(const char* key, JsonArray& out, std::size_t& cursor) const {
  return detail::NodeAccess::view(find(key, cursor), errc::keyMissing, *this, out);
}

SdkError JsonObject::get(const char* key, std::string& out) const {
  const detail::NodeRef v = find(key);
  return v ? detail::toString(v, out) : errc::keyMissing;
}

SdkError JsonObject::setScalar(const char* key, const detail::ScalarValue& value) {
  if (key == nullptr) return errc::keyMissing;
  if (detail::PendingText* text = textFor(key)) {
    text->putScalar(value);
    return 0;
  }
  exclusive<bj::object>(node_).insert_or_assign(key, makeValue(value));
  return 0;
}

SdkError JsonObject::set(const char* key, std::string_view in) {
  if (key == nullptr) return errc::keyMissing;
  if (detail::PendingText* text = textFor(key)) {
    text->putString(in);
    return 0;
  }
  exclusive<bj::object>(node_).insert_or_assign(key, bj::string(in));
  return 0;
}

SdkError JsonObject::getJsonObject(const char* key, JsonObject& out) const {
  return detail::NodeAccess::view(find(key), errc::keyMissing, *this, out);
}

SdkError JsonObject::getJsonArray(const char* key, JsonArray& out) const {
  return detail::NodeAccess::view(find(key), errc::keyMissing, *this, out);
}

SdkError JsonObject::setJsonObject(const char* key, JsonObject&& child) {
  return setJsonObjectOfConst(key, std::move(child));
}

SdkError JsonObject::setJsonObjectOfConst(const char* key, JsonObject&& child) const {
  if (key == nullptr) return errc::keyMissing;
  return storeChild<bj::object>(textFor(key), key, child);
}

SdkError JsonObject::setJsonArray(const char* key, JsonArray&& child) {
  if (key == nullptr) return errc::keyMissing;
  return storeChild<bj::array>(textFor(key), key, child);
}

SdkError JsonObject::takeJsonObject(const char* key, JsonObject& out) {
  // A key that was never added is missing without building the tree.
  if (text_ && key != nullptr && !text_->mayHave(key)) return errc::keyMissing;
  settle();
  return takeMember<bj::object>(node_, key, out.node_);
}

SdkError JsonObject::takeJsonArray(const char* key, JsonArray& out) {
  if (text_ && key != nullptr && !text_->mayHave(key)) return errc::keyMissing;
  settle();
  return takeMember<bj::array>(node_, key, out.node_);
}

std::string JsonObject::memberText(const char* key) const {
  const detail::NodeRef v = find(key);
  return v ? valueText(treeOf(v)) : std::string();
}

std::vector<std::string> JsonObject::keys() const {
  std::vector<std::string> out;
  if (parsed_) {
    out.reserve(parsed_->count(at_));
    const std::uint32_t end = parsed_->membersEnd(at_);
    for (std::uint32_t k = at_ + 1; k < end; k = parsed_->next(k + 1))
      out.emplace_back(parsed_->raw(k));
    return out;
  }
  settle();
  if (!node_) return out;
  const bj::object& o = *as<const bj::object>(node_);
  out.reserve(o.size());
  for (const auto& kv : o)
    out.emplace_back(kv.key());
  return out;
}

std::size_t JsonObject::size() const {
  if (parsed_) return parsed_->count(at_);
  if (text_) return text_->count();
  return node_ ? as<const bj::object>(node_)->size() : 0;
}

bool JsonObject::erase(const char* key) {
  if (!contains(key)) return false;
  settle();
  return exclusive<bj::object>(node_).stable_erase(key) != 0;
}

SdkError JsonObject::setMemberText(const char* key, std::string_view text) {
  if (key == nullptr) return errc::keyMissing;
  settle();
  std::error_code ec;
  bj::value v = parseJson(text, ec);
  if (ec == std::errc::result_out_of_range) return errc::outOfRange;
  if (ec) return errc::parseError;
  exclusive<bj::object>(node_).insert_or_assign(key, std::move(v));
  return 0;
}

std::string JsonObject::stringfy(int indent) const {
  if (text_ && indent <= 0) return text_->joined('{', '}');
  if (parsed_) return writeJson(treeOf({nullptr, parsed_.get(), at_}).get_object(), indent);
  settle();
  if (!node_) return "{}";
  return writeJson(*as<const bj::object>(node_), indent);
}

JsonTextPieces JsonObject::textPieces() const {
  JsonTextPieces out;
  if (text_) {
    static constexpr char kBraces[] = "{}";
    out.pieces.emplace_back(kBraces, 1);
    text_->forEachPiece([&out](const char* data, std::size_t size) {
      if (size > 0) out.pieces.emplace_back(data, size);
    });
    out.pieces.emplace_back(kBraces + 1, 1);
  } else {
    out.owned = stringfy();
    out.pieces.emplace_back(out.owned);
  }
  for (std::string_view piece : out.pieces)
    out.size += piece.size();
  return out;
}

std::string JsonTextPieces::joined() const {
  if (pieces.size() == 1 && pieces.front().data() == owned.data()) return owned;
  std::string out;
  out.reserve(size);
  for (std::string_view piece : pieces)
    out.append(piece);
  return out;
}

SdkError JsonObject::parser(const char* text, std::size_t length) {
  if (text == nullptr && length != 0) return errc::parseError;
  return parseWhole<bj::object>(std::string(text ? text : "", length), node_, text_, parsed_, at_);
}

SdkError JsonObject::parser(JsonTextSource& source) {
  // The whole text is kept: the parsed object is read in place.
  std::string text;
  text.reserve(source.sizeHint());
  const char* data = nullptr;
  std::size_t size = 0;
  SdkError drawn = 0;
  while ((drawn = source.next(data, size)) == 0 && size != 0)
    text.append(data, size);
  if (drawn != 0) return drawn;
  return parseWhole<bj::object>(std::move(text), node_, text_, parsed_, at_);
}

// ---- JsonArray ----

JsonArray::JsonArray(JsonLoad) {}
JsonArray::JsonArray(JsonSave) {}
JsonArray::JsonArray(JsonArray&& other) noexcept = default;
JsonArray& JsonArray::operator=(JsonArray&& other) noexcept = default;
JsonArray::~JsonArray() = default;

JsonArray JsonArray::clone() const {
  JsonArray copy(JsonSave::instance);
  if (node_) {
    copy.node_ = std::make_shared<bj::array>(*as<const bj::array>(node_), bj::storage_ptr());
  }
  if (text_) copy.text_ = std::make_unique<detail::PendingText>(*text_);
  copy.parsed_ = parsed_;
  copy.at_ = at_;
  return copy;
}

void JsonArray::swap(JsonArray& other) noexcept {
  node_.swap(other.node_);
  text_.swap(other.text_);
  parsed_.swap(other.parsed_);
  std::swap(at_, other.at_);
}

void JsonArray::settle() const {
  settleText<bj::array>(node_, text_, parsed_, at_, '[', ']');
}

detail::PendingText* JsonArray::textAt(std::size_t index) {
  if (parsed_) settle();
  if (node_ || index != size()) return nullptr;
  if (!text_) text_ = std::make_unique<detail::PendingText>();
  text_->beginElement();
  return text_.get();
}

std::size_t JsonArray::size() const {
  if (parsed_) return parsed_->count(at_);
  if (text_) return text_->count();
  return node_ ? as<const bj::array>(node_)->size() : 0;
}

void JsonArray::reserve(std::size_t count) {
  // Pending text needs no room ahead.
  if (parsed_) settle();
  if (node_) exclusive<bj::array>(node_).reserve(count);
}

detail::NodeRef JsonArray::at(std::size_t index) const {
  if (parsed_) {
    return parsedRef(parsed_, parsed_->element(at_, index));
  }
  settle();
  if (!node_) return {};
  const bj::array& a = *as<const bj::array>(node_);
  if (index >= a.size()) return {};
  return {&a[index]};
}

SdkError JsonArray::get(std::size_t index, std::string& out) const {
  const detail::NodeRef v = at(index);
  return v ? detail::toString(v, out) : errc::indexOutOfRange;
}

SdkError JsonArray::addScalar(const detail::ScalarValue& value) {
  if (detail::PendingText* text = textAt(size())) {
    text->putScalar(value);
    return 0;
  }
  exclusive<bj::array>(node_).push_back(makeValue(value));
  return 0;
}

SdkError JsonArray::add(std::string_view in) {
  if (detail::PendingText* text = textAt(size())) {
    text->putString(in);
    return 0;
  }
  exclusive<bj::array>(node_).push_back(bj::string(in));
  return 0;
}

SdkError JsonArray::getJsonObject(std::size_t index, JsonObject& out) const {
  return detail::NodeAccess::view(at(index), errc::indexOutOfRange, *this, out);
}

SdkError JsonArray::getJsonArray(std::size_t index, JsonArray& out) const {
  return detail::NodeAccess::view(at(index), errc::indexOutOfRange, *this, out);
}

SdkError JsonArray::addJsonObject(JsonObject&& child) {
  if (detail::PendingText* text = textAt(size())) {
    detail::NodeAccess::putChild(*text, child);
    return 0;
  }
  child.settle();
  bj::value v = release<bj::object>(child.node_);
  exclusive<bj::array>(node_).push_back(std::move(v));
  return 0;
}

SdkError JsonArray::addJsonArray(JsonArray&& child) {
  if (detail::PendingText* text = textAt(size())) {
    detail::NodeAccess::putChild(*text, child);
    return 0;
  }
  child.settle();
  bj::value v = release<bj::array>(child.node_);
  exclusive<bj::array>(node_).push_back(std::move(v));
  return 0;
}

SdkError JsonArray::setScalar(std::size_t index, const detail::ScalarValue& value) {
  if (detail::PendingText* text = textAt(index)) {
    text->putScalar(value);
    return 0;
  }
  settle();
  return storeAt(node_, index, makeValue(value));
}

SdkError JsonArray::set(std::size_t index, std::string_view in) {
  if (detail::PendingText* text = textAt(index)) {
    text->putString(in);
    return 0;
  }
  settle();
  return storeAt(node_, index, bj::string(in));
}

SdkError JsonArray::setJsonObject(std::size_t index, JsonObject&& child) {
  if (index > size()) return errc::indexOutOfRange;
  if (detail::PendingText* text = textAt(index)) {
    detail::NodeAccess::putChild(*text, child);
    return 0;
  }
  settle();
  child.settle();
  return storeAt(node_, index, release<bj::object>(child.node_));
}

SdkError JsonArray::setJsonArray(std::size_t index, JsonArray&& child) {
  if (index > size()) return errc::indexOutOfRange;
  if (detail::PendingText* text = textAt(index)) {
    detail::NodeAccess::putChild(*text, child);
    return 0;
  }
  settle();
  child.settle();
  return storeAt(node_, index, release<bj::array>(child.node_));
}

SdkError JsonArray::takeJsonObject(std::size_t index, JsonObject& out) {
  if (index >= size()) return errc::indexOutOfRange;
  settle();
  return takeElement<bj::object>(node_, index, out.node_);
}

SdkError JsonArray::takeJsonArray(std::size_t index, JsonArray& out) {
  if (index >= size()) return errc::indexOutOfRange;
  settle();
  return takeElement<bj::array>(node_, index, out.node_);
}

void JsonArray::truncate(std::size_t count) {
  if (count >= size()) return;
  settle();
  bj::array& a = exclusive<bj::array>(node_);
  a.erase(a.begin() + static_cast<std::ptrdiff_t>(count), a.end());
}

std::string JsonArray::elementText(std::size_t index) const {
  const detail::NodeRef v = at(index);
  return v ? valueText(treeOf(v)) : std::string();
}

SdkError JsonArray::setElementText(std::size_t index, std::string_view text) {
  settle();
  std::error_code ec;
  bj::value v = parseJson(text, ec);
  if (ec == std::errc::result_out_of_range) return errc::outOfRange;
  if (ec) return errc::parseError;
  return storeAt(node_, index, std::move(v));
}

std::string JsonArray::stringfy(int indent) const {
  if (text_ && indent <= 0) return text_->joined('[', ']');
  if (parsed_) return writeJson(treeOf({nullptr, parsed_.get(), at_}).get_array(), indent);
  settle();
  if (!node_) return "[]";
  return writeJson(*as<const bj::array>(node_), indent);
}

SdkError JsonArray::parser(const char* text, std::size_t length) {
  if (text == nullptr && length != 0) return errc::parseError;
  return parseWhole<bj::array>(std::string(text ? text : "", length), node_, text_, parsed_, at_);
}

}  // namespace utils
