#pragma once

// PARAM_API marks what the param library exports. The library is built with
// hidden visibility, so anything without it stays private to the library.
#if defined(_WIN32) || defined(__CYGWIN__)
#if defined(PARAM_BUILDING)
#define PARAM_API __declspec(dllexport)
#else
#define PARAM_API __declspec(dllimport)
#endif
#else
#define PARAM_API __attribute__((visibility("default")))
#endif
