#include "document.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <random>

#include <param/errors.h>

#include "command.h"

namespace paramdoc {

namespace {

const char* const kEncodingNames[] = {"base64", "xor", "lzma", "aes"};
// AES table index (option bits 4-5) by mode name.
const char* const kAesNames[] = {"gcm", "cfb", "cbc", "ctr"};

unsigned indexOf(const char* const (&names)[4], const std::string& name) {
  for (unsigned i = 0; i < 4; ++i) {
    if (name == names[i]) return i;
  }
  return 0;
}

// A fresh folder of our own under the system's temporary folder.
bool makeScratchFolder(std::filesystem::path& out) {
  std::error_code ec;
  const std::filesystem::path base = std::filesystem::temp_directory_path(ec);
  if (ec) return failed("temporary folder", ec.message());
  std::random_device random;
  for (int attempt = 0; attempt < 16; ++attempt) {
    out = base / ("paramdoc-" + std::to_string(random()));
    if (std::filesystem::create_directory(out, ec)) return true;
    if (ec) return failed(out.string(), ec.message());
  }
  return failed(base.string(), "no free name for a temporary folder");
}

}  // namespace

param::SeriOption headerOption(std::string_view bytes) {
  std::uint64_t word = 0;
  for (std::size_t i = 0; i < param::SeriDocument::kHeaderSize && i < bytes.size(); ++i) {
    word |= std::uint64_t(static_cast<unsigned char>(bytes[i])) << (8 * i);
  }
  return param::SeriOption(word);
}

std::string describeOption(param::SeriOption option) {
  const unsigned encoding = option.encoding();
  if (encoding > param::SeriOption::Aes) return std::to_string(encoding) + " (unknown)";
  std::string text = kEncodingNames[encoding];
  if (encoding == param::SeriOption::Aes) {
    text += std::string(" (") + kAesNames[option.aesAlgorithm()] + ")";
  }
  if (encoding == param::SeriOption::Xor || encoding == param::SeriOption::Aes) {
    text += ", key " + std::to_string(option.keyIndex());
  }
  return text;
}

ReadResult readDocument(const Input& input, param::SeriDocument& doc) {
  ReadResult result;
  const std::string_view bytes = input.bytes();
  result.code = doc.readFromMemory(bytes.data(), bytes.size());
  // The content is parsed when the block is missing (key missing) or when
  // the block is there at all; every earlier failure leaves it empty.
  result.noInfo = result.code != 0 && (result.code == utils::errc::keyMissing ||
                                       doc.contains(param::SeriDocument::kInfoKey));
  return result;
}

std::string readFailure(const ReadResult& read) {
  if (read.code == utils::errc::wrongType && !read.noInfo) {
    return "the document is not a JSON object";
  }
  if (read.noInfo && read.code == utils::errc::keyMissing) return "no information block";
  return read.noInfo ? "unusable information block: " + describe(read.code) : describe(read.code);
}

bool loadDocument(const Input& input, param::SeriDocument& doc) {
  const ReadResult read = readDocument(input, doc);
  if (!read.ok()) return failed(input.name(), readFailure(read));
  if (read.noInfo) warn(input.name(), readFailure(read));
  return true;
}

bool writeDocument(const param::SeriDocument& doc, const std::string& target,
                   param::SeriOption option) {
  if (target != "-") {
    const param::SdkError e = doc.writeToFile(target, option);
    return e == 0 || failed(target, describe(e));
  }
  // Standard output: the library writes files, so the document goes through
  // a file of our own that is then copied out.
  std::filesystem::path folder;
  if (!makeScratchFolder(folder)) return false;
  const std::filesystem::path file = folder / "document";
  bool ok = false;
  if (const param::SdkError e = doc.writeToFile(file.string(), option)) {
    fail("standard output", describe(e));
  } else {
    Input written;
    ok = written.open(file.string()) && writeOutput("-", written.bytes());
  }
  std::error_code ec;
  std::filesystem::remove_all(folder, ec);
  return ok;
}

void EncodingChoice::define(CLI::App& cmd, const std::string& defaultsText) {
  encodingOpt_ = cmd.add_option("-e,--encoding", encoding_, "Payload encoding " + defaultsText)
                     ->check(CLI::IsMember({"base64", "xor", "lzma", "aes"}));
  aesOpt_ = cmd.add_option("--aes", aes_, "AES mode (implies --encoding aes; default gcm)")
                ->check(CLI::IsMember({"gcm", "cfb", "cbc", "ctr"}));
  keyOpt_ = cmd.add_option("-k,--key", key_, "Stored key index for xor and aes (default 0)")
                ->check(CLI::Range(0u, 3u));
}

bool EncodingChoice::resolve(const std::string& command, param::SeriOption base,
                             param::SeriOption& out) const {
  const bool hasEncoding = encodingOpt_->count() > 0;
  const bool hasAes = aesOpt_->count() > 0;
  const bool hasKey = keyOpt_->count() > 0;

  unsigned encoding = base.encoding();
  if (hasEncoding) {
    encoding = indexOf(kEncodingNames, encoding_);
  } else if (hasAes) {
    encoding = param::SeriOption::Aes;
  }
  if (encoding > param::SeriOption::Aes) {
    usage(command, "the input's encoding " + std::to_string(encoding) +
                       " is unknown; choose one with --encoding");
    return false;
  }
  if (hasAes && encoding != param::SeriOption::Aes) {
    usage(command, "--aes needs --encoding aes, not --encoding " + encoding_);
    return false;
  }
  const bool keyed = encoding == param::SeriOption::Xor || encoding == param::SeriOption::Aes;
  if (hasKey && !keyed) {
    usage(command, std::string("--key needs --encoding xor or aes; ") + kEncodingNames[encoding] +
                       " takes no key");
    return false;
  }

  const bool sameEncoding = encoding == base.encoding();
  unsigned aes = 0;
  if (encoding == param::SeriOption::Aes) {
    aes = hasAes ? indexOf(kAesNames, aes_) : sameEncoding ? base.aesAlgorithm() : 0;
  }
  unsigned key = 0;
  if (keyed) key = hasKey ? key_ : (sameEncoding ? base.keyIndex() : 0);

  const param::SeriOption low(static_cast<param::SeriOption::Encoding>(encoding), aes, key);
  out = param::SeriOption((base.word & ~std::uint64_t{0xFF}) | low.word);
  return true;
}

}  // namespace paramdoc
