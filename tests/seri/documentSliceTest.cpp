#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <utils/algorithm/base64.h>
#include <utils/algorithm/codec.h>
#include <utils/algorithm/lzma.h>
#include <utils/algorithm/xor.h>

#include <param/seri/seriDocument.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::readFile;
using testing_support::TempDir;
using testing_support::writeFile;
using utils::JsonLoad;
using utils::JsonSave;

namespace {

// The text of an array of items dense with numbers, strings and escapes,
// about `bytes` long.
std::string denseItems(std::size_t bytes) {
  SeriArray items(JsonSave::instance);
  for (std::size_t i = 0, size = 0; size < bytes; ++i) {
    SeriObject item(JsonSave::instance);
    EXPECT_EQ(item.set("n", -12345.678e-3 * static_cast<double>(i)), 0u);
    EXPECT_EQ(item.set("k", 1234567890123ull * i), 0u);
    EXPECT_EQ(item.set("s", "q\"b\\s\n\x01\xc3\xa9" + std::to_string(i)), 0u);
    size += item.stringfy().size() + 1;
    EXPECT_EQ(items.addSeriObject(std::move(item)), 0u);
  }
  return items.stringfy();
}

// A document holding those items after a padding of `shift` characters, so
// that the reader's slice edges fall inside every kind of token as the shift
// varies.
SeriDocument denseDocument(const std::string& items, std::size_t shift) {
  SeriDocument doc(JsonSave::instance, ".cfg");
  EXPECT_EQ(doc.set("pad", std::string(shift, 'p')), 0u);
  EXPECT_EQ(doc.setMemberText("items", items), 0u);
  return doc;
}

// The file image of `text` encoded with `option` (not AES); XOR with `key`.
std::string imageOf(const std::string& text, SeriOption option, const std::string& key) {
  std::string image(SeriDocument::kHeaderSize, '\0');
  for (std::size_t i = 0; i < image.size(); ++i)
    image[i] = static_cast<char>(option.word >> (8 * i));
  std::string payload;
  if (option.encoding() == SeriOption::Base64) {
    utils::algorithm::base64::encode(text.data(), text.size(), payload);
  } else if (option.encoding() == SeriOption::Lzma) {
    EXPECT_EQ(utils::algorithm::lzma::compress(text.data(), text.size(), payload), 0u);
  } else {
    utils::algorithm::XOR::encode(text.data(), text.size(),
                                  reinterpret_cast<const std::uint8_t*>(key.data()), 16, payload);
  }
  return image + payload;
}

// The file image of `doc` written with `option`.
std::string fileImage(const TempDir& dir, const SeriDocument& doc, SeriOption option) {
  const auto file = dir.path() / "image.cfg";
  EXPECT_EQ(doc.writeToFile(file.string(), option), 0u);
  return readFile(file);
}

// What reading `image` gave before documents were read in slices: the whole
// payload decoded, then parsed, then the information block loaded.
SdkError wholeReadCode(const std::string& image) {
  SeriDocument doc(JsonLoad::instance);
  std::string text;
  SdkError e = SeriDocument::decodeFromMemory(image.data(), image.size(), text);
  if (e == 0) e = doc.parser(text.data(), text.size());
  if (e != 0) return e;
  return doc.readFromMemory(image.data(), image.size());
}

const SeriOption kOptions[] = {SeriOption(SeriOption::Base64), SeriOption(SeriOption::Xor, 0, 1),
                               SeriOption(SeriOption::Lzma), SeriOption(SeriOption::Aes, 0, 2)};

}  // namespace

