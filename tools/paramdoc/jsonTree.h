#pragma once

// The JSON trees that diff, get and set walk. The library's nodes answer
// typed questions; these commands need any value at any path, so they read the
// text into a Boost.JSON tree and print values back in the library's own form.

#include <string>
#include <string_view>

#include <boost/json/value.hpp>

#include "io.h"

namespace paramdoc {

// Parses JSON text as the library does (any bytes inside strings, at most 256
// levels). False with `error` describing the fault.
bool parseJson(std::string_view text, boost::json::value& out, std::string& error);

// Decodes the document in `input` and parses its JSON text into `root`,
// without building the library's tree. Reports and returns false on failure.
bool readJsonTree(const Input& input, boost::json::value& root);

// The JSON text of `value` with numbers written as the library writes them
// ("0.02", "2000"); `indent` > 0 puts members and elements on their own lines.
std::string formatJson(const boost::json::value& value, int indent = 0);

// What kind of value `value` is, for messages: "an object", "a number", ...
const char* kindName(const boost::json::value& value);

}  // namespace paramdoc
