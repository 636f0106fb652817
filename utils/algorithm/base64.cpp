#include <utils/algorithm/base64.h>

#include <array>
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

SdkError decodeInto(const void* text, std::size_t count, std::string& bytes) {
  if (count == 0) return errc::ok;
  if (text == nullptr || count % 4 != 0) return errc::badBase64;
  const auto* in = static_cast<const unsigned char*>(text);

  // Padding may only close the last quad: "xx==" or "xxx=".
  const unsigned char* last = in + count - 4;
  std::size_t padding = 0;
  if (last[3] == '=') padding = last[2] == '=' ? 2 : 1;
  const std::size_t size = count / 4 * 3 - padding;
  if (size > decodeLimit()) return errc::payloadTooLarge;

  bytes.assign(size, '\0');
  auto* o = reinterpret_cast<unsigned char*>(bytes.data());
  std::uint32_t seen = 0;
  for (const unsigned char* s = in; s != last; s += 4, o += 3) {
    const std::uint32_t group = quad(s);
    seen |= group;
    o[0] = static_cast<unsigned char>(group >> 16);
    o[1] = static_cast<unsigned char>(group >> 8);
    o[2] = static_cast<unsigned char>(group);
  }

  // The last quad with its padding replaced by 'A' (zero bits); an '=' left in
  // it after that ("=A==", "x=x=") is a foreign byte to the table.
  unsigned char tail[4] = {last[0], last[1], last[2], last[3]};
  for (std::size_t k = 4 - padding; k < 4; ++k)
    tail[k] = 'A';
  const std::uint32_t group = quad(tail);
  seen |= group;
  if (seen & kForeign) return errc::badBase64;
  o[0] = static_cast<unsigned char>(group >> 16);
  if (padding < 2) o[1] = static_cast<unsigned char>(group >> 8);
  if (padding < 1) o[2] = static_cast<unsigned char>(group);
  return errc::ok;
}

}  // namespace

SdkError decode(const void* text, std::size_t count, std::string& out) {
  // Decoded aside, so that `text` may point into `out`; nothing half-decoded is kept.
  std::string bytes;
  const SdkError e = decodeInto(text, count, bytes);
  if (e != errc::ok) bytes = std::string();  // drops the buffer too
  out = std::move(bytes);
  return e;
}

}  // namespace utils::algorithm::base64
