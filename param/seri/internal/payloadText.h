#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <utils/algorithm/lzma.h>
#include <utils/inFile.h>
#include <utils/json.h>

#include <param/seri/seriOption.h>

namespace param {

using utils::SdkError;

// The bytes of a document's payload, read a slice at a time.
class PayloadBytes {
 public:
  virtual ~PayloadBytes() = default;
  virtual std::uint64_t size() const = 0;
  // Points `data` at the `count` bytes from `offset`, valid until the next call.
  virtual SdkError read(std::uint64_t offset, std::size_t count, const std::uint8_t*& data) = 0;
};

// A payload in memory: slices point into it.
class MemoryPayload : public PayloadBytes {
 public:
  MemoryPayload(const std::uint8_t* bytes, std::size_t size) : bytes_(bytes), size_(size) {}
  std::uint64_t size() const override { return size_; }
  SdkError read(std::uint64_t offset, std::size_t count, const std::uint8_t*& data) override;

 private:
  const std::uint8_t* bytes_;
  std::size_t size_;
};

// The payload of an open file, from `offset` to the end: each slice is read
// into a buffer of its own, so only one slice of the file is in memory.
class FilePayload : public PayloadBytes {
 public:
  FilePayload(const utils::InFile& file, std::uint64_t offset) : file_(file), offset_(offset) {}
  std::uint64_t size() const override { return file_.size() - offset_; }
  SdkError read(std::uint64_t offset, std::size_t count, const std::uint8_t*& data) override;

 private:
  const utils::InFile& file_;
  std::uint64_t offset_;
  std::string buffer_;
};

// The JSON text of a base64, XOR or LZMA payload, decoded a slice at a time as
// the parser asks for it, so that the payload is never in memory whole. The codes are those of
// decoding the payload at once (the decode limit included), each given as soon as it is known.
class PayloadText : public utils::JsonTextSource {
 public:
  // About this many bytes of payload are read at a time; rounded up to a
  // multiple of 16, which keeps base64 quads and the XOR key aligned.
  static constexpr std::size_t kSlice = std::size_t(256) << 10;

  // Whether payloads of `option` are decoded this way (AES is not: its
  // payload is decrypted and authenticated whole).
  static bool handles(SeriOption option);

  PayloadText(PayloadBytes& bytes, SeriOption option, std::size_t slice = kSlice);

  SdkError next(const char*& data, std::size_t& size) override;
  std::size_t sizeHint() const override;

 private:
  SdkError start();
  // The next slice of the payload (`count` 0 at its end).
  SdkError readSlice(const std::uint8_t*& in, std::size_t& count);
  SdkError nextBase64(const char*& data, std::size_t& size);
  SdkError nextXor(const char*& data, std::size_t& size);
  SdkError nextLzma(const char*& data, std::size_t& size);

  PayloadBytes& bytes_;
  SeriOption option_;
  std::size_t slice_;
  std::uint64_t at_ = 0;  // payload bytes read so far
  bool started_ = false;
  std::string text_;  // the text of the current slice
  utils::algorithm::lzma::Decompressor lzma_;
};

}  // namespace param
