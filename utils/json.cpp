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

// Points `out` at `v` (which must be of kind T) inside the tree `owner` keeps alive.
template <class T>
void view(const std::shared_ptr<void>& owner, const T& v, std::shared_ptr<void>& out) {
  out = std::shared_ptr<void>(owner, const_cast<T*>(&v));
}

// Builds the tree of a node whose content is still text: `open` and `close`
// are its brackets, T its container.
template <class T>
void settleText(std::shared_ptr<void>& node, std::unique_ptr<detail::PendingText>& text, char open,
                char close) {
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

// Writes a child container (tree, text or empty) as the value just begun in
// `text`, leaving the child empty.
template <class T>
void putChild(detail::PendingText& text, std::shared_ptr<void>& node,
              std::unique_ptr<detail::PendingText>& childText, char open, char close) {
  if (childText) {
    text.putContainer(std::move(*childText), open, close);
    childText.reset();
  } else if (node) {
    text.putRaw(writeJson(*as<const T>(node)));
  } else {
    const char empty[2] = {open, close};
    text.putRaw(std::string_view(empty, 2));
  }
  node.reset();
}

}  // namespace

namespace detail {

SdkError toBool(const void* node, bool& out) {
  const bj::value& v = asValue(node);
  if (!v.is_bool()) return errc::wrongType;
  out = v.get_bool();
  return 0;
}

SdkError toSigned(const void* node, std::int64_t& out, std::int64_t lo, std::int64_t hi) {
  const bj::value& v = asValue(node);
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

SdkError toUnsigned(const void* node, std::uint64_t& out, std::uint64_t hi) {
  const bj::value& v = asValue(node);
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

SdkError toDouble(const void* node, double& out) {
  const bj::value& v = asValue(node);
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

SdkError toFloat(const void* node, float& out) {
  double d = 0;
  SdkError e = toDouble(node, d);
  if (e != 0) return e;
  if (std::isfinite(d) && std::fabs(d) > std::numeric_limits<float>::max()) {
    return errc::outOfRange;
  }
  out = static_cast<float>(d);
  return 0;
}

SdkError toString(const void* node, std::string& out) {
  const bj::value& v = asValue(node);
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
  return copy;
}

void JsonObject::swap(JsonObject& other) noexcept {
  node_.swap(other.node_);
  text_.swap(other.text_);
}

void JsonObject::settle() const {
  settleText<bj::object>(node_, text_, '{', '}');
}

detail::PendingText* JsonObject::textFor(const char* key) const {
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
  constexpr bool object = std::is_same_v<T, bj::object>;
  if (text != nullptr) {
    putChild<T>(*text, child.node_, child.text_, object ? '{' : '[', object ? '}' : ']');
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

const void* JsonObject::find(const char* key) const {
  settle();
  if (!node_ || key == nullptr) return nullptr;
  return as<const bj::object>(node_)->if_contains(key);
}

const void* JsonObject::find(const char* key, std::size_t& cursor) const {
  settle();
  if (!node_ || key == nullptr) return nullptr;
  const bj::object& o = *as<const bj::object>(node_);
  if (cursor < o.size()) {
    const bj::key_value_pair& expected = o.begin()[cursor];
    if (sameKey(expected.key(), key)) {
      ++cursor;
      return &expected.value();
    }
  }
  const auto found = o.find(key);
  if (found == o.end()) return nullptr;
  cursor = static_cast<std::size_t>(found - o.begin()) + 1;
  return &found->value();
}

SdkError JsonObject::get(const char* key, std::string& out, std::size_t& cursor) const {
  const void* v = find(key, cursor);
  return v ? detail::toString(v, out) : errc::keyMissing;
}

SdkError JsonObject::getJsonObject(const char* key, JsonObject& out, std::size_t& cursor) const {
  const void* v = find(key, cursor);
  if (v == nullptr) return errc::keyMissing;
  const bj::object* o = asValue(v).if_object();
  if (o == nullptr) return errc::wrongType;
  view(node_, *o, out.node_);
  return 0;
}

SdkError JsonObject::getJsonArray(const char* key, JsonArray& out, std::size_t& cursor) const {
  const void* v = find(key, cursor);
  if (v == nullptr) return errc::keyMissing;
  const bj::array* a = asValue(v).if_array();
  if (a == nullptr) return errc::wrongType;
  view(node_, *a, out.node_);
  return 0;
}

SdkError JsonObject::get(const char* key, std::string& out) const {
  const void* v = find(key);
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
  const void* v = find(key);
  if (v == nullptr) return errc::keyMissing;
  const bj::object* o = asValue(v).if_object();
  if (o == nullptr) return errc::wrongType;
  view(node_, *o, out.node_);
  return 0;
}

SdkError JsonObject::getJsonArray(const char* key, JsonArray& out) const {
  const void* v = find(key);
  if (v == nullptr) return errc::keyMissing;
  const bj::array* a = asValue(v).if_array();
  if (a == nullptr) return errc::wrongType;
  view(node_, *a, out.node_);
  return 0;
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
  const void* v = find(key);
  return v ? valueText(asValue(v)) : std::string();
}

std::vector<std::string> JsonObject::keys() const {
  settle();
  std::vector<std::string> out;
  if (!node_) return out;
  const bj::object& o = *as<const bj::object>(node_);
  out.reserve(o.size());
  for (const auto& kv : o)
    out.emplace_back(kv.key());
  return out;
}

std::size_t JsonObject::size() const {
  if (text_) return text_->count();
  return node_ ? as<const bj::object>(node_)->size() : 0;
}

bool JsonObject::erase(const char* key) {
  if (!contains(key)) return false;
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
  const SdkError e = parseInto(text, length, node_, bj::kind::object);
  if (e == 0) text_.reset();
  return e;
}

SdkError JsonObject::parser(JsonTextSource& source) {
  SdkError drawn = 0;  // the source's code, which comes before a parse error
  const SdkError parsed =
      parseTree(source.sizeHint(), node_, bj::kind::object,
                [&source, &drawn](bj::storage_ptr storage, std::error_code& ec) -> bj::value {
                  JsonTextParser parser(std::move(storage));
                  bool good = true;
                  const char* data = nullptr;
                  std::size_t size = 0;
                  while ((drawn = source.next(data, size)) == 0 && size != 0) {
                    if (good) good = parser.write(data, size, ec);
                  }
                  if (drawn != 0 || !good) return nullptr;
                  return parser.finish(ec);
                });
  const SdkError e = drawn != 0 ? drawn : parsed;
  if (e == 0) text_.reset();
  return e;
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
  return copy;
}

void JsonArray::swap(JsonArray& other) noexcept {
  node_.swap(other.node_);
  text_.swap(other.text_);
}

void JsonArray::settle() const {
  settleText<bj::array>(node_, text_, '[', ']');
}

detail::PendingText* JsonArray::textAt(std::size_t index) {
  if (node_ || index != size()) return nullptr;
  if (!text_) text_ = std::make_unique<detail::PendingText>();
  text_->beginElement();
  return text_.get();
}

std::size_t JsonArray::size() const {
  if (text_) return text_->count();
  return node_ ? as<const bj::array>(node_)->size() : 0;
}

void JsonArray::reserve(std::size_t count) {
  // Pending text needs no room ahead.
  if (node_) exclusive<bj::array>(node_).reserve(count);
}

const void* JsonArray::at(std::size_t index) const {
  settle();
  if (!node_) return nullptr;
  const bj::array& a = *as<const bj::array>(node_);
  return index < a.size() ? &a[index] : nullptr;
}

SdkError JsonArray::get(std::size_t index, std::string& out) const {
  const void* v = at(index);
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
  const void* v = at(index);
  if (v == nullptr) return errc::indexOutOfRange;
  const bj::object* o = asValue(v).if_object();
  if (o == nullptr) return errc::wrongType;
  view(node_, *o, out.node_);
  return 0;
}

SdkError JsonArray::getJsonArray(std::size_t index, JsonArray& out) const {
  const void* v = at(index);
  if (v == nullptr) return errc::indexOutOfRange;
  const bj::array* a = asValue(v).if_array();
  if (a == nullptr) return errc::wrongType;
  view(node_, *a, out.node_);
  return 0;
}

SdkError JsonArray::addJsonObject(JsonObject&& child) {
  if (detail::PendingText* text = textAt(size())) {
    putChild<bj::object>(*text, child.node_, child.text_, '{', '}');
    return 0;
  }
  child.settle();
  bj::value v = release<bj::object>(child.node_);
  exclusive<bj::array>(node_).push_back(std::move(v));
  return 0;
}

SdkError JsonArray::addJsonArray(JsonArray&& child) {
  if (detail::PendingText* text = textAt(size())) {
    putChild<bj::array>(*text, child.node_, child.text_, '[', ']');
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
    putChild<bj::object>(*text, child.node_, child.text_, '{', '}');
    return 0;
  }
  settle();
  child.settle();
  return storeAt(node_, index, release<bj::object>(child.node_));
}

SdkError JsonArray::setJsonArray(std::size_t index, JsonArray&& child) {
  if (index > size()) return errc::indexOutOfRange;
  if (detail::PendingText* text = textAt(index)) {
    putChild<bj::array>(*text, child.node_, child.text_, '[', ']');
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
  const void* v = at(index);
  return v ? valueText(asValue(v)) : std::string();
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
  settle();
  if (!node_) return "[]";
  return writeJson(*as<const bj::array>(node_), indent);
}

SdkError JsonArray::parser(const char* text, std::size_t length) {
  const SdkError e = parseInto(text, length, node_, bj::kind::array);
  if (e == 0) text_.reset();
  return e;
}

}  // namespace utils
