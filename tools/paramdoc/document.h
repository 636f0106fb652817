#pragma once

// Documents as paramdoc reads and writes them: through the library, from any
// input, with the encoding options shared by the commands that write.

#include <cstdint>
#include <string>

#include <CLI/CLI.hpp>

#include <param/seri/seriDocument.h>
#include <param/seri/seriOption.h>

#include "io.h"

namespace paramdoc {

// The option word at the start of `bytes` (at least 8 of them).
param::SeriOption headerOption(std::string_view bytes);
// "lzma", "aes (gcm), key 2", "xor, key 1", "7 (unknown)".
std::string describeOption(param::SeriOption option);

// Reads the document in `input` with the library, as a host would. A payload
// that decodes and parses but whose information block is missing or unusable
// gives `noInfo` and the library's code, with the content in `doc`.
struct ReadResult {
  param::SdkError code = 0;
  bool noInfo = false;
  bool ok() const { return code == 0 || noInfo; }
};
ReadResult readDocument(const Input& input, param::SeriDocument& doc);
// Why a read failed, in words: the library's, or that the text is no object.
std::string readFailure(const ReadResult& read);

// readDocument for commands that show or edit a document: a missing
// information block is a warning, any other failure is reported and false.
bool loadDocument(const Input& input, param::SeriDocument& doc);

// Writes `doc` to `target` (standard output for "-") with `option`, reporting
// a failure with the file's name. The information block is stored as on any write.
bool writeDocument(const param::SeriDocument& doc, const std::string& target,
                   param::SeriOption option);

// --encoding, --aes and --key of the commands that write a document. An
// option that needs another implies it or is refused: --aes implies
// --encoding aes and is refused with another encoding; --key needs XOR or AES.
class EncodingChoice {
 public:
  void define(CLI::App& cmd, const std::string& defaultsText);

  // The option word to write: what was given, over `base` (the encoding
  // the command writes when nothing is given). Bits 8-63 of `base` are kept.
  // False, after a usage message, for a combination that makes no sense.
  bool resolve(const std::string& command, param::SeriOption base, param::SeriOption& out) const;

 private:
  std::string encoding_, aes_;
  unsigned key_ = 0;
  CLI::Option* encodingOpt_ = nullptr;
  CLI::Option* aesOpt_ = nullptr;
  CLI::Option* keyOpt_ = nullptr;
};

}  // namespace paramdoc
