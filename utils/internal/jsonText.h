#pragma once

#include <boost/json/fwd.hpp>

#include <string>
#include <string_view>
#include <system_error>

namespace utils {

// Parses one JSON value. Strings may hold any bytes (text written by older hosts
// in a local code page loads as it was saved); nesting is limited to 256 levels.
// A number beyond the range of a double (1e400) is refused with
// std::errc::result_out_of_range; other bad text gives std::errc::invalid_argument.
boost::json::value parseJson(std::string_view text, std::error_code& ec);

// Compact JSON text, numbers in their shortest exact decimal form; NaN and
// infinities as the strings "NaN", "Infinity" and "-Infinity". `indent` > 0
// puts each member and element on its own line, indented by that many spaces a level.
std::string writeJson(const boost::json::object& object, int indent = 0);
std::string writeJson(const boost::json::array& array, int indent = 0);

}  // namespace utils
