#pragma once

#include <cstdint>

namespace param {

// The 64-bit option word of a document file: its first 8 bytes, little-endian.
// Only the low eight bits mean something; the rest is stored as it stands.
union SeriOption {
  enum Encoding : std::uint8_t {
    Base64 = 0,  // base64 text
    Xor = 1,     // XOR with the stored key `keyIndex`
    Lzma = 2,    // one .xz stream
    Aes = 3,     // AES with the algorithm `aesAlgorithm` and the stored key `keyIndex`
  };

  struct Detail {
    std::uint64_t encoding : 4;      // bits 0-3: Encoding; 4-15 are rejected
    std::uint64_t aesAlgorithm : 2;  // bits 4-5: 0 GCM, 1 CFB, 2 CBC, 3 CTR
    std::uint64_t keyIndex : 2;      // bits 6-7: which of the four stored keys
    std::uint64_t unused : 56;       // bits 8-63: kept, not interpreted
  };

  std::uint64_t word;
  Detail detail;

  constexpr SeriOption() : word(0) {}
  constexpr explicit SeriOption(std::uint64_t value) : word(value) {}
  constexpr SeriOption(Encoding encoding, unsigned aesAlgorithm = 0, unsigned keyIndex = 0)
      : word(static_cast<std::uint64_t>(encoding & 0xFu) | ((aesAlgorithm & 3u) << 4) |
             ((keyIndex & 3u) << 6)) {}

  // The fields read from the word.
  constexpr unsigned encoding() const { return static_cast<unsigned>(word & 0xFu); }
  constexpr unsigned aesAlgorithm() const { return static_cast<unsigned>((word >> 4) & 3u); }
  constexpr unsigned keyIndex() const { return static_cast<unsigned>((word >> 6) & 3u); }
};

static_assert(sizeof(SeriOption) == 8);

}  // namespace param
