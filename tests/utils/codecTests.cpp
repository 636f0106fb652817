#include <cstdint>
#include <tuple>
#include <utility>

#include <utils/algorithm/aes.h>
#include <utils/algorithm/base64.h>
#include <utils/algorithm/codec.h>
#include <utils/algorithm/lzma.h>
#include <utils/algorithm/xor.h>

#include "support/testSupport.h"

namespace alg = utils::algorithm;
namespace errc = utils::errc;
using Mode = alg::AESAlgorithm;
using S = std::string;
using Result = std::pair<utils::SdkError, S>;
using namespace testing_support;

namespace {

const std::uint8_t kKey[16] = {0x2b, 0x7e, 0x15, 0x16, 0x28, 0xae, 0xd2, 0xa6,
                               0xab, 0xf7, 0x15, 0x88, 0x09, 0xcf, 0x4f, 0x3c};
// The codecs, with AES in the modes of kModes.
enum Codec { kBase64, kXz, kXor, kCbc, kCtr, kGcm, kCfb, kCodecs };
const Mode kModes[] = {Mode::CBC, Mode::CTR, Mode::GCM, Mode::CFB};

// An encoding that must succeed.
S encode(int codec, const S& in) {
  S out;
  utils::SdkError e = 0;
  if (codec == kBase64) alg::base64::encode(in.data(), in.size(), out);
  if (codec == kXz) e = alg::lzma::compress(in.data(), in.size(), out);
  if (codec == kXor) alg::XOR::encode(in.data(), in.size(), kKey, 16, out);
  if (codec >= kCbc)
    e = alg::aes::encrypt(kModes[codec - kCbc], in.data(), in.size(), kKey, 16, out);
  EXPECT_EQ(e, 0u);
  return out;
}

// The code and the output of decoding `in`; an output left alone reads "stale".
Result decode(int codec, const S& in) {
  S out = "stale";
  if (codec == kBase64) return {alg::base64::decode(in.data(), in.size(), out), out};
  if (codec == kXz) return {alg::lzma::decompress(in.data(), in.size(), out), out};
  if (codec == kXor) return {(alg::XOR::decode(in.data(), in.size(), kKey, 16, out), 0u), out};
  return {alg::aes::decrypt(kModes[codec - kCbc], in.data(), in.size(), kKey, 16, out), out};
}

// `bytes` with one bit inverted.
S flip(S bytes, std::size_t bit) {
  bytes.at(bit / 8) ^= static_cast<char>(1 << bit % 8);
  return bytes;
}

}  // namespace

TEST(Codecs, RoundTripEmptyShortAndRandomBuffers) {
  const char* vectors[][2] = {
      {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"fooba", "Zm9vYmE="}, {"\xff\xfe", "//4="}};
  for (const auto& v : vectors)
    EXPECT_EQ(encode(kBase64, v[0]), v[1]);
  // Every base64 padding case and AES block remainder, and a larger buffer.
  for (std::size_t n = 0; n <= 65; ++n) {
    const S bytes = randomBytes(n == 65 ? 1000 : n, unsigned(n));
    const std::size_t m = bytes.size();
    for (int codec = 0; codec < kCodecs; ++codec) {
      const S payload = encode(codec, bytes);
      const std::size_t sizes[] = {(m + 2) / 3 * 4, payload.size(), m,     16 + (m / 16 + 1) * 16,
                                   16 + m,          12 + m + 16,    16 + m};
      EXPECT_EQ(payload.size(), sizes[codec]) << codec;
      // AES starts each payload with a fresh IV.
      EXPECT_TRUE(codec < kCbc || encode(codec, bytes).substr(0, 12) != payload.substr(0, 12));
      alg::setDecodeLimit(m);  // exactly the decoded size is within the limit
      EXPECT_EQ(decode(codec, payload), Result(0, bytes)) << codec << " " << m;
      alg::setDecodeLimit(m - 1);
      EXPECT_TRUE(m == 0 || codec == kXor || decode(codec, payload).first == errc::payloadTooLarge)
          << codec << " " << m;
      alg::setDecodeLimit(std::size_t(1) << 30);
    }
    const S text = encode(kBase64, bytes);
    EXPECT_EQ(text.find('='), m % 3 ? text.size() - (3 - m % 3) : S::npos);
  }
  // XOR by hand (key 4f 3c), and with no key a plain copy.
  S a, b, c;
  alg::XOR::encode("\x00\xff\x55\x10\x01", 5, kKey + 14, 2, a);
  alg::XOR::encode("abc", 3, nullptr, 16, b), alg::XOR::encode("abc", 3, kKey, 0, c);
  EXPECT_EQ(std::tuple(a, b, c), std::tuple(S("\x4f\xc3\x1a\x2c\x4e", 5), "abc", "abc"));
}

