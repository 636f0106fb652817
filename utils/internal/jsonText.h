#pragma once

#include <boost/json/fwd.hpp>
#include <boost/json/storage_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace utils {

// Parses one JSON value. Strings may hold any bytes (text written by older hosts
// in a local code page loads as it was saved); nesting is limited to 256 levels.
// A number beyond the range of a double (1e400) is refused with
// std::errc::result_out_of_range; other bad text gives std::errc::invalid_argument.
// The tree's containers and strings are allocated from `storage`.
boost::json::value parseJson(std::string_view text, std::error_code& ec,
                             boost::json::storage_ptr storage = {});

// The same for text this library wrote itself, with no limit on nesting.
boost::json::value parseOwnJson(std::string_view text, std::error_code& ec);

// Compact JSON text, numbers in their shortest exact decimal form; NaN and
// infinities as the strings "NaN", "Infinity" and "-Infinity". `indent` > 0
// puts each member and element on its own line, indented by that many spaces a level.
std::string writeJson(const boost::json::object& object, int indent = 0);
std::string writeJson(const boost::json::array& array, int indent = 0);

// The pieces the writer is made of, for code that writes JSON text without a
// tree. Each writes at `p`, which has room for the most it can take, and
// returns the end of what it wrote.
constexpr std::size_t kMaxNumberText = 32;
constexpr std::size_t maxStringText(std::size_t bytes) {
  return bytes * 6 + 2;  // every byte as "\u00XX", and the quotes
}
char* putJsonString(char* p, std::string_view s);
char* putJsonNumber(char* p, std::int64_t n);
char* putJsonNumber(char* p, std::uint64_t n);
// A double, a NaN or infinity as its string (room: maxStringText(9)).
char* putJsonNumber(char* p, double d);
// A float in its own shortest form, as the tree stores it.
char* putJsonNumber(char* p, float f);

}  // namespace utils
