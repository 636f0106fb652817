#pragma once

#include <cstddef>
#include <string_view>

#include <utils/export.h>

namespace utils::utf8 {

// The byte length of the longest prefix of `text` that is at most `maxBytes`
// long and does not end inside a UTF-8 character: a character whose bytes do
// not all fit is left out whole.
//
// Bytes that are not part of a well-formed UTF-8 sequence (text in a legacy
// code page, a sequence cut short by the end of `text`) count as one-byte
// characters, so such text is cut at `maxBytes` as before and nothing of it is
// dropped otherwise.
UTILS_API std::size_t fitPrefix(std::string_view text, std::size_t maxBytes);

// The length of the well-formed UTF-8 sequence at the start of `text` (1 to 4),
// or 0 when `text` is empty or does not start with one.
UTILS_API std::size_t sequenceLength(std::string_view text);

}  // namespace utils::utf8