// A refused input leaves the output empty.
TEST(Codecs, RefuseBadInputWithTheirCodes) {
  for (const char* text : {"Zg=", "Zg==Zg==", "Z===", "====", "=Zg=", "Zm=v", "Zm9v\n", "Zm 9",
                           "Zm9-", "Zm9_", "Z\377xxZm9v", "Zm\xff="})
    EXPECT_EQ(decode(kBase64, text), Result(errc::badBase64, "")) << text;
  const S packed = encode(kXz, randomBytes(3000, 4));
  for (const S& in :
       {S(), packed.substr(0, packed.size() - 1), packed.substr(0, packed.size() / 2), packed + "x",
        packed + S(4, '\0'), flip(packed, packed.size() * 4 + 6), randomBytes(100, 5)})
    EXPECT_EQ(decode(kXz, in), Result(errc::corruptLzma, "")) << in.size();
  const S cbc = encode(kCbc, S(16, 'p'));  // IV + 2 blocks
  for (auto [codec, size] :
       {std::pair(kCbc, 16), {kCbc, 40}, {kCbc, 15}, {kCtr, 15}, {kCfb, 15}, {kGcm, 27}})
    EXPECT_EQ(decode(codec, cbc.substr(0, size)), Result(errc::aesBadInput, "")) << size;
  // The last padding byte turns from 0x10 into 0x11.
  EXPECT_EQ(decode(kCbc, flip(cbc, 31 * 8)), Result(errc::aesBadPadding, ""));
  const S gcm = encode(kGcm, "authentic");
  for (std::size_t i = 0; i < gcm.size() * 8; ++i)  // every bit of nonce, text and tag
    ASSERT_EQ(decode(kGcm, flip(gcm, i)), Result(errc::aesAuthFailed, "")) << i;
  S out;
  EXPECT_EQ(alg::lzma::compress("a", 1, out, 99), errc::codecFailure);
  EXPECT_EQ(alg::aes::encrypt(Mode::CBC, "x", 1, kKey, 15, out), errc::aesBadInput);
  EXPECT_EQ(alg::aes::encrypt(Mode::CBC, "x", 1, nullptr, 16, out), errc::aesBadInput);
  EXPECT_EQ(alg::aes::encrypt(Mode(2), "x", 1, kKey, 16, out), errc::aesBadInput);
}

// A valid stream whose block header asks for a 4 GiB dictionary is refused
// rather than letting the decoder take that memory. The block header follows the
// 12-byte stream header: its size, flags, the size fields the flags announce
// (varints), filter 0x21 and its property length, then the dictionary byte.
TEST(Codecs, LzmaRefusesAHeaderAskingForAHugeDictionary) {
  S packed = encode(kXz, "hello");
  const auto flags = std::uint8_t(packed[13]);
  const std::size_t at = 12, end = at + (std::uint8_t(packed[at]) + 1) * 4 - 4;
  std::size_t p = at + 2;
  for (int fields = (flags >> 6 & 1) + (flags >> 7 & 1); fields > 0; ++p)
    fields -= !(std::uint8_t(packed[p]) & 0x80);
  ASSERT_EQ(std::uint8_t(packed[p]), 0x21);
  packed[p + 2] = 40;
  // The header's CRC32 must match again; it takes the bits low one first.
  std::uint32_t crc = 0xffffffffu;
  for (std::size_t bit = at * 8; bit < end * 8; ++bit)
    crc = (crc >> 1) ^ (0xedb88320u & (0u - ((crc ^ (packed[bit / 8] >> bit % 8)) & 1)));
  for (int i = 0; i < 4; ++i)
    packed[end + i] = char(~crc >> (8 * i));
  EXPECT_EQ(decode(kXz, packed), Result(errc::payloadTooLarge, ""));
}

// The default limit is 1 GiB; xz output stops growing just past a smaller one.
TEST(Codecs, DecodeLimitRefusesLargerOutput) {
  EXPECT_EQ(alg::decodeLimit(), std::size_t(1) << 30);
  alg::setDecodeLimit(10);
  EXPECT_EQ(decode(kXz, encode(kXz, S(4 << 20, '\0'))), Result(errc::payloadTooLarge, ""));
  alg::setDecodeLimit(std::size_t(1) << 30);
}

