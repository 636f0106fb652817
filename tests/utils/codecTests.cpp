#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include <utils/algorithm/aes.h>
#include <utils/algorithm/base64.h>
#include <utils/algorithm/codec.h>
#include <utils/algorithm/lzma.h>
#include <utils/algorithm/xor.h>

#include "support/testSupport.h"

namespace alg = utils::algorithm;
namespace errc = utils::errc;
using Mode = alg::AESAlgorithm;
using testing_support::randomBytes;
using utils::SdkError;

namespace {

const std::uint8_t kKey[16] = {0x2b, 0x7e, 0x15, 0x16, 0x28, 0xae, 0xd2, 0xa6,
                               0xab, 0xf7, 0x15, 0x88, 0x09, 0xcf, 0x4f, 0x3c};
const Mode kModes[] = {Mode::CBC, Mode::CTR, Mode::GCM, Mode::CFB};

std::string b64(const std::string& bytes) {
  std::string out;
  alg::base64::encode(bytes.data(), bytes.size(), out);
  return out;
}
SdkError unb64(const std::string& text, std::string& out) {
  return alg::base64::decode(text.data(), text.size(), out);
}
std::string xz(const std::string& bytes) {
  std::string out;
  EXPECT_EQ(alg::lzma::compress(bytes.data(), bytes.size(), out), 0u);
  return out;
}
SdkError unxz(const std::string& payload, std::string& out) {
  return alg::lzma::decompress(payload.data(), payload.size(), out);
}
std::string enc(Mode mode, const std::string& plain) {
  std::string out;
  EXPECT_EQ(alg::aes::encrypt(mode, plain.data(), plain.size(), kKey, 16, out), 0u);
  return out;
}
SdkError dec(Mode mode, const std::string& payload, std::string& out) {
  return alg::aes::decrypt(mode, payload.data(), payload.size(), kKey, 16, out);
}
std::string hex(const std::string& bytes) {
  std::string out;
  for (unsigned char b : bytes)
    out += "0123456789abcdef"[b >> 4], out += "0123456789abcdef"[b & 15];
  return out;
}

}  // namespace

TEST(Codecs, RoundTripEmptyShortAndRandomBuffers) {
  const char* vectors[][2] = {
      {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"fooba", "Zm9vYmE="}, {"\xff\xfe", "//4="}};
  for (const auto& v : vectors)
    EXPECT_EQ(b64(v[0]), v[1]);
  for (std::size_t n = 0; n <= 64; ++n) {  // every padding case
    const std::string bytes = randomBytes(n, unsigned(n)), text = b64(bytes);
    EXPECT_EQ(text.size(), (n + 2) / 3 * 4);
    EXPECT_EQ(text.find('='), n % 3 ? text.size() - (3 - n % 3) : std::string::npos);
    std::string back = "stale";
    ASSERT_EQ(unb64(text, back), 0u);
    EXPECT_EQ(back, bytes);
  }
  for (const std::string& bytes : {std::string(), std::string("a"), randomBytes(1000, 1)}) {
    std::string back = "stale", there;
    ASSERT_EQ(unxz(xz(bytes), back), 0u);
    EXPECT_EQ(back, bytes);
    for (Mode mode : kModes) {
      const std::string payload = enc(mode, bytes);
      const std::size_t n = bytes.size();
      EXPECT_EQ(payload.size(), mode == Mode::CBC   ? 16 + (n / 16 + 1) * 16
                                : mode == Mode::GCM ? 12 + n + 16
                                                    : 16 + n);
      EXPECT_NE(enc(mode, bytes).substr(0, 12), payload.substr(0, 12));  // fresh IV
      ASSERT_EQ(dec(mode, payload, back), 0u);
      EXPECT_EQ(back, bytes);
    }
    alg::XOR::encode(bytes.data(), bytes.size(), kKey, 16, there);
    alg::XOR::decode(there.data(), there.size(), kKey, 16, back);
    EXPECT_EQ(back, bytes);
  }
  std::string out;
  alg::XOR::encode("\x00\xff\x55\x10\x01", 5, kKey + 14, 2, out);  // key 4f 3c
  EXPECT_EQ(out, std::string("\x4f\xc3\x1a\x2c\x4e", 5));
  alg::XOR::encode("abc", 3, nullptr, 16, out);
  EXPECT_EQ(out, "abc");
  alg::XOR::encode("abc", 3, kKey, 0, out);
  EXPECT_EQ(out, "abc");
}