// A document several slices long reads back as written, whichever characters
// fall on the slice edges.
TEST(DocumentSlices, TokensAcrossSliceEdgesReadBack) {
  TempDir dir;
  const auto file = (dir.path() / "shifted.cfg").string();
  const std::string items = denseItems(300 * 1000);
  // The information block of a written document, for the documents built below.
  // The XOR key: a written payload's first 16 bytes XOR the text's.
  SeriDocument written = denseDocument("[]", 20);
  const SeriOption xorOption(SeriOption::Xor, 0, 1);
  const std::string xorImage = fileImage(dir, written, xorOption);
  const std::string info = written.memberText(SeriDocument::kInfoKey);
  std::string key = written.stringfy().substr(0, 16);
  for (std::size_t i = 0; i < key.size(); ++i)
    key[i] ^= xorImage[SeriDocument::kHeaderSize + i];

  // An item is shorter than 80 characters: every character of one falls on
  // each slice edge of base64 and XOR once (300 kB of text is two base64
  // slices and a half, one XOR slice and a bit).
  for (std::size_t shift = 0; shift < 80; ++shift) {
    SeriDocument doc = denseDocument(items, shift);
    ASSERT_EQ(doc.setMemberText(SeriDocument::kInfoKey, info), 0u);
    const std::string text = doc.stringfy();
    for (SeriOption option :
         {SeriOption(SeriOption::Base64), xorOption, SeriOption(SeriOption::Lzma)}) {
      if (option.encoding() == SeriOption::Lzma && shift % 3 != 0) continue;  // slow to write
      const std::string image = imageOf(text, option, key);
      SeriDocument fromMemory(JsonLoad::instance);
      ASSERT_EQ(fromMemory.readFromMemory(image.data(), image.size()), 0u);
      EXPECT_TRUE(fromMemory.stringfy() == text) << option.word << " shift " << shift;
      if (shift % 8 == 0) {
        writeFile(file, image);
        SeriDocument fromFile(JsonLoad::instance);
        ASSERT_EQ(fromFile.readFromFile(file), 0u);
        EXPECT_TRUE(fromFile.stringfy() == text) << option.word << " shift " << shift;
      }
    }
  }
}

// Cut, damaged, extended or too large payloads give the codes that decoding
// the whole payload first gave, from a file and from memory alike, and leave
// the content as it was.
TEST(DocumentSlices, DamagedPayloadsKeepTheirCodes) {
  TempDir dir;
  const auto file = (dir.path() / "damaged.cfg").string();
  const SeriDocument doc = denseDocument(denseItems(450 * 1000), 0);
  for (SeriOption option : kOptions) {
    const std::string image = fileImage(dir, doc, option);
    std::vector<std::string> damaged;
    for (std::size_t size : {std::size_t(8), std::size_t(9), std::size_t(12), image.size() / 3,
                             image.size() - 1, image.size() - 2}) {
      damaged.push_back(image.substr(0, size));
    }
    for (std::size_t at : {std::size_t(8), std::size_t(9), image.size() / 2, image.size() * 9 / 10,
                           image.size() - 1}) {
      for (char flip : {'\x01', '\x40', '\x7f'}) {
        damaged.push_back(image);
        damaged.back()[at] ^= flip;
      }
      damaged.push_back(image);
      damaged.back()[at] = '=';
    }
    damaged.push_back(image);
    damaged.back()[0] = 7;  // an unknown encoding
    damaged.push_back(image + "A");
    damaged.push_back(image + "AAAA");
    damaged.push_back(image + image.substr(8));

    for (const std::string& bytes : damaged) {
      const SdkError expected = wholeReadCode(bytes);
      SeriDocument fromMemory = denseDocument("[]", 1);
      EXPECT_EQ(fromMemory.readFromMemory(bytes.data(), bytes.size()), expected)
          << option.word << " size " << bytes.size();
      if (expected != 0) {
        EXPECT_EQ(fromMemory.memberText("pad"), "\"p\"");
      }
      writeFile(file, bytes);
      SeriDocument fromFile(JsonLoad::instance);
      EXPECT_EQ(fromFile.readFromFile(file), expected) << option.word << " size " << bytes.size();
    }

    const std::size_t limit = utils::algorithm::decodeLimit();
    utils::algorithm::setDecodeLimit(doc.stringfy().size() / 2);
    SeriDocument limited(JsonLoad::instance);
    EXPECT_EQ(limited.readFromMemory(image.data(), image.size()), wholeReadCode(image));
    EXPECT_EQ(wholeReadCode(image), utils::errc::payloadTooLarge);
    writeFile(file, image);
    EXPECT_EQ(limited.readFromFile(file), utils::errc::payloadTooLarge);
    utils::algorithm::setDecodeLimit(limit);
  }
}
