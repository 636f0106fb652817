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

// Decoding a slice at a time, for text too large to hold decoded at once.
// The bytes `count` characters decode to: count / 4 * 3, less the padding of
// the last quad.
UTILS_API std::size_t decodedSize(const void* text, std::size_t count);
// Decodes `count` characters, a multiple of 4, into `out`, which takes
// decodedSize(text, count) bytes. `last` says whether they end the text: only
// the text's last quad may hold padding. errc::badBase64 as decode gives it,
// `out` then holding part of the bytes.
[[nodiscard]] UTILS_API SdkError decodeTo(const void* text, std::size_t count, bool last,
                                          void* out);

}  // namespace utils::algorithm::base64
