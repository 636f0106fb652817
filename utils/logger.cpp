#include <utils/logger.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>

#include <utils/path.h>

namespace utils {

namespace {

// Lines below this level are dropped by the default sink.
int defaultThreshold() {
  static const int threshold = [] {
    const char* env = std::getenv("PARAM_LOG_LEVEL");
    if (env == nullptr || *env == '\0') return static_cast<int>(LogLevel::Warning);
    return std::atoi(env);
  }();
  return threshold;
}

const char* levelName(LogLevel level) {
  switch (level) {
    case LogLevel::Verbose:
      return "verbose";
    case LogLevel::Info:
      return "info";
    case LogLevel::Warning:
      return "warning";
    case LogLevel::Error:
      return "error";
  }
  return "log";
}

Logger::Sink& customSink() {
  static Logger::Sink sink;
  return sink;
}

}  // namespace

Logger::Logger(LogLevel level, const char* tag)
    : level_(level), tag_(tag ? tag : ""), active_(enabled(level)) {}

Logger::~Logger() {
  if (!active_) return;
  if (const Sink& sink = customSink()) {
    sink(level_, tag_, line_);
  } else {
    std::fprintf(stderr, "[%s] %s: %s\n", tag_, levelName(level_), line_.c_str());
  }
}

bool Logger::enabled(LogLevel level) {
  return customSink() || static_cast<int>(level) >= defaultThreshold();
}

Logger::Sink Logger::setSink(Sink sink) {
  Sink previous = std::move(customSink());
  customSink() = std::move(sink);
  return previous;
}

Logger& Logger::write(std::string_view text) {
  if (active_) line_.append(text);
  return *this;
}

Logger& Logger::write(const path& p) {
  return active_ ? write(p.string()) : *this;
}

Logger& Logger::write(SdkError code) {
  if (!active_) return *this;
  char buf[16];
  auto res = std::to_chars(buf, buf + sizeof buf, code, 16);
  line_ += "0x";
  line_.append(buf, res.ptr);
  return *this;
}

Logger& Logger::write(std::int64_t value) {
  if (!active_) return *this;
  char buf[24];
  auto res = std::to_chars(buf, buf + sizeof buf, value);
  line_.append(buf, res.ptr);
  return *this;
}

Logger& Logger::write(std::uint64_t value) {
  if (!active_) return *this;
  char buf[24];
  auto res = std::to_chars(buf, buf + sizeof buf, value);
  line_.append(buf, res.ptr);
  return *this;
}

Logger& Logger::write(double value) {
  if (!active_) return *this;
  char buf[32];
  auto res = std::to_chars(buf, buf + sizeof buf, value);
  line_.append(buf, res.ptr);
  return *this;
}

Logger& Logger::write(const void* bytes, std::size_t count) {
  if (!active_ || bytes == nullptr) return *this;
  static const char hex[] = "0123456789abcdef";
  const auto* b = static_cast<const unsigned char*>(bytes);
  for (std::size_t i = 0; i < count; ++i) {
    line_ += hex[b[i] >> 4];
    line_ += hex[b[i] & 15];
  }
  return *this;
}

}  // namespace utils
