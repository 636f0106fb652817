#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <utils/algorithm/codec.h>

#include <param/errors.h>
#include <param/params/penArray.h>
#include <param/seri/seriDocument.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::LogCapture;
using testing_support::parsed;
using testing_support::readFile;
using testing_support::TempDir;
using testing_support::writeFile;
using utils::JsonLoad;
using utils::JsonSave;
namespace fs = std::filesystem;
namespace uerr = utils::errc;

namespace {

// Every encoding, every AES table entry and every key index.
std::vector<SeriOption> allOptions() {
  std::vector<SeriOption> options{SeriOption(SeriOption::Base64), SeriOption(SeriOption::Lzma)};
  for (unsigned key = 0; key < 4; ++key) {
    options.emplace_back(SeriOption::Xor, 0, key);
    for (unsigned aes = 0; aes < 4; ++aes)
      options.emplace_back(SeriOption::Aes, aes, key);
  }
  return options;
}

PenArray editedPens() {
  PenArray pens(256);
  for (std::size_t i = 0; i < pens.size(); ++i) {
    pens[i].laserPower = static_cast<int>(i % 100);
    pens[i].laserFreq = 20.5f + static_cast<float>(i);
    pens[i].stepMark.stepLen = 0.001f * static_cast<float>(i);
    std::snprintf(pens[i].penName, sizeof pens[i].penName, "pen %zu", i);
  }
  return pens;
}

std::string penText(const PenArray& pens) {
  SeriObject o(JsonSave::instance);
  EXPECT_EQ(pens.save(o), 0u);
  return o.stringfy();
}

SeriDocument documentWith(const PenArray& pens) {
  SeriDocument doc(JsonSave::instance, "");
  SeriObject table(JsonSave::instance);
  EXPECT_EQ(pens.save(table), 0u);
  EXPECT_EQ(doc.setSeriObject("pens", std::move(table)), 0u);
  return doc;
}

std::string header(std::uint64_t word) {
  std::string h(8, '\0');
  for (int i = 0; i < 8; ++i)
    h[i] = static_cast<char>(word >> (8 * i));
  return h;
}

SdkError readBack(const fs::path& file) {
  SeriDocument doc(JsonLoad::instance);
  return doc.readFromFile(file);
}

// Runs a shell command; its exit status, or -1 when the tool is missing.
std::string hex(const std::string& bytes) {
  static const char digits[] = "0123456789abcdef";
  std::string out;
  for (unsigned char c : bytes) {
    out += digits[c >> 4];
    out += digits[c & 15];
  }
  return out;
}

}  // namespace

TEST(Document, PenTableComesBackIdenticalInEveryEncoding) {
  TempDir dir;
  const PenArray pens = editedPens();
  const std::string expected = penText(pens);
  for (SeriOption option : allOptions()) {
    SCOPED_TRACE(option.word);
    const fs::path file = dir / "pens.cfg";
    ASSERT_EQ(documentWith(pens).writeToFile(file, option), 0u);

    SeriDocument doc(JsonLoad::instance);
    ASSERT_EQ(doc.readFromFile(file), 0u);
    EXPECT_EQ(doc.info()->extension, ".cfg");
    SeriObject table(JsonLoad::instance);
    ASSERT_EQ(doc.getSeriObject("pens", table), 0u);
    PenArray loaded(256);  // loaded in place over default pens
    ASSERT_EQ(loaded.load(table), 0u);
    EXPECT_EQ(penText(loaded), expected);
  }
}

