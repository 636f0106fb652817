#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

#include <utils/error.h>
#include <utils/export.h>

namespace utils {

class path;

enum class LogLevel : int {
  Verbose = 0,  // life-cycle lines ("loaded.", "unloaded.")
  Info = 1,
  Warning = 2,
  Error = 3,
};

// One log line. Text is gathered with << or write() and handed to the sink when
// the logger is destroyed, so every Logger object makes exactly one line:
//
//   utils::Logger(utils::LogLevel::Error, "Param") << "load failed, " << path;
//
// The default sink prints warnings and errors to stderr; Verbose and Info lines
// appear only when the environment variable PARAM_LOG_LEVEL is at or below their
// level (PARAM_LOG_LEVEL=0 shows everything, 4 shows nothing).
class UTILS_API Logger {
 public:
  using Sink = std::function<void(LogLevel level, std::string_view tag, std::string_view line)>;

  Logger(LogLevel level, const char* tag);
  ~Logger();
  Logger(const Logger&) = delete;
  Logger& operator=(const Logger&) = delete;

  Logger& write(std::string_view text);
  Logger& write(const char* text) { return write(std::string_view(text ? text : "(null)")); }
  Logger& write(const std::string& text) { return write(std::string_view(text)); }
  Logger& write(const path& p);
  // An error code, written in hexadecimal ("0x230004").
  Logger& write(SdkError code);
  Logger& write(std::int64_t value);
  Logger& write(std::uint64_t value);
  Logger& write(double value);
  // Raw bytes, written as hexadecimal pairs.
  Logger& write(const void* bytes, std::size_t count);

  // << writes text and paths as they are and every number in decimal.
  template <class T>
  Logger& operator<<(const T& value) {
    if constexpr (std::is_same_v<T, bool>) {
      return write(std::string_view(value ? "true" : "false"));
    } else if constexpr (std::is_same_v<T, char>) {
      return write(std::string_view(&value, 1));
    } else if constexpr (std::is_floating_point_v<T>) {
      return write(static_cast<double>(value));
    } else if constexpr (std::is_integral_v<T> && std::is_signed_v<T>) {
      return write(static_cast<std::int64_t>(value));
    } else if constexpr (std::is_integral_v<T>) {
      return write(static_cast<std::uint64_t>(value));
    } else if constexpr (std::is_enum_v<T>) {
      return *this << static_cast<std::underlying_type_t<T>>(value);
    } else {
      return write(value);
    }
  }

  // Whether a line of this level reaches the default sink (a replaced sink sees every line).
  static bool enabled(LogLevel level);

  // Replaces the destination of every line and returns the previous one; an
  // empty sink restores the default.
  static Sink setSink(Sink sink);

 private:
  LogLevel level_;
  const char* tag_;
  bool active_;
  std::string line_;
};

}  // namespace utils
