#include <param/seri/internal/payloadText.h>

#include <algorithm>

#include <utils/algorithm/base64.h>
#include <utils/algorithm/codec.h>
#include <utils/algorithm/xor.h>

#include <param/errors.h>
#include <param/seri/internal/documentKeys.h>

namespace param {

namespace alg = utils::algorithm;

SdkError MemoryPayload::read(std::uint64_t offset, std::size_t count, const std::uint8_t*& data) {
  if (offset > size_ || count > size_ - offset) return utils::errc::fileIoError;
  data = bytes_ + offset;
  return 0;
}

SdkError FilePayload::read(std::uint64_t offset, std::size_t count, const std::uint8_t*& data) {
  if (buffer_.size() < count) buffer_.resize(count);
  if (SdkError e = file_.read(offset_ + offset, buffer_.data(), count)) return e;
  data = reinterpret_cast<const std::uint8_t*>(buffer_.data());
  return 0;
}

bool PayloadText::handles(SeriOption option) {
  const unsigned encoding = option.encoding();
  return encoding == SeriOption::Base64 || encoding == SeriOption::Xor ||
         encoding == SeriOption::Lzma;
}

PayloadText::PayloadText(PayloadBytes& bytes, SeriOption option, std::size_t slice)
    : bytes_(bytes), option_(option), slice_((std::max<std::size_t>(slice, 1) + 15) / 16 * 16) {}

std::size_t PayloadText::sizeHint() const {
  const std::uint64_t size = bytes_.size();
  switch (option_.encoding()) {
    case SeriOption::Base64:
      return static_cast<std::size_t>(size / 4 * 3);
    case SeriOption::Lzma:
      return static_cast<std::size_t>(std::min<std::uint64_t>(size * 8, alg::decodeLimit()));
    default:
      return static_cast<std::size_t>(size);
  }
}

// The checks that decoding at once makes before decoding anything.
SdkError PayloadText::start() {
  const std::uint64_t size = bytes_.size();
  switch (option_.encoding()) {
    case SeriOption::Base64: {
      if (size % 4 != 0) return utils::errc::badBase64;
      if (size == 0) return 0;
      const std::uint8_t* last = nullptr;
      if (SdkError e = bytes_.read(size - 4, 4, last)) return e;
      // decodedSize of the last quad alone: 3 less its padding.
      const std::uint64_t decoded = size / 4 * 3 - (3 - alg::base64::decodedSize(last, 4));
      return decoded > alg::decodeLimit() ? utils::errc::payloadTooLarge : 0;
    }
    case SeriOption::Xor:
      return size > alg::decodeLimit() ? utils::errc::payloadTooLarge : 0;
    case SeriOption::Lzma:
      return size == 0 ? utils::errc::corruptLzma : 0;
    default:
      return errc::badFormat;
  }
}

SdkError PayloadText::next(const char*& data, std::size_t& size) {
  size = 0;
  if (!started_) {
    started_ = true;
    if (SdkError e = start()) return e;
  }
  switch (option_.encoding()) {
    case SeriOption::Base64:
      return nextBase64(data, size);
    case SeriOption::Xor:
      return nextXor(data, size);
    default:
      return nextLzma(data, size);
  }
}

SdkError PayloadText::readSlice(const std::uint8_t*& in, std::size_t& count) {
  count = static_cast<std::size_t>(std::min<std::uint64_t>(slice_, bytes_.size() - at_));
  if (SdkError e = bytes_.read(at_, count, in)) return e;
  at_ += count;
  return 0;
}

SdkError PayloadText::nextBase64(const char*& data, std::size_t& size) {
  if (at_ == bytes_.size()) return 0;
  const std::uint8_t* in = nullptr;
  std::size_t count = 0;
  if (SdkError e = readSlice(in, count)) return e;
  text_.resize(count / 4 * 3);
  const bool last = at_ == bytes_.size();
  if (SdkError e = alg::base64::decodeTo(in, count, last, text_.data())) return e;
  data = text_.data();
  size = last ? alg::base64::decodedSize(in, count) : count / 4 * 3;
  return 0;
}

SdkError PayloadText::nextXor(const char*& data, std::size_t& size) {
  if (at_ == bytes_.size()) return 0;
  const std::uint8_t* in = nullptr;
  std::size_t count = 0;
  if (SdkError e = readSlice(in, count)) return e;
  // Every slice but the last is a multiple of the key's 16 bytes: each starts
  // at the key's first byte.
  text_.resize(count);
  alg::XOR::encodeTo(in, count, documentKey(option_.keyIndex()), 16, text_.data());
  data = text_.data();
  size = count;
  return 0;
}

SdkError PayloadText::nextLzma(const char*& data, std::size_t& size) {
  text_.resize(slice_);
  while (!lzma_.finished()) {
    if (lzma_.wantsInput()) {
      const std::uint8_t* in = nullptr;
      std::size_t count = 0;
      if (SdkError e = readSlice(in, count)) return e;
      lzma_.feed(in, count, at_ == bytes_.size());
    }
    std::size_t produced = 0;
    if (SdkError e = lzma_.drain(text_.data(), text_.size(), produced)) return e;
    if (produced != 0) {
      data = text_.data();
      size = produced;
      return 0;
    }
  }
  return 0;
}

}  // namespace param
