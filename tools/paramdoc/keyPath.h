#pragma once

// Key paths, shared by diff, get and set: member names joined by dots, array
// elements by their index in brackets.
//
//   pens.params[3].laserPower     member "pens", member "params", element 3, ...
//   colors.color.3                member "3" of "color": names may be digits
//   a\.b.c\[1\]                   member "a.b", then member "c[1]"
//
// A backslash takes the next character as part of the name: write `\.`, `\[`,
// `\]` and `\\` for a dot, a bracket or a backslash inside a name. The empty
// path is the whole document.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <boost/json/value.hpp>

#include <utils/jsonPath.h>

namespace paramdoc {

using KeyStep = utils::JsonPathStep;
using KeyPath = utils::JsonPath;

// False with `error` for text that is no key path.
bool parseKeyPath(std::string_view text, KeyPath& out, std::string& error);
// The text of `path`, escaped so that parseKeyPath reads it back.
std::string formatKeyPath(const KeyPath& path);

// The value at `path`, or null with `error` naming the step that is missing.
const boost::json::value* findValue(const boost::json::value& root, const KeyPath& path,
                                    std::string& error);
boost::json::value* findValue(boost::json::value& root, const KeyPath& path, std::string& error);

}  // namespace paramdoc
