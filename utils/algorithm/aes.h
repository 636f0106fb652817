#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <utils/error.h>
#include <utils/export.h>

namespace utils::algorithm {

// AES-128 modes. Payload layouts (IV and nonce are fresh random bytes per encryption):
//   CBC  IV(16) + ciphertext with PKCS#7 padding
//   CTR  IV(16) + ciphertext
//   GCM  nonce(12) + ciphertext + tag(16)   (authenticated)
//   CFB  IV(16) + ciphertext                (CFB128)
enum class AESAlgorithm : std::uint8_t {
  CBC = 0,
  CTR = 1,
  GCM = 3,
  CFB = 4,
};

namespace aes {

inline constexpr std::size_t keyLength = 16;

// errc::aesBadInput for a key that is not 16 bytes or an unknown algorithm.
[[nodiscard]] UTILS_API SdkError encrypt(AESAlgorithm algorithm, const void* bytes,
                                         std::size_t count, const std::uint8_t* key,
                                         std::size_t keyLength, std::string& out);

// errc::aesAuthFailed when a GCM tag does not match, errc::aesBadPadding for bad
// CBC padding, errc::aesBadInput for a payload too short for its IV or tag (or a
// CBC ciphertext that is not a positive multiple of 16 bytes), and
// errc::payloadTooLarge beyond the decode limit. On any error `out` is empty:
// no unauthenticated plaintext is handed out.
// The code decrypt gives for a payload of `count` bytes before reading any of
// them (too short for its IV or tag, CBC not in whole blocks, beyond the
// decode limit); 0 when its size is acceptable.
[[nodiscard]] UTILS_API SdkError checkPayloadSize(AESAlgorithm algorithm, std::size_t count);

[[nodiscard]] UTILS_API SdkError decrypt(AESAlgorithm algorithm, const void* bytes,
                                         std::size_t count, const std::uint8_t* key,
                                         std::size_t keyLength, std::string& out);

}  // namespace aes
}  // namespace utils::algorithm
