#pragma once

// What every function of the C interface shares: the document handle, the
// copy of results into buffers the caller frees with param_free, and the guard
// that turns any exception into a code.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

#include <param/errors.h>
#include <param/seri/seriDocument.h>

#include "../param_c.h"

struct param_doc {
  param::SeriDocument document{utils::JsonLoad::instance};
  std::uint64_t option = 0;  // the header word of the file it was read from
};

namespace param_c {

// A malloc'ed, zero-terminated copy of `text` for the caller (param_free).
inline char* copyText(std::string_view text) {
  char* out = static_cast<char*>(std::malloc(text.size() + 1));
  if (out == nullptr) return nullptr;
  std::memcpy(out, text.data(), text.size());
  out[text.size()] = '\0';
  return out;
}

// Stores a copy of `text` in *out; PARAM_C_INTERNAL_ERROR when memory is short.
inline param_error giveText(std::string_view text, char** out) {
  *out = copyText(text);
  return *out ? 0 : PARAM_C_INTERNAL_ERROR;
}

// Runs `body`, turning an escaping exception into a code: nothing a host
// passes in may unwind through its C frames.
template <class Body>
param_error guarded(Body&& body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return param::errc::outOfMemory;
  } catch (...) {
    return PARAM_C_INTERNAL_ERROR;
  }
}

}  // namespace param_c
