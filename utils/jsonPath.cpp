#include <utils/jsonPath.h>

#include <charconv>

namespace utils {

namespace {

SdkError bad(std::string* error, const std::string& why) {
  if (error != nullptr) *error = why;
  return errc::parseError;
}

// Reading walks views of the tree: each step fetches the child of the object or
// array at hand, or the text of a leaf.
struct Cursor {
  const JsonObject* object = nullptr;  // one of the two is set
  const JsonArray* array = nullptr;
};

struct Views {
  JsonObject object{JsonLoad::instance};
  JsonArray array{JsonLoad::instance};
};

SdkError step(Cursor at, const JsonPathStep& s, Views& into, Cursor& next, bool& leaf,
              std::string& text) {
  leaf = false;
  next = Cursor{};
  if (s.isIndex != (at.array != nullptr)) return errc::wrongType;
  if (at.array != nullptr) {
    if (s.index >= at.array->size()) return errc::indexOutOfRange;
    if (at.array->getJsonObject(s.index, into.object) == 0) {
      next.object = &into.object;
    } else if (at.array->getJsonArray(s.index, into.array) == 0) {
      next.array = &into.array;
    } else {
      leaf = true;
      text = at.array->elementText(s.index);
    }
    return 0;
  }
  const char* key = s.key.c_str();
  if (!at.object->contains(key)) return errc::keyMissing;
  if (at.object->getJsonObject(key, into.object) == 0) {
    next.object = &into.object;
  } else if (at.object->getJsonArray(key, into.array) == 0) {
    next.array = &into.array;
  } else {
    leaf = true;
    text = at.object->memberText(key);
  }
  return 0;
}

// Writing takes each container out of its parent, changes it and puts it back,
// so that the change lands in the tree itself and not in a copy.
SdkError setIn(JsonObject& obj, const JsonPath& path, std::size_t at, std::string_view text);
SdkError setIn(JsonArray& arr, const JsonPath& path, std::size_t at, std::string_view text);

template <class Parent, class Where>
SdkError descend(Parent& parent, Where where, const JsonPath& path, std::size_t at,
                 std::string_view text) {
  if (path[at].isIndex) {
    JsonArray child(JsonLoad::instance);
    if (SdkError e = parent.takeJsonArray(where, child)) return e;
    const SdkError e = setIn(child, path, at, text);
    parent.setJsonArray(where, std::move(child));
    return e;
  }
  JsonObject child(JsonLoad::instance);
  if (SdkError e = parent.takeJsonObject(where, child)) return e;
  const SdkError e = setIn(child, path, at, text);
  parent.setJsonObject(where, std::move(child));
  return e;
}

SdkError setIn(JsonObject& obj, const JsonPath& path, std::size_t at, std::string_view text) {
  const JsonPathStep& s = path[at];
  if (s.isIndex) return errc::wrongType;
  if (at + 1 == path.size()) return obj.setMemberText(s.key.c_str(), text);
  if (!obj.contains(s.key.c_str())) return errc::keyMissing;
  return descend(obj, s.key.c_str(), path, at + 1, text);
}

SdkError setIn(JsonArray& arr, const JsonPath& path, std::size_t at, std::string_view text) {
  const JsonPathStep& s = path[at];
  if (!s.isIndex) return errc::wrongType;
  if (at + 1 == path.size()) return arr.setElementText(s.index, text);
  if (s.index >= arr.size()) return errc::indexOutOfRange;
  return descend(arr, s.index, path, at + 1, text);
}

}  // namespace

SdkError parseJsonPath(std::string_view text, JsonPath& out, std::string* error) {
  out.clear();
  std::size_t i = 0;
  bool expectKey = true;  // at the start or after a dot
  while (i < text.size()) {
    if (text[i] == '[') {
      const std::size_t close = text.find(']', i);
      if (close == std::string_view::npos) {
        return bad(error, "an index is a number in brackets, as in params[3] (at character " +
                              std::to_string(i + 1) + ")");
      }
      JsonPathStep s;
      s.isIndex = true;
      const char* first = text.data() + i + 1;
      const char* last = text.data() + close;
      const auto [end, ec] = std::from_chars(first, last, s.index);
      if (first == last || ec != std::errc() || end != last) {
        return bad(error, "an index is a number in brackets, as in params[3] (at character " +
                              std::to_string(i + 1) + ")");
      }
      out.push_back(std::move(s));
      i = close + 1;
      expectKey = false;
      if (i < text.size() && text[i] != '.' && text[i] != '[') {
        return bad(error, "expected '.' or '[' at character " + std::to_string(i + 1));
      }
      continue;
    }
    if (text[i] == '.') {
      if (expectKey) return bad(error, "an empty name at character " + std::to_string(i + 1));
      expectKey = true;
      ++i;
      continue;
    }
    if (text[i] == ']') {
      return bad(error,
                 "unexpected ']' at character " + std::to_string(i + 1) + " (write \\] in a name)");
    }
    if (!expectKey) return bad(error, "expected '.' or '[' at character " + std::to_string(i + 1));
    JsonPathStep s;
    while (i < text.size() && text[i] != '.' && text[i] != '[' && text[i] != ']') {
      if (text[i] == '\\') {
        if (++i == text.size()) {
          return bad(error, "a backslash at the end (write \\\\ for a backslash in a name)");
        }
      }
      s.key += text[i++];
    }
    out.push_back(std::move(s));
    expectKey = false;
  }
  if (expectKey && !out.empty()) {
    return bad(error, "an empty name at character " + std::to_string(text.size() + 1));
  }
  return errc::ok;
}

std::string formatJsonPath(const JsonPath& path) {
  std::string text;
  for (const JsonPathStep& s : path) {
    if (s.isIndex) {
      text += '[' + std::to_string(s.index) + ']';
      continue;
    }
    if (!text.empty()) text += '.';
    for (char c : s.key) {
      if (c == '.' || c == '[' || c == ']' || c == '\\') text += '\\';
      text += c;
    }
  }
  return text;
}

SdkError getJsonText(const JsonObject& root, const JsonPath& path, std::string& text) {
  Cursor at{&root, nullptr};
  Views views[2];  // the child of one step stays alive while the next is fetched
  for (std::size_t i = 0; i < path.size(); ++i) {
    Cursor next;
    bool leaf = false;
    std::string found;
    if (SdkError e = step(at, path[i], views[i % 2], next, leaf, found)) return e;
    if (leaf) {
      if (i + 1 != path.size()) return errc::wrongType;
      text = std::move(found);
      return errc::ok;
    }
    at = next;
  }
  text = at.array ? at.array->stringfy() : at.object->stringfy();
  return errc::ok;
}

SdkError setJsonText(JsonObject& root, const JsonPath& path, std::string_view text) {
  if (path.empty()) return root.parser(text.data(), text.size());
  return setIn(root, path, 0, text);
}

}  // namespace utils