TEST(Document, HeaderWordIsStoredAsItStandsAndPayloadIsBase64Text) {
  TempDir dir;
  SeriDocument doc(JsonSave::instance, "");
  doc.set("k", 1);
  ASSERT_EQ(doc.writeToFile(dir / "plain.cfg", SeriOption()), 0u);
  const std::string bytes = readFile(dir / "plain.cfg");
  ASSERT_GE(bytes.size(), 8u);
  EXPECT_EQ(bytes.substr(0, 8), std::string(8, '\0'));
  EXPECT_EQ(bytes.substr(8).find_first_not_of(
                "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/="),
            std::string::npos);
  EXPECT_EQ(doc.info()->extension, ".cfg");
  std::string ext;
  SeriObject block(JsonLoad::instance);
  ASSERT_EQ(doc.getSeriObject(SeriDocument::kInfoKey, block), 0u);
  EXPECT_EQ(block.keys(), (std::vector<std::string>{"ver", "os", "arch", "extension"}));

  // Bits 8-63 are written unchanged and do not matter on reading.
  const std::uint64_t word = 0x0123456789ABCD02ull;
  ASSERT_EQ(doc.writeToFile(dir / "high.cfg", SeriOption(word)), 0u);
  EXPECT_EQ(readFile(dir / "high.cfg").substr(0, 8), header(word));
  SeriDocument back(JsonLoad::instance);
  ASSERT_EQ(back.readFromFile(dir / "high.cfg"), 0u);
  int k = 0;
  EXPECT_EQ(back.get("k", k), 0u);
  EXPECT_EQ(k, 1);
}

TEST(Document, UnknownEncodingsAreRejected) {
  TempDir dir;
  SeriDocument doc(JsonSave::instance, "");
  EXPECT_EQ(doc.writeToFile(dir / "x.cfg", SeriOption(5)), errc::unknownEncodingOnWrite);
  EXPECT_TRUE(fs::is_empty(dir.path()));

  for (std::uint64_t encoding : {4u, 7u, 15u}) {
    writeFile(dir / "bad.cfg", header(encoding) + "eyJhIjoxfQ==");
    EXPECT_EQ(readBack(dir / "bad.cfg"), errc::badFormat) << encoding;
  }
}

TEST(Document, WritesThroughATemporaryFileInTheSameDirectory) {
  TempDir dir;
  fs::create_directories(dir / "a/b");
  const fs::path target = dir / "a/b/params.cfg";
  writeFile(target, "old content");
  SeriDocument doc(JsonSave::instance, "");
  ASSERT_EQ(doc.writeToFile(target, SeriOption(SeriOption::Lzma)), 0u);
  EXPECT_FALSE(fs::exists(dir / "a/b/params.cfg.tmp"));
  EXPECT_EQ(doc.info()->extension, ".cfg");
  EXPECT_EQ(readBack(target), 0u);

  // A directory that does not exist cannot hold the temporary file.
  LogCapture log;
  EXPECT_EQ(doc.writeToFile(dir / "missing/params.cfg", SeriOption()), errc::mapFailed);
  EXPECT_TRUE(log.contains("missing/params.cfg"));
}

TEST(Document, ParsedContentStaysWhenTheInformationBlockIsMissing) {
  TempDir dir;
  writeFile(dir / "noinfo.cfg", header(0) + "eyJhIjoxfQ==");  // {"a":1}
  SeriDocument doc(JsonLoad::instance);
  EXPECT_EQ(doc.readFromFile(dir / "noinfo.cfg"), uerr::keyMissing);
  EXPECT_TRUE(doc.contains("a"));
}

TEST(Document, BytesInMemoryReadAsTheirFile) {
  TempDir dir;
  const PenArray pens(3);
  for (SeriOption option : {SeriOption(SeriOption::Base64), SeriOption(SeriOption::Xor, 0, 3),
                            SeriOption(SeriOption::Lzma), SeriOption(SeriOption::Aes, 2, 1)}) {
    SCOPED_TRACE(option.word);
    const fs::path file = dir / "pens.cfg";
    ASSERT_EQ(documentWith(pens).writeToFile(file, option), 0u);
    SeriDocument fromFile(JsonLoad::instance), fromMemory(JsonLoad::instance);
    ASSERT_EQ(fromFile.readFromFile(file), 0u);
    const std::string bytes = readFile(file);
    ASSERT_EQ(fromMemory.readFromMemory(bytes.data(), bytes.size()), 0u);
    EXPECT_EQ(fromMemory.stringfy(), fromFile.stringfy());
    EXPECT_EQ(fromMemory.info()->extension, ".cfg");
    std::string text;
    ASSERT_EQ(SeriDocument::decodeFromMemory(bytes.data(), bytes.size(), text), 0u);
    EXPECT_EQ(text, fromFile.stringfy());
  }
  SeriDocument doc(JsonLoad::instance);
  std::string text;
  EXPECT_EQ(doc.readFromMemory("1234567", 7), uerr::fileTooShort);
  EXPECT_EQ(SeriDocument::decodeFromMemory(nullptr, 0, text), uerr::fileTooShort);
  const std::string unknown = header(7) + "eyJhIjoxfQ==";
  EXPECT_EQ(doc.readFromMemory(unknown.data(), unknown.size()), errc::badFormat);
  const std::string noInfo = header(0) + "eyJhIjoxfQ==";  // {"a":1}
  EXPECT_EQ(doc.readFromMemory(noInfo.data(), noInfo.size()), uerr::keyMissing);
  EXPECT_TRUE(doc.contains("a"));
}

