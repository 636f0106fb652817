#pragma once

#include <cstdint>

namespace utils {

// Every fallible operation returns an SdkError; 0 is success.
using SdkError = std::uint32_t;

// The codes the platform layer produces. Each is distinct, so a caller can tell
// a missing key from a wrong type, a bad file from a failed decryption.
namespace errc {
inline constexpr SdkError ok = 0;

// JSON tree
inline constexpr SdkError keyMissing = 0x110001;       // no member of that name
inline constexpr SdkError wrongType = 0x110002;        // member or element of another JSON type
inline constexpr SdkError outOfRange = 0x110003;       // number that the target type cannot hold
inline constexpr SdkError indexOutOfRange = 0x110004;  // array index at or past the end
inline constexpr SdkError parseError = 0x110005;       // text that is not JSON

// Codecs
inline constexpr SdkError badBase64 = 0x120001;        // foreign byte, bad length or padding
inline constexpr SdkError corruptLzma = 0x120002;      // corrupt or truncated .xz stream
inline constexpr SdkError aesAuthFailed = 0x120003;    // GCM tag does not match
inline constexpr SdkError aesBadPadding = 0x120004;    // CBC padding is wrong
inline constexpr SdkError aesBadInput = 0x120005;      // too short for IV/tag, bad key or algorithm
inline constexpr SdkError codecFailure = 0x120006;     // the compressor or cipher itself failed
inline constexpr SdkError payloadTooLarge = 0x120007;  // decoded size beyond the decode limit

// Files
inline constexpr SdkError fileTooShort = 0x130001;      // shorter than its fixed header
inline constexpr SdkError fileIoError = 0x130002;       // open, write, flush or rename failed
inline constexpr SdkError writeOutOfBounds = 0x130003;  // write past the end of a mapping
inline constexpr SdkError diskFull = 0x130004;          // no space, quota or file size limit
inline constexpr SdkError notRegularFile = 0x130005;    // a directory, device or FIFO in the way
}  // namespace errc

}  // namespace utils
