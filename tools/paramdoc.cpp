// paramdoc: inspects, checks, packs and converts parameter document files.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <param/param.h>

namespace {

const std::map<std::string, unsigned> kEncodings = {{"base64", param::SeriOption::Base64},
                                                    {"xor", param::SeriOption::Xor},
                                                    {"lzma", param::SeriOption::Lzma},
                                                    {"aes", param::SeriOption::Aes}};
// AES algorithm table index by mode name.
const std::map<std::string, unsigned> kAesModes = {{"gcm", 0}, {"cfb", 1}, {"cbc", 2}, {"ctr", 3}};
const char* const kEncodingNames[] = {"base64", "xor", "lzma", "aes"};
const char* const kAesNames[] = {"gcm", "cfb", "cbc", "ctr"};

// The encoding options shared by pack and convert.
struct EncodingChoice {
  std::string encoding = "lzma";
  std::string aes = "gcm";
  unsigned key = 0;

  void addTo(CLI::App* cmd) {
    cmd->add_option("-e,--encoding", encoding, "Payload encoding")
        ->check(CLI::IsMember({"base64", "xor", "lzma", "aes"}))
        ->capture_default_str();
    cmd->add_option("--aes", aes, "AES mode, with --encoding aes")
        ->check(CLI::IsMember({"gcm", "cfb", "cbc", "ctr"}))
        ->capture_default_str();
    cmd->add_option("-k,--key", key, "Stored key index for xor and aes")
        ->check(CLI::Range(0u, 3u))
        ->capture_default_str();
  }

  param::SeriOption option() const {
    return param::SeriOption(static_cast<param::SeriOption::Encoding>(kEncodings.at(encoding)),
                             kAesModes.at(aes), key);
  }
};

int fail(const std::string& what, param::SdkError code) {
  std::fprintf(stderr, "paramdoc: %s: %s (0x%06x)\n", what.c_str(), param::errorText(code), code);
  return 1;
}

bool readBytes(const std::string& file, std::string& out) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return false;
  out.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return true;
}

void describeOption(std::uint64_t word) {
  const param::SeriOption option(word);
  std::printf("header word   0x%016llx\n", static_cast<unsigned long long>(word));
  if (option.encoding() <= 3) {
    std::printf("encoding      %s", kEncodingNames[option.encoding()]);
    if (option.encoding() == param::SeriOption::Aes) {
      std::printf(" (%s)", kAesNames[option.aesAlgorithm()]);
    }
    if (option.encoding() == param::SeriOption::Xor ||
        option.encoding() == param::SeriOption::Aes) {
      std::printf(", key %u", option.keyIndex());
    }
    std::printf("\n");
  } else {
    std::printf("encoding      %u (unknown)\n", option.encoding());
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "paramdoc: inspect, check, pack and convert parameter document files.\n"
      "A document file is an 8-byte option word followed by the document's JSON text,\n"
      "encoded as base64, XOR, LZMA (.xz) or AES."};
  app.require_subcommand(1);

  std::string file, input, output;
  int indent = 2;
  std::vector<std::string> files;
  EncodingChoice choice;

  auto* show = app.add_subcommand("show", "Print a document's JSON text");
  show->add_option("file", file, "Document file")->required();
  show->add_option("-i,--indent", indent, "Spaces per level; 0 prints one line")
      ->capture_default_str();

  auto* info = app.add_subcommand("info", "Print a document's header and information block");
  info->add_option("file", file, "Document file")->required();

  auto* check = app.add_subcommand("check", "Read documents and report any that fail");
  check->add_option("files", files, "Document files")->required();

  auto* pack = app.add_subcommand("pack", "Make a document file from a JSON object");
  pack->add_option("json", input, "JSON text file holding one object")->required();
  pack->add_option("output", output, "Document file to write")->required();
  choice.addTo(pack);

  auto* convert = app.add_subcommand("convert", "Write a document again in another encoding");
  convert->add_option("input", input, "Document file to read")->required();
  convert->add_option("output", output, "Document file to write")->required();
  choice.addTo(convert);

  CLI11_PARSE(app, argc, argv);

  // Quiet the library's own error lines: this tool reports failures itself.
  utils::Logger::setSink([](utils::LogLevel, std::string_view, std::string_view) {});

  if (*show) {
    param::SeriDocument doc(utils::JsonLoad::instance);
    if (param::SdkError e = doc.readFromFile(file)) return fail(file, e);
    std::printf("%s\n", doc.stringfy(indent).c_str());
    return 0;
  }

  if (*info) {
    std::string bytes;
    if (!readBytes(file, bytes)) return fail(file, param::errc::mapFailed);
    std::printf("file          %s (%zu bytes)\n", file.c_str(), bytes.size());
    if (bytes.size() < 8) return fail(file, utils::errc::fileTooShort);
    std::uint64_t word = 0;
    for (int i = 0; i < 8; ++i)
      word |= std::uint64_t(static_cast<unsigned char>(bytes[i])) << 8 * i;
    describeOption(word);
    param::SeriDocument doc(utils::JsonLoad::instance);
    if (param::SdkError e = doc.readFromFile(file)) return fail(file, e);
    const param::SeriInfo& block = *doc.info();
    std::printf("written by    %s, %s, %u-bit\n", block.ver.toString().c_str(), block.os.c_str(),
                block.arch);
    std::printf("extension     %s\n", block.extension.c_str());
    std::printf("JSON text     %zu bytes\n", doc.stringfy().size());
    std::printf("members       ");
    for (const auto& key : doc.keys()) {
      if (key != param::SeriDocument::kInfoKey) std::printf("\"%s\" ", key.c_str());
    }
    std::printf("\n");
    return 0;
  }

  if (*check) {
    int failed = 0;
    for (const auto& f : files) {
      param::SeriDocument doc(utils::JsonLoad::instance);
      if (param::SdkError e = doc.readFromFile(f)) {
        std::printf("%s: %s (0x%06x)\n", f.c_str(), param::errorText(e), e);
        ++failed;
      } else {
        std::printf("%s: ok\n", f.c_str());
      }
    }
    return failed == 0 ? 0 : 1;
  }

  param::SeriDocument doc(utils::JsonLoad::instance);
  if (*pack) {
    std::string text;
    if (!readBytes(input, text)) return fail(input, param::errc::mapFailed);
    if (param::SdkError e = doc.parser(text.data(), text.size())) return fail(input, e);
  } else if (param::SdkError e = doc.readFromFile(input)) {
    return fail(input, e);
  }
  if (param::SdkError e = doc.writeToFile(output, choice.option())) return fail(output, e);
  std::printf("wrote %s (%s)\n", output.c_str(), choice.encoding.c_str());
  return 0;
}
