#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace param::detail {

// Reports a broken precondition ("Assertion failed: <check>, file
// shape/segments/bezierSegment.cpp, line 21") on stderr and stops the program.
// The file is quoted from its "shape" folder on, whatever the build's source path.
[[noreturn]] inline void shapeAssertFailed(const char* expression, const char* file, int line) {
  const char* shown = file;
  for (const char* p = file; (p = std::strstr(p, "shape")) != nullptr; ++p) {
    if (p == file || p[-1] == '/' || p[-1] == '\\') shown = p;
  }
  std::fprintf(stderr, "Assertion failed: %s, file %s, line %d\n", expression, shown, line);
  std::fflush(stderr);
  std::abort();
}

}  // namespace param::detail

// Checks a precondition of the geometry code. Unlike assert it stays in release
// builds: the checks guard indexes into fixed arrays, and stopping with a message
// beats reading past them. They cost one comparison or three.
#define PARAM_SHAPE_ASSERT(cond) \
  ((cond) ? (void)0 : ::param::detail::shapeAssertFailed(#cond, __FILE__, __LINE__))
