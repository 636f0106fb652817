#include <utils/utf8.h>

namespace utils::utf8 {

namespace {

bool continuation(unsigned char c, unsigned char lo = 0x80, unsigned char hi = 0xbf) {
  return c >= lo && c <= hi;
}

}  // namespace

std::size_t sequenceLength(std::string_view text) {
  if (text.empty()) return 0;
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char c = at(0);
  if (c < 0x80) return 1;
  // The well-formed sequences of RFC 3629: no overlong forms, no surrogates,
  // nothing above U+10FFFF. The second byte's range depends on the lead byte.
  std::size_t length = 0;
  unsigned char lo = 0x80, hi = 0xbf;
  if (c >= 0xc2 && c <= 0xdf) {
    length = 2;
  } else if (c >= 0xe0 && c <= 0xef) {
    length = 3;
    if (c == 0xe0) lo = 0xa0;
    if (c == 0xed) hi = 0x9f;
  } else if (c >= 0xf0 && c <= 0xf4) {
    length = 4;
    if (c == 0xf0) lo = 0x90;
    if (c == 0xf4) hi = 0x8f;
  } else {
    return 0;
  }
  if (text.size() < length || !continuation(at(1), lo, hi)) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!continuation(at(i))) return 0;
  }
  return length;
}

std::size_t fitPrefix(std::string_view text, std::size_t maxBytes) {
  if (text.size() <= maxBytes) return text.size();
  std::size_t n = 0;
  while (n < maxBytes) {
    std::size_t step = sequenceLength(text.substr(n));
    if (step == 0) step = 1;  // a stray byte stands for itself
    if (n + step > maxBytes) break;
    n += step;
  }
  return n;
}

}  // namespace utils::utf8
