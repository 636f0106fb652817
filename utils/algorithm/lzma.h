#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <utils/error.h>
#include <utils/export.h>

// LZMA2 in one .xz stream with a CRC64 check, as `xz -d` reads it.
namespace utils::algorithm::lzma {

inline constexpr std::uint32_t defaultPreset = 3;

UTILS_API SdkError compress(const void* bytes, std::size_t count, std::string& out,
                            std::uint32_t preset = defaultPreset);

// A corrupt or truncated stream gives errc::corruptLzma; output beyond the
// decode limit errc::payloadTooLarge.
UTILS_API SdkError decompress(const void* bytes, std::size_t count, std::string& out);

}  // namespace utils::algorithm::lzma
