#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <utils/export.h>

// Byte i of the output is byte i of the input XOR key[i mod keyLength].
// Encoding and decoding are the same operation. A null key or a key length of 0
// copies the bytes unchanged; encodeTo may work in place (out == bytes).
namespace utils::algorithm::XOR {

UTILS_API void encodeTo(const void* bytes, std::size_t count, const std::uint8_t* key,
                        std::size_t keyLength, void* out);
UTILS_API void encode(const void* bytes, std::size_t count, const std::uint8_t* key,
                      std::size_t keyLength, std::string& out);
UTILS_API void decode(const void* bytes, std::size_t count, const std::uint8_t* key,
                      std::size_t keyLength, std::string& out);

}  // namespace utils::algorithm::XOR
