#include <utils/algorithm/base64.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include <utils/algorithm/codec.h>

namespace utils::algorithm::base64 {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Set in a decode table entry for a byte outside the alphabet. It sits above
// the 24 data bits, so OR-ing the entries of a whole run of quads and testing
// this bit once tells whether any byte of the run was foreign.
constexpr std::uint32_t kForeign = 0x80000000u;

// One table per position in a quad, with the 6-bit value already shifted to its
// place in the 24-bit group: decoding a quad is four loads and three ORs.
struct DecodeTables {
  std::array<std::uint32_t, 256> at[4];
};

constexpr DecodeTables makeDecodeTables() {
  DecodeTables t{};
  for (auto& table : t.at)
    table.fill(kForeign);
  for (std::uint32_t v = 0; v < 64; ++v) {
    const auto c = static_cast<unsigned char>(kAlphabet[v]);
    t.at[0][c] = v << 18;
    t.at[1][c] = v << 12;
    t.at[2][c] = v << 6;
    t.at[3][c] = v;
  }
  return t;
}

constexpr DecodeTables kDecode = makeDecodeTables();

// The two characters of every 12-bit value, for encoding.
struct PairTable {
  std::array<std::array<char, 2>, 4096> at;
};

constexpr PairTable makePairTable() {
  PairTable t{};
  for (std::size_t v = 0; v < 4096; ++v)
    t.at[v] = {kAlphabet[v >> 6], kAlphabet[v & 63]};
  return t;
}

constexpr PairTable kPairs = makePairTable();

inline std::uint64_t byteSwap(std::uint64_t v) {
  v = ((v & 0x00ff00ff00ff00ffull) << 8) | ((v >> 8) & 0x00ff00ff00ff00ffull);
  v = ((v & 0x0000ffff0000ffffull) << 16) | ((v >> 16) & 0x0000ffff0000ffffull);
  return (v << 32) | (v >> 32);
}

inline std::uint32_t quad(const unsigned char* s) {
  return kDecode.at[0][s[0]] | kDecode.at[1][s[1]] | kDecode.at[2][s[2]] | kDecode.at[3][s[3]];
}

}  // namespace

std::size_t encodedSize(std::size_t count) {
  return (count + 2) / 3 * 4;
}

void encodeTo(const void* bytes, std::size_t count, char* out) {
  const auto* in = static_cast<const unsigned char*>(bytes);
  const std::size_t whole = count / 3 * 3;
  std::size_t i = 0;
  // Four groups a step, each written as two characters pairs looked up by
  // 12 bits: the bytes are read before anything is written.
  for (; i + 12 <= whole; i += 12, out += 16) {
    unsigned char b[12];
    std::memcpy(b, in + i, 12);
    char c[16];
    for (int g = 0; g < 4; ++g) {
      const std::uint32_t group = (std::uint32_t(b[3 * g]) << 16) |
                                  (std::uint32_t(b[3 * g + 1]) << 8) | std::uint32_t(b[3 * g + 2]);
      std::memcpy(c + 4 * g, kPairs.at[group >> 12].data(), 2);
      std::memcpy(c + 4 * g + 2, kPairs.at[group & 0xfff].data(), 2);
    }
    std::memcpy(out, c, 16);
  }
  for (; i < whole; i += 3) {
    const std::uint32_t group =
        (std::uint32_t(in[i]) << 16) | (std::uint32_t(in[i + 1]) << 8) | std::uint32_t(in[i + 2]);
    out[0] = kAlphabet[(group >> 18) & 63];
    out[1] = kAlphabet[(group >> 12) & 63];
    out[2] = kAlphabet[(group >> 6) & 63];
    out[3] = kAlphabet[group & 63];
    out += 4;
  }
  const std::size_t rest = count - whole;
  if (rest == 0) return;
  std::uint32_t group = std::uint32_t(in[i]) << 16;
  if (rest == 2) group |= std::uint32_t(in[i + 1]) << 8;
  out[0] = kAlphabet[(group >> 18) & 63];
  out[1] = kAlphabet[(group >> 12) & 63];
  out[2] = rest == 2 ? kAlphabet[(group >> 6) & 63] : '=';
  out[3] = '=';
}

