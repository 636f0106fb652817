#pragma once

// Paths to values inside a JSON tree, as people write them:
//
//   pens.params[3].laserPower     member "pens", member "params", element 3, ...
//   colors.color.3                member "3" of "color": names may be digits
//   a\.b.c\[1\]                   member "a.b", then member "c[1]"
//
// Members are joined by dots and array elements are written as their index in
// brackets. A backslash takes the next character as part of the name: "\.",
// "\[", "\]" and "\\" put a dot, a bracket or a backslash into a name. The
// empty path is the root itself.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <utils/error.h>
#include <utils/export.h>
#include <utils/json.h>

namespace utils {

struct JsonPathStep {
  std::string key;  // a member name, when not an index
  std::size_t index = 0;
  bool isIndex = false;
};
using JsonPath = std::vector<JsonPathStep>;

// Reads a path. errc::parseError for text that is no path, with `error`
// saying why ("unclosed bracket at 7") when given.
UTILS_API SdkError parseJsonPath(std::string_view text, JsonPath& out,
                                 std::string* error = nullptr);

// The text of `path`, escaped so that parseJsonPath reads it back.
UTILS_API std::string formatJsonPath(const JsonPath& path);

// The JSON text of the value at `path` under `root` (the whole object for the
// empty path). errc::keyMissing for a member that is not there,
// errc::indexOutOfRange for an element past the end, errc::wrongType for a step
// into something that is not an object or an array.
UTILS_API SdkError getJsonText(const JsonObject& root, const JsonPath& path, std::string& text);

// Stores the JSON value `text` at `path`: the member or element is replaced in
// its place, or added when its parent exists and lacks it (an element at index
// size() is appended). The empty path replaces the whole root, which must then
// be an object. Codes as getJsonText, and errc::parseError or
// errc::outOfRange for `text` that is not one JSON value.
UTILS_API SdkError setJsonText(JsonObject& root, const JsonPath& path, std::string_view text);

}  // namespace utils
