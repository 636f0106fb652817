#include <param/seri/seriDocument.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#include <utils/algorithm/aes.h>
#include <utils/algorithm/base64.h>
#include <utils/algorithm/codec.h>
#include <utils/algorithm/lzma.h>
#include <utils/algorithm/xor.h>
#include <utils/atomicFile.h>
#include <utils/fileError.h>
#include <utils/inFile.h>
#include <utils/logger.h>

#include <param/errors.h>
#include <param/seri/internal/documentKeys.h>
#include <param/seri/internal/payloadText.h>

namespace param {

namespace {

namespace alg = utils::algorithm;

// AES algorithm by the option word's bits 4-5.
constexpr alg::AESAlgorithm kAesTable[4] = {alg::AESAlgorithm::GCM, alg::AESAlgorithm::CFB,
                                            alg::AESAlgorithm::CBC, alg::AESAlgorithm::CTR};

// The encodings whose size is not known before encoding (base64 and XOR are
// written straight into the file).
SdkError encode(const std::string& text, SeriOption option, std::string& payload) {
  const std::uint8_t* key = documentKey(option.keyIndex());
  switch (option.encoding()) {
    case SeriOption::Lzma:
      return alg::lzma::compress(text.data(), text.size(), payload);
    case SeriOption::Aes:
      return alg::aes::encrypt(kAesTable[option.aesAlgorithm()], text.data(), text.size(), key, 16,
                               payload);
    default:
      return errc::unknownEncodingOnWrite;
  }
}

SdkError decode(const std::uint8_t* payload, std::size_t length, SeriOption option,
                std::string& text) {
  const std::uint8_t* key = documentKey(option.keyIndex());
  switch (option.encoding()) {
    case SeriOption::Base64:
      return alg::base64::decode(payload, length, text);
    case SeriOption::Xor:
      if (length > alg::decodeLimit()) return utils::errc::payloadTooLarge;
      alg::XOR::decode(payload, length, key, 16, text);
      return 0;
    case SeriOption::Lzma:
      return alg::lzma::decompress(payload, length, text);
    case SeriOption::Aes:
      return alg::aes::decrypt(kAesTable[option.aesAlgorithm()], payload, length, key, 16, text);
    default:
      return errc::badFormat;
  }
}

void storeWord(std::uint64_t word, std::uint8_t (&out)[SeriDocument::kHeaderSize]) {
  for (std::size_t i = 0; i < SeriDocument::kHeaderSize; ++i) {
    out[i] = static_cast<std::uint8_t>(word >> (8 * i));
  }
}

std::uint64_t loadWord(const std::uint8_t* in) {
  std::uint64_t word = 0;
  for (std::size_t i = 0; i < SeriDocument::kHeaderSize; ++i) {
    word |= static_cast<std::uint64_t>(in[i]) << (8 * i);
  }
  return word;
}

// "write document /data/job.cfg failed, 0x130004: reserve space for
// /data/job.cfg.tmp: no space left on device". A file that is not there is
// reported at information level: whether that is a fault is the caller's call.
void logFailure(const char* what, const utils::path& file, SdkError code) {
  const utils::FileFailure& cause = utils::lastFileFailure();
  const bool missing = cause.code != 0 && cause.osError == ENOENT && cause.path == file.string();
  utils::Logger log(missing ? utils::LogLevel::Info : utils::LogLevel::Error, "Param");
  log.write(what).write(" ").write(file).write(" failed, ").write(code);
  if (cause.code != 0) log.write(": ").write(cause.describe());
}

// Base64 and XOR need no buffer for the whole payload: the text is gathered
// from its pieces a slice at a time and encoded into the file. The slice is a
// multiple of 3 (base64 groups) and of 16 (the XOR key), and small enough to
// stay in cache.
constexpr std::size_t kSlice = 3 * 16 * 1024;

SdkError appendEncoded(utils::AtomicFile& out, const utils::JsonTextPieces& text,
                       SeriOption option) {
  const bool base64 = option.encoding() == SeriOption::Base64;
  std::unique_ptr<char[]> slice(new char[kSlice]);
  std::unique_ptr<char[]> encoded(new char[alg::base64::encodedSize(kSlice)]);
  std::size_t filled = 0;
  const auto flush = [&]() -> SdkError {
    std::size_t produced = filled;
    if (base64) {
      produced = alg::base64::encodedSize(filled);
      alg::base64::encodeTo(slice.get(), filled, encoded.get());
    } else {
      alg::XOR::encodeTo(slice.get(), filled, documentKey(option.keyIndex()), 16,
                         reinterpret_cast<std::uint8_t*>(encoded.get()));
    }
    filled = 0;
    return out.append(encoded.get(), produced);
  };
  for (std::string_view piece : text.pieces) {
    while (!piece.empty()) {
      const std::size_t n = std::min(kSlice - filled, piece.size());
      std::memcpy(slice.get() + filled, piece.data(), n);
      filled += n;
      piece.remove_prefix(n);
      if (filled == kSlice) {
        if (SdkError e = flush()) return e;
      }
    }
  }
  return filled > 0 ? flush() : 0;
}

}  // namespace

SeriDocument::SeriDocument(utils::JsonLoad tag) : SeriObject(tag) {
  setInfo(&info_);
}

SeriDocument::SeriDocument(utils::JsonSave tag, const std::string& extension)
    : SeriObject(tag), info_(extension) {
  setInfo(&info_);
}

SeriDocument::SeriDocument(SeriObject&& content, const SeriInfo* info)
    : SeriObject(std::move(content)), info_(info ? *info : SeriInfo()) {
  setInfo(&info_);
}

SeriDocument::SeriDocument(SeriDocument&& other) noexcept
    : SeriObject(std::move(other)), info_(std::move(other.info_)) {
  setInfo(&info_);
}

SeriDocument& SeriDocument::operator=(SeriDocument&& other) noexcept {
  SeriObject::operator=(std::move(other));
  info_ = std::move(other.info_);
  setInfo(&info_);
  return *this;
}

SeriDocument SeriDocument::clone() const {
  return SeriDocument(SeriObject::clone(), &info_);
}

SdkError SeriDocument::setSeriObject(const char* key, SeriObject&& child) {
  return SeriObject::setSeriObject(key, std::move(child));
}

SdkError SeriDocument::getSeriObject(const char* key, SeriObject& out) const {
  return SeriObject::getSeriObject(key, out);
}

SdkError SeriDocument::setSeriArray(const char* key, SeriArray&& child) {
  child.info_ = &info_;
  return SeriObject::setSeriArray(key, std::move(child));
}

SdkError SeriDocument::getSeriArray(const char* key, SeriArray& out) const {
  return SeriObject::getSeriArray(key, out);
}

SdkError SeriDocument::writeToFile(const utils::path& file, SeriOption option) const {
  utils::clearFileFailure();
  if (info_.extension.empty()) info_.extension = file.getExtensionA();

  // The block's own result is deliberately not checked: a document whose block
  // could not be built is still written.
  SeriObject block(utils::JsonSave::instance);
  if (info_.save(block) == 0) setJsonObjectOfConst(kInfoKey, std::move(block));

  const utils::JsonTextPieces text = textPieces();

  // Base64 and XOR are encoded slice by slice into the file; the other
  // encodings first into memory, so that a codec failure leaves no file behind.
  const unsigned encoding = option.encoding();
  const bool direct = encoding == SeriOption::Base64 || encoding == SeriOption::Xor;
  std::string payload;
  std::uint64_t payloadSize = 0;
  if (encoding == SeriOption::Base64) {
    payloadSize = alg::base64::encodedSize(text.size);
  } else if (encoding == SeriOption::Xor) {
    payloadSize = text.size;
  } else if (SdkError e = encode(text.joined(), option, payload)) {
    logFailure("encode document for", file, e);
    return e;
  } else {
    payloadSize = payload.size();
  }

  // Only a complete, flushed file replaces the target: on any failure the
  // temporary file is removed and the target keeps its old content.
  utils::AtomicFile out;
  std::uint8_t header[kHeaderSize];
  storeWord(option.word, header);
  SdkError result = out.open(file, payloadSize + kHeaderSize, errc::mapFailed);
  if (result == 0) result = out.append(header, kHeaderSize);
  if (result == 0) {
    result = direct ? appendEncoded(out, text, option) : out.append(payload.data(), payload.size());
  }
  if (result == 0) result = out.commit();
  if (result != 0) logFailure("write document", file, result);
  return result;
}

SdkError SeriDocument::readFromFile(const utils::path& file) {
  utils::clearFileFailure();
  const utils::InFile in(file);
  if (!in.is_open()) {
    logFailure("open document", file, errc::mapFailed);
    return errc::mapFailed;
  }
  if (in.size() < kHeaderSize) {
    logFailure("read document", file, utils::errc::fileTooShort);
    return utils::errc::fileTooShort;
  }
  std::uint8_t header[kHeaderSize];
  SdkError e = in.read(0, header, kHeaderSize);
  const SeriOption option(loadWord(header));

  // Base64, XOR and LZMA are read and decoded a slice at a time into the
  // text, which the document is then read from in place: the payload is
  // never held whole. An AES payload is decrypted whole, and dropped before
  // its text is parsed.
  if (e == 0 && PayloadText::handles(option)) {
    FilePayload payload(in, kHeaderSize);
    PayloadText text(payload, option);
    e = parser(text);
  } else if (e == 0 && option.encoding() != SeriOption::Aes) {
    e = errc::badFormat;
  } else if (e == 0) {
    // A payload whose size alone is refused is not read.
    const auto size = static_cast<std::size_t>(in.size() - kHeaderSize);
    e = alg::aes::checkPayloadSize(kAesTable[option.aesAlgorithm()], size);
    std::string text;
    if (e == 0) {
      const std::unique_ptr<std::uint8_t[]> bytes(new std::uint8_t[size]);
      e = in.read(kHeaderSize, bytes.get(), size);
      if (e == 0) e = decode(bytes.get(), size, option, text);
    }
    if (e == 0) e = parser(text.data(), text.size());
  }
  if (e == 0) {
    // A missing block is returned as it is, without the error-response step.
    SeriObject block(utils::JsonLoad::instance);
    e = getSeriObject(kInfoKey, block);
    if (e == 0) e = info_.load(block);
  }
  if (e != 0) logFailure("read document", file, e);
  return e;
}

SdkError SeriDocument::decodeFromMemory(const void* bytes, std::size_t size, std::string& text) {
  if (size < kHeaderSize) return utils::errc::fileTooShort;
  const auto* in = static_cast<const std::uint8_t*>(bytes);
  return decode(in + kHeaderSize, size - kHeaderSize, SeriOption(loadWord(in)), text);
}

SdkError SeriDocument::readFromMemory(const void* bytes, std::size_t size) {
  const auto* in = static_cast<const std::uint8_t*>(bytes);
  SdkError e = 0;
  if (size >= kHeaderSize && PayloadText::handles(SeriOption(loadWord(in)))) {
    MemoryPayload payload(in + kHeaderSize, size - kHeaderSize);
    PayloadText text(payload, SeriOption(loadWord(in)));
    e = parser(text);
  } else {
    std::string text;
    e = decodeFromMemory(bytes, size, text);
    if (e == 0) e = parser(text.data(), text.size());
  }
  if (e == 0) {
    // A missing block is returned as it is, without the error-response step.
    SeriObject block(utils::JsonLoad::instance);
    e = getSeriObject(kInfoKey, block);
    if (e == 0) e = info_.load(block);
  }
  if (e != 0) {
    utils::Logger(utils::LogLevel::Error, "Param")
        .write("read document from memory failed, ")
        .write(e);
  }
  return e;
}

}  // namespace param