void encode(const void* bytes, std::size_t count, std::string& out) {
  std::string text(encodedSize(count), '\0');
  if (count != 0) encodeTo(bytes, count, text.data());
  out = std::move(text);
}

namespace {

std::size_t padding(const unsigned char* lastQuad) {
  if (lastQuad[3] != '=') return 0;
  return lastQuad[2] == '=' ? 2 : 1;
}

SdkError decodeInto(const void* text, std::size_t count, std::string& bytes) {
  if (count == 0) return errc::ok;
  if (text == nullptr || count % 4 != 0) return errc::badBase64;
  const std::size_t size = decodedSize(text, count);
  if (size > decodeLimit()) return errc::payloadTooLarge;
  bytes.assign(size, '\0');
  return decodeTo(text, count, true, bytes.data());
}

}  // namespace

std::size_t decodedSize(const void* text, std::size_t count) {
  if (text == nullptr || count < 4) return count / 4 * 3;
  const auto* in = static_cast<const unsigned char*>(text);
  return count / 4 * 3 - padding(in + count / 4 * 4 - 4);
}

SdkError decodeTo(const void* text, std::size_t count, bool last, void* out) {
  if (count == 0) return errc::ok;
  if (text == nullptr || count % 4 != 0) return errc::badBase64;
  const auto* in = static_cast<const unsigned char*>(text);
  auto* o = static_cast<unsigned char*>(out);

  // Only the text's last quad is decoded apart; before it a '=' is a foreign byte.
  const unsigned char* end = in + count - (last ? 4 : 0);
  std::uint32_t seen = 0;
  const unsigned char* s = in;
  // Two quads at a time into one 8-byte store while a third quad follows,
  // which writes over the store's last two bytes.
  for (; end - s >= 12; s += 8, o += 6) {
    const std::uint32_t a = quad(s);
    const std::uint32_t b = quad(s + 4);
    seen |= a | b;
    std::uint64_t six = ((std::uint64_t(a) << 24) | b) << 16;  // the 6 bytes, first byte on top
    if constexpr (std::endian::native == std::endian::little) six = byteSwap(six);
    std::memcpy(o, &six, 8);
  }
  for (; s != end; s += 4, o += 3) {
    const std::uint32_t group = quad(s);
    seen |= group;
    o[0] = static_cast<unsigned char>(group >> 16);
    o[1] = static_cast<unsigned char>(group >> 8);
    o[2] = static_cast<unsigned char>(group);
  }
  if (!last) return (seen & kForeign) ? errc::badBase64 : errc::ok;

  // Padding may only close the last quad: "xx==" or "xxx=". The last quad with
  // its padding replaced by 'A' (zero bits); an '=' left in it after that
  // ("=A==", "x=x=") is a foreign byte to the table.
  const std::size_t pad = padding(end);
  unsigned char tail[4] = {end[0], end[1], end[2], end[3]};
  for (std::size_t k = 4 - pad; k < 4; ++k)
    tail[k] = 'A';
  const std::uint32_t group = quad(tail);
  seen |= group;
  if (seen & kForeign) return errc::badBase64;
  o[0] = static_cast<unsigned char>(group >> 16);
  if (pad < 2) o[1] = static_cast<unsigned char>(group >> 8);
  if (pad < 1) o[2] = static_cast<unsigned char>(group);
  return errc::ok;
}

SdkError decode(const void* text, std::size_t count, std::string& out) {
  // Decoded aside, so that `text` may point into `out`; nothing half-decoded is kept.
  std::string bytes;
  const SdkError e = decodeInto(text, count, bytes);
  if (e != errc::ok) bytes = std::string();  // drops the buffer too
  out = std::move(bytes);
  return e;
}

}  // namespace utils::algorithm::base64
