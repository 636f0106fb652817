#include <utils/algorithm/xor.h>

#include <cstring>

namespace utils::algorithm::XOR {

void encodeTo(const void* bytes, std::size_t count, const std::uint8_t* key, std::size_t keyLength,
              void* out) {
  if (count == 0) return;
  if (key == nullptr || keyLength == 0) {
    std::memmove(out, bytes, count);  // no key: a plain copy
    return;
  }
  const auto* in = static_cast<const std::uint8_t*>(bytes);
  auto* o = static_cast<std::uint8_t*>(out);
  // Byte by byte, so that `out` may be `bytes` (in place).
  std::size_t k = 0;
  for (std::size_t i = 0; i < count; ++i) {
    o[i] = static_cast<std::uint8_t>(in[i] ^ key[k]);
    if (++k == keyLength) k = 0;
  }
}

void encode(const void* bytes, std::size_t count, const std::uint8_t* key, std::size_t keyLength,
            std::string& out) {
  std::string result(count, '\0');
  encodeTo(bytes, count, key, keyLength, result.data());
  out = std::move(result);
}

void decode(const void* bytes, std::size_t count, const std::uint8_t* key, std::size_t keyLength,
            std::string& out) {
  encode(bytes, count, key, keyLength, out);
}

}  // namespace utils::algorithm::XOR
