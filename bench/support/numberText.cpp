#include <charconv>
#include <cstring>

#include "peers.h"

namespace peers {
namespace {

template <class T>
std::size_t shortest(T value, char* out) {
  const auto res = std::to_chars(out, out + 32, value);
  std::size_t n = static_cast<std::size_t>(res.ptr - out);
  if (n == 2 && out[0] == '-' && out[1] == '0') {  // keeps the sign on reading
    std::memcpy(out, "-0.0", 4);
    n = 4;
  }
  return n;
}

}  // namespace

std::size_t numberText(float f, char* out) {
  return shortest(f, out);
}

std::size_t numberText(double d, char* out) {
  return shortest(d, out);
}

}  // namespace peers