TEST(Document, MalformedFilesGiveTheirOwnCodesAndLogLines) {
  TempDir dir;
  LogCapture log;
  const PenArray pens(3);
  auto written = [&](SeriOption option) {
    const fs::path file = dir / "source.cfg";
    EXPECT_EQ(documentWith(pens).writeToFile(file, option), 0u);
    return readFile(file);
  };
  auto check = [&](const std::string& bytes, SdkError expected, const char* what) {
    writeFile(dir / "broken.cfg", bytes);
    EXPECT_EQ(readBack(dir / "broken.cfg"), expected) << what;
  };

  EXPECT_EQ(readBack(dir / "absent.cfg"), errc::mapFailed);
  EXPECT_EQ(readBack(dir.path()), errc::mapFailed);
  check("", uerr::fileTooShort, "empty file");
  check(std::string(7, '\0'), uerr::fileTooShort, "seven bytes");
  EXPECT_TRUE(log.contains("broken.cfg"));

  std::string base64 = written(SeriOption());
  base64[20] = '*';
  check(base64, uerr::badBase64, "foreign byte");
  check(header(0) + "bm90IGpzb24=", uerr::parseError, "not JSON");           // "not json"
  check(header(0) + "WzEsMl0=", uerr::wrongType, "an array");                // "[1,2]"
  check(header(0) + "eyJydW5TcGVlZCI6MWU0MDB9", uerr::outOfRange, "1e400");  // {"runSpeed":1e400}

  std::string xz = written(SeriOption(SeriOption::Lzma));
  check(xz.substr(0, xz.size() - 10), uerr::corruptLzma, "truncated xz");
  xz[xz.size() / 2] ^= 0x40;
  check(xz, uerr::corruptLzma, "corrupt xz");
  check(header(2), uerr::corruptLzma, "empty xz");

  // GCM is table entry 0: any flipped bit fails authentication.
  const std::string gcm = written(SeriOption(SeriOption::Aes, 0, 0));
  for (std::size_t at : {std::size_t{8}, std::size_t{30}, gcm.size() - 1}) {
    std::string flipped = gcm;
    flipped[at] ^= 0x01;
    check(flipped, uerr::aesAuthFailed, "flipped GCM bit");
  }
  check(gcm.substr(0, 20), uerr::aesBadInput, "GCM shorter than nonce and tag");

  // CBC is table entry 2: flipping the low bit of the last byte of the
  // second-to-last block changes the padding byte, which no padding allows.
  std::string cbc = written(SeriOption(SeriOption::Aes, 2, 0));
  ASSERT_GE(cbc.size(), 8u + 16u + 32u);
  cbc[cbc.size() - 17] ^= 0x01;
  check(cbc, uerr::aesBadPadding, "CBC padding");
  check(cbc.substr(0, cbc.size() - 3), uerr::aesBadInput, "CBC not whole blocks");

  // The wrong key index gives garbage or a failed check, never a document.
  std::string otherKey = written(SeriOption(SeriOption::Aes, 0, 1));
  otherKey[0] = static_cast<char>(SeriOption(SeriOption::Aes, 0, 2).word);
  check(otherKey, uerr::aesAuthFailed, "GCM under another key");

  const std::size_t limit = utils::algorithm::decodeLimit();
  utils::algorithm::setDecodeLimit(64);
  for (SeriOption option : {SeriOption(SeriOption::Base64), SeriOption(SeriOption::Xor),
                            SeriOption(SeriOption::Lzma), SeriOption(SeriOption::Aes)}) {
    const fs::path file = dir / "large.cfg";
    ASSERT_EQ(documentWith(pens).writeToFile(file, option), 0u);
    EXPECT_EQ(readBack(file), uerr::payloadTooLarge) << option.word;
  }
  utils::algorithm::setDecodeLimit(limit);
}

