#pragma once

// Helpers shared by the test programs.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <utils/error.h>
#include <utils/errorHandle.h>
#include <utils/logger.h>

namespace testing_support {

// Answers every raised error with `answer` and remembers the codes, for as long
// as it lives.
class RecordingHandler {
 public:
  explicit RecordingHandler(utils::ErrorResponseType answer)
      : guard_([this, answer](utils::SdkError code, unsigned allowed) {
          codes.push_back(code);
          allowedSets.push_back(allowed);
          return answer;
        }) {}

  std::vector<utils::SdkError> codes;
  std::vector<unsigned> allowedSets;

 private:
  utils::ScopedErrorHandler guard_;
};

struct LogLine {
  utils::LogLevel level;
  std::string tag;
  std::string text;
};

// Collects every log line for as long as it lives.
class LogCapture {
 public:
  LogCapture() {
    previous_ = utils::Logger::setSink(
        [this](utils::LogLevel level, std::string_view tag, std::string_view text) {
          lines.push_back({level, std::string(tag), std::string(text)});
        });
  }
  ~LogCapture() { utils::Logger::setSink(std::move(previous_)); }
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  bool contains(std::string_view text) const {
    for (const auto& l : lines) {
      if (l.text.find(text) != std::string::npos) return true;
    }
    return false;
  }

  std::vector<LogLine> lines;

 private:
  utils::Logger::Sink previous_;
};

// A fresh directory under the system's temporary directory, removed with its
// content when the object goes.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

// The whole content of a file as bytes.
std::string readFile(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace testing_support
