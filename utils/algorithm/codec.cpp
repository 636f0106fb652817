#include <utils/algorithm/codec.h>

// Placeholder until the codecs land.
namespace utils::algorithm {
namespace { std::size_t g_limit = std::size_t(1) << 30; }
std::size_t decodeLimit() { return g_limit; }
void setDecodeLimit(std::size_t bytes) { g_limit = bytes; }
}  // namespace utils::algorithm