TEST(Codecs, StandardToolsReadWhatTheyWrite) {
  if (!haveTool("base64") || !haveTool("xz") || !haveTool("openssl")) GTEST_SKIP() << "no tools";
  TempDir dir;
  const S plain = randomBytes(777, 11), in = dir / "in", out = dir / "out";
  // AES: the payload leads with the IV, which openssl takes as an option.
  const S aes =
      "tail -c +17 | openssl enc -d -K 2b7e151628aed2a6abf7158809cf4f3c -iv $(od -An -tx1 -N16 " +
      in + " | tr -d ' \\n') -aes-128-";
  const std::pair<int, const char*> tools[] = {
      {kBase64, "base64 -d"}, {kXz, "xz -d -c"}, {kCbc, "cbc"}, {kCtr, "ctr"}, {kCfb, "cfb"}};
  for (auto [codec, command] : tools) {
    writeFile(in, encode(codec, plain));
    const S run = "< " + in + " " + (codec < kCbc ? S(command) : aes + command) + " > " + out;
    EXPECT_TRUE(runCommand(run)) << run;
    EXPECT_EQ(readFile(out), plain) << run;
  }
}

namespace {

// Base64 decoded in slices of `slice` characters (a multiple of 4).
Result base64InSlices(const S& in, std::size_t slice) {
  S out;
  for (std::size_t at = 0; at < in.size(); at += slice) {
    const std::size_t n = std::min(slice, in.size() - at);
    const bool last = at + n == in.size();
    S part(alg::base64::decodedSize(in.data() + at, n), '\0');
    if (utils::SdkError e = alg::base64::decodeTo(in.data() + at, n, last, part.data())) {
      return {e, ""};
    }
    out += part;
  }
  return {0, out};
}

// An xz stream fed `in` bytes at a time and drained `outSize` bytes at a time.
Result xzInSlices(const S& stream, std::size_t in, std::size_t outSize) {
  alg::lzma::Decompressor d;
  S out, buffer(outSize, '\0');
  std::size_t at = 0;
  while (!d.finished()) {
    if (d.wantsInput()) {
      const std::size_t n = std::min(in, stream.size() - at);
      d.feed(stream.data() + at, n, at + n == stream.size());
      at += n;
    }
    std::size_t produced = 0;
    if (utils::SdkError e = d.drain(buffer.data(), buffer.size(), produced)) return {e, ""};
    out.append(buffer, 0, produced);
  }
  return {0, out};
}

}  // namespace

// Slice by slice, the decoders give the bytes and the codes of decoding at once.
TEST(Codecs, SliceDecodersMatchWholeDecoding) {
  S text;
  for (int i = 0; i < 3000; ++i)
    text += static_cast<char>((i * 7919) % 251);
  const S b64 = encode(kBase64, text);
  const S xz = encode(kXz, text);
  for (std::size_t slice : {4, 8, 12, 400, 4096}) {
    EXPECT_EQ(base64InSlices(b64, slice), Result(0, text)) << slice;
    EXPECT_EQ(base64InSlices(b64 + "A===", slice).first, errc::badBase64);
    EXPECT_EQ(base64InSlices("QQ==" + b64, slice).first, errc::badBase64);  // padding inside
  }
  EXPECT_EQ(base64InSlices("QQ==", 4), Result(0, "A"));

  for (std::size_t in : {1, 7, 1000, 100000}) {
    for (std::size_t out : {1, 13, 4096}) {
      EXPECT_EQ(xzInSlices(xz, in, out), Result(0, text)) << in << " " << out;
    }
    EXPECT_EQ(xzInSlices(xz.substr(0, xz.size() - 1), in, 64).first, errc::corruptLzma);
    EXPECT_EQ(xzInSlices(xz.substr(0, xz.size() / 2), in, 64).first, errc::corruptLzma);
    EXPECT_EQ(xzInSlices(xz + "x", in, 64).first, errc::corruptLzma);
    EXPECT_EQ(xzInSlices(xz + xz, in, 64).first, errc::corruptLzma);
    S damaged = xz;
    damaged[xz.size() / 2] ^= 0x20;
    EXPECT_EQ(xzInSlices(damaged, in, 64).first, decode(kXz, damaged).first);
  }
  const std::size_t limit = alg::decodeLimit();
  alg::setDecodeLimit(text.size() - 1);
  EXPECT_EQ(xzInSlices(xz, 100, 100).first, errc::payloadTooLarge);
  alg::setDecodeLimit(text.size());
  EXPECT_EQ(xzInSlices(xz, 100, 100), Result(0, text));
  alg::setDecodeLimit(limit);
}
