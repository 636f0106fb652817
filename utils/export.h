#pragma once

// UTILS_API marks what param_utils exports. The library is built with hidden
// visibility, so anything without it stays private to the library.
#if defined(_WIN32) || defined(__CYGWIN__)
#if defined(UTILS_BUILDING)
#define UTILS_API __declspec(dllexport)
#else
#define UTILS_API __declspec(dllimport)
#endif
#else
#define UTILS_API __attribute__((visibility("default")))
#endif