TEST(Codecs, RefuseBadInputWithTheirCodes) {
  std::string out;
  for (const std::string text : {"Zg=", "Zg==Zg==", "Z===", "====", "=Zg=", "Zm=v", "Zm9v\n",
                                 "Zm 9", "Zm9-", "Zm9_", "Z\377xxZm9v", "Zm\xff="}) {
    out = "stale";
    EXPECT_EQ(unb64(text, out), errc::badBase64) << text;
    EXPECT_TRUE(out.empty());
  }
  const std::string packed = xz(randomBytes(3000, 4));
  std::string damaged = packed;
  damaged[packed.size() / 2] ^= 0x40;
  for (const std::string& bad :
       {std::string(), packed.substr(0, packed.size() - 1), packed.substr(0, packed.size() / 2),
        packed + "x", packed + std::string(4, '\0'), damaged, randomBytes(100, 5)}) {
    EXPECT_EQ(unxz(bad, out), errc::corruptLzma) << bad.size();
  }
  EXPECT_EQ(alg::lzma::compress("a", 1, out, 99), errc::codecFailure);

  EXPECT_EQ(alg::aes::encrypt(Mode::CBC, "x", 1, kKey, 15, out), errc::aesBadInput);
  EXPECT_EQ(alg::aes::encrypt(Mode::CBC, "x", 1, nullptr, 16, out), errc::aesBadInput);
  EXPECT_EQ(alg::aes::encrypt(Mode(2), "x", 1, kKey, 16, out), errc::aesBadInput);
  const std::string cbc = enc(Mode::CBC, std::string(16, 'p'));  // IV + 2 blocks
  const std::pair<Mode, int> tooShort[] = {{Mode::CBC, 16}, {Mode::CBC, 40}, {Mode::CBC, 15},
                                           {Mode::CTR, 15}, {Mode::CFB, 15}, {Mode::GCM, 27}};
  for (const auto& [mode, size] : tooShort) {
    EXPECT_EQ(dec(mode, cbc.substr(0, size), out), errc::aesBadInput) << size;
  }
  std::string badPad = cbc;  // the last padding byte turns from 0x10 into 0x11
  badPad[31] ^= 0x01;
  EXPECT_EQ(dec(Mode::CBC, badPad, out), errc::aesBadPadding);
  const std::string gcm = enc(Mode::GCM, "authentic");
  for (std::size_t i = 0; i < gcm.size() * 8; ++i) {  // every bit of nonce, text and tag
    std::string forged = gcm;
    forged[i / 8] ^= static_cast<char>(1 << (i % 8));
    out = "stale";
    ASSERT_EQ(dec(Mode::GCM, forged, out), errc::aesAuthFailed) << i;
    EXPECT_TRUE(out.empty());
  }
}

// A valid stream whose block header asks for a 4 GiB dictionary: refused rather
// than letting the decoder take that memory.
TEST(Codecs, LzmaRefusesAHeaderAskingForAHugeDictionary) {
  std::string packed = xz("hello");
  const std::size_t header = 12, headerSize = (std::uint8_t(packed[header]) + 1) * 4;
  const auto flags = std::uint8_t(packed[header + 1]);
  std::size_t p = header + 2;  // optional size fields (varints), then filter 0x21, 1, dict
  for (int field = 0; field < (flags >> 6 & 1) + (flags >> 7 & 1); ++field) {
    while (std::uint8_t(packed[p++]) & 0x80)
      continue;
  }
  ASSERT_EQ(std::uint8_t(packed[p]), 0x21);
  packed[p + 2] = 40;
  std::uint32_t crc = 0xffffffffu;  // the header's CRC32 must match again
  for (std::size_t i = header; i < header + headerSize - 4; ++i) {
    crc ^= std::uint8_t(packed[i]);
    for (int bit = 0; bit < 8; ++bit)
      crc = (crc >> 1) ^ (0xedb88320u & (0u - (crc & 1)));
  }
  for (int i = 0; i < 4; ++i)
    packed[header + headerSize - 4 + i] = char(~crc >> (8 * i));
  std::string out;
  EXPECT_EQ(unxz(packed, out), errc::payloadTooLarge);
}

TEST(Codecs, DecodeLimitRefusesLargerOutput) {
  EXPECT_EQ(alg::decodeLimit(), std::size_t(1) << 30);
  const std::string ten(10, 'a'), eleven(11, 'a');
  std::string ok[6] = {b64(ten), xz(ten)}, big[6] = {b64(eleven), xz(eleven)};
  for (int m = 0; m < 4; ++m)
    ok[m + 2] = enc(kModes[m], ten), big[m + 2] = enc(kModes[m], eleven);
  const std::string zeros = xz(std::string(4 << 20, '\0'));
  alg::setDecodeLimit(10);
  std::string out;
  for (int i = 0; i < 6; ++i) {
    const auto decode = [&](const std::string& in) {
      return i == 0 ? unb64(in, out) : i == 1 ? unxz(in, out) : dec(kModes[i - 2], in, out);
    };
    EXPECT_EQ(decode(ok[i]), 0u) << i;
    EXPECT_EQ(decode(big[i]), errc::payloadTooLarge) << i;
  }
  EXPECT_EQ(unxz(zeros, out), errc::payloadTooLarge);
  alg::setDecodeLimit(std::size_t(1) << 30);
}

TEST(Codecs, StandardToolsReadWhatTheyWrite) {
  if (!testing_support::runCommand(
          "command -v base64 >/dev/null && command -v xz >/dev/null && command -v "
          "openssl >/dev/null")) {
    GTEST_SKIP() << "base64, xz or openssl is not installed";
  }
  testing_support::TempDir dir;
  const std::string plain = randomBytes(777, 11), in = dir / "in", out = dir / "out";
  testing_support::writeFile(in, b64(plain));
  EXPECT_TRUE(testing_support::runCommand("base64 -d < " + in + " > " + out));
  EXPECT_EQ(testing_support::readFile(out), plain);
  testing_support::writeFile(in, xz(plain));
  EXPECT_TRUE(testing_support::runCommand("xz -d -c < " + in + " > " + out));
  EXPECT_EQ(testing_support::readFile(out), plain);
  for (const auto& [mode, name] :
       {std::pair{Mode::CBC, "cbc"}, {Mode::CTR, "ctr"}, {Mode::CFB, "cfb"}}) {
    const std::string payload = enc(mode, plain);
    testing_support::writeFile(in, payload.substr(16));
    const std::string key(reinterpret_cast<const char*>(kKey), 16);
    EXPECT_TRUE(testing_support::runCommand(
        std::string("openssl enc -d -aes-128-") + name + " -K " + hex(key) + " -iv " +
        hex(payload.substr(0, 16)) + " -in " + in + " -out " + out));
    EXPECT_EQ(testing_support::readFile(out), plain) << name;
  }
}
