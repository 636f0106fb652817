#pragma once

#include <cstddef>
#include <string>

#include <utils/error.h>
#include <utils/export.h>

// RFC 4648 base64: the standard alphabet, '=' padding, no line breaks.
namespace utils::algorithm::base64 {

UTILS_API std::size_t encodedSize(std::size_t count);
UTILS_API void encode(const void* bytes, std::size_t count, std::string& out);
// Writes exactly encodedSize(count) characters to `out`.
UTILS_API void encodeTo(const void* bytes, std::size_t count, char* out);

// Any byte outside the alphabet (white space included), a length that is not a
// multiple of 4 or misplaced padding gives errc::badBase64. As with `base64 -d`,
// the unused low bits of a padded last quad are not checked. On any error `out`
// is empty.
[[nodiscard]] UTILS_API SdkError decode(const void* text, std::size_t count, std::string& out);

}  // namespace utils::algorithm::base64