TEST(Document, PayloadsAreReadableByOrdinaryTools) {
  TempDir dir;
  SeriDocument doc(JsonSave::instance, "");
  doc.set("marker", "laser");
  const std::string json = [&] {
    EXPECT_EQ(doc.writeToFile(dir / "probe.cfg", SeriOption()), 0u);  // stores the info block
    return doc.stringfy();
  }();
  auto payloadFile = [&](SeriOption option) {
    EXPECT_EQ(doc.writeToFile(dir / "doc.cfg", option), 0u);
    writeFile(dir / "payload", readFile(dir / "doc.cfg").substr(8));
    return (dir / "payload").string();
  };
  const std::string out = (dir / "out").string();

  if (!testing_support::haveTool("base64")) GTEST_SKIP() << "base64 missing";
  ASSERT_TRUE(testing_support::runCommand("base64 -d " + payloadFile(SeriOption()) + " > " + out));
  EXPECT_EQ(readFile(out), json);

  if (!testing_support::haveTool("xz")) GTEST_SKIP() << "xz missing";
  ASSERT_TRUE(testing_support::runCommand("xz -d -c < " +
                                          payloadFile(SeriOption(SeriOption::Lzma)) + " > " + out));
  EXPECT_EQ(readFile(out), json);

  if (!testing_support::haveTool("openssl")) GTEST_SKIP() << "openssl missing";
  // Table entries 1 (CFB), 2 (CBC) and 3 (CTR) under key index 3; the payload
  // starts with the 16-byte IV.
  const std::string key = [&] {
    // The key is recovered from an XOR document of zero bytes' worth of key
    // stream: XOR of the text with its encoding gives the repeating key.
    EXPECT_EQ(doc.writeToFile(dir / "xor.cfg", SeriOption(SeriOption::Xor, 0, 3)), 0u);
    const std::string enc = readFile(dir / "xor.cfg").substr(8);
    std::string k(16, '\0');
    for (int i = 0; i < 16; ++i)
      k[i] = static_cast<char>(enc[i] ^ json[i]);
    return hex(k);
  }();
  const std::pair<unsigned, const char*> modes[] = {
      {1, "aes-128-cfb"}, {2, "aes-128-cbc"}, {3, "aes-128-ctr"}};
  for (const auto& [entry, cipher] : modes) {
    const std::string payload = readFile(payloadFile(SeriOption(SeriOption::Aes, entry, 3)));
    writeFile(dir / "cipher", payload.substr(16));
    ASSERT_TRUE(testing_support::runCommand(std::string("openssl enc -d -") + cipher + " -K " +
                                            key + " -iv " + hex(payload.substr(0, 16)) + " -in " +
                                            (dir / "cipher").string() + " -out " + out))
        << cipher;
    EXPECT_EQ(readFile(out), json) << cipher;
  }

  // GCM (table entry 0): nonce(12), ciphertext, tag(16); openssl enc has no
  // AEAD modes, Node's crypto module does.
  if (!testing_support::haveTool("node")) GTEST_SKIP() << "node missing";
  const std::string gcmFile = payloadFile(SeriOption(SeriOption::Aes, 0, 3));
  const std::string script =
      "const fs=require('fs'),c=require('crypto');const p=fs.readFileSync('" + gcmFile +
      "');const d=c.createDecipheriv('aes-128-gcm',Buffer.from('" + key +
      "','hex'),p.subarray(0,12));d.setAuthTag(p.subarray(p.length-16));fs.writeFileSync('" + out +
      "',Buffer.concat([d.update(p.subarray(12,p.length-16)),d.final()]));";
  ASSERT_TRUE(testing_support::runCommand("node -e \"" + script + "\""));
  EXPECT_EQ(readFile(out), json);
}
