#pragma once

#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <utils/logger.h>

#include <param/seri/seriObject.h>
#include <param/shape/point2dConcept.h>

namespace shape_test {

inline param::SeriObject parse(const char* text) {
  param::SeriObject obj(utils::JsonLoad::instance);
  EXPECT_EQ(obj.parser(text, std::strlen(text)), 0u) << text;
  return obj;
}

// Collects the log lines ("<level> <tag>: <text>") written while it lives.
struct LogCapture {
  std::vector<std::string> lines;
  utils::Logger::Sink previous = utils::Logger::setSink(
      [this](utils::LogLevel level, std::string_view tag, std::string_view text) {
        lines.push_back(std::to_string(static_cast<int>(level)) + " " + std::string(tag) + ": " +
                        std::string(text));
      });
  ~LogCapture() { utils::Logger::setSink(previous); }
};

}  // namespace shape_test

#define EXPECT_POINT_NEAR(p, ex, ey) \
  do {                               \
    EXPECT_NEAR((p).x, (ex), 1e-9);  \
    EXPECT_NEAR((p).y, (ey), 1e-9);  \
  } while (0)
