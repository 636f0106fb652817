#include <utils/algorithm/codec.h>

namespace utils::algorithm {

namespace {
// Process-wide, like the error handler: set once by the host, read by every decoder.
std::size_t g_decodeLimit = std::size_t(1) << 30;
}  // namespace

std::size_t decodeLimit() {
  return g_decodeLimit;
}

void setDecodeLimit(std::size_t bytes) {
  g_decodeLimit = bytes;
}

}  // namespace utils::algorithm
