#include <utils/algorithm/xor.h>

// Placeholder until the codecs land.
namespace utils::algorithm::XOR {
void encodeTo(const void*, std::size_t, const std::uint8_t*, std::size_t, void*) {}
void encode(const void*, std::size_t, const std::uint8_t*, std::size_t, std::string& out) { out.clear(); }
void decode(const void*, std::size_t, const std::uint8_t*, std::size_t, std::string& out) { out.clear(); }
}  // namespace utils::algorithm::XOR
