#pragma once

// Helpers shared by the test programs.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <utils/error.h>
#include <utils/errorHandle.h>
#include <utils/logger.h>

#include <param/seri/seriObject.h>

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

  std::size_t calls() const { return codes.size(); }

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

  // Each line as "<level> <tag>: <text>".
  std::vector<std::string> formatted() const {
    std::vector<std::string> out;
    for (const auto& l : lines) {
      out.push_back(std::to_string(static_cast<int>(l.level)) + " " + l.tag + ": " + l.text);
    }
    return out;
  }

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

// `count` pseudo-random bytes, the same for the same seed.
std::string randomBytes(std::size_t count, unsigned seed);

// Runs a shell command (its error output dropped); true when it exits with 0.
bool runCommand(const std::string& command);
// Whether a program is on the PATH.
bool haveTool(const std::string& name);

// A node holding the parsed JSON `text`, which must parse.
param::SeriObject parsed(std::string_view text);

// `text` with the first occurrence of `from` replaced by `to`.
std::string edit(std::string text, const std::string& from, const std::string& to);

// The compact JSON text a record saves.
template <class R>
std::string jsonOf(const R& record) {
  param::SeriObject obj(utils::JsonSave::instance);
  EXPECT_EQ(record.save(obj), 0u);
  return obj.stringfy();
}

// The keys a record saves, in their stored order.
template <class R>
std::vector<std::string> savedKeys(const R& record) {
  param::SeriObject obj(utils::JsonSave::instance);
  EXPECT_EQ(record.save(obj), 0u);
  return obj.keys();
}

// The same keys joined by commas.
template <class R>
std::string keyLine(const R& record) {
  std::string line;
  for (const std::string& key : savedKeys(record))
    line += (line.empty() ? "" : ",") + key;
  return line;
}

// Loads `record` from JSON text (which must parse).
template <class R>
utils::SdkError loadJson(R& record, std::string_view text) {
  return record.load(parsed(text));
}

}  // namespace testing_support

// Both coordinates of a point within 1e-9 of (ex, ey).
#define EXPECT_POINT_NEAR(p, ex, ey) \
  do {                               \
    EXPECT_NEAR((p).x, (ex), 1e-9);  \
    EXPECT_NEAR((p).y, (ey), 1e-9);  \
  } while (0)
