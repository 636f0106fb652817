#pragma once

#include <cstddef>

#include <param/export.h>

namespace param {

inline constexpr std::size_t encodingNameCount = 8;

// The text encodings old documents name by index: "GBK", "UTF-8", "BIG5",
// "Shift-JIS", "EUC-KR", "UNICODE", "UNICODE_BE" and an empty last entry.
// Constant data, in place before any call into the library.
PARAM_API extern const char* const g_encodingNames[encodingNameCount];

// The name at `index`, or null past the table's end.
PARAM_API const char* encodingName(std::size_t index);

}  // namespace param
