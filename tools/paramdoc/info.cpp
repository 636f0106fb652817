// paramdoc info: a document's header, writer and members, read in one pass
// over its JSON text: no tree is built, so a large document needs little more
// memory than its text.
#include <cstdio>

#include <param/seri/seriInfo.h>

#include "command.h"
#include "document.h"
#include "outline.h"

namespace paramdoc {
namespace {

class Info : public Command {
 public:
  void define(CLI::App& cmd) override {
    cmd.add_option("file", file_, "Document file ('-': standard input)")->required();
    cmd.footer(
        "Examples:\n"
        "  paramdoc info job.cfg\n"
        "  ssh machine cat /opt/job.cfg | paramdoc info -");
  }

  int run() override {
    Input input;
    if (!input.open(file_)) return kFailure;
    const std::string_view bytes = input.bytes();
    print("file          %s (%zu bytes)\n", input.name().c_str(), bytes.size());
    if (bytes.size() < param::SeriDocument::kHeaderSize) {
      return fail(input.name(), describe(utils::errc::fileTooShort));
    }
    const param::SeriOption option = headerOption(bytes);
    print("header word   0x%016llx\n", static_cast<unsigned long long>(option.word));
    print("encoding      %s\n", describeOption(option).c_str());

    Outline outline;
    std::size_t textSize = 0;
    {
      std::string text;
      if (param::SdkError e =
              param::SeriDocument::decodeFromMemory(bytes.data(), bytes.size(), text)) {
        return fail(input.name(), describe(e));
      }
      textSize = text.size();
      std::string error;
      if (!outlineJson(text, param::SeriDocument::kInfoKey, outline, error)) {
        return fail(input.name(), error);
      }
    }

    param::SeriInfo block;
    const char* problem = nullptr;
    param::SdkError code = 0;
    if (!outline.hasInfo) {
      problem = "no information block";
    } else {
      param::SeriObject obj(utils::JsonLoad::instance);
      code = outline.infoIsObject ? obj.parser(outline.infoText.data(), outline.infoText.size())
                                  : utils::errc::wrongType;
      if (code == 0) code = block.load(obj);
      if (code != 0) problem = "unusable information block";
    }
    if (problem == nullptr) {
      print("written by    %s, %s, %u-bit\n", block.ver.toString().c_str(), block.os.c_str(),
            block.arch);
      print("extension     %s\n", block.extension.c_str());
    } else {
      print("written by    unknown (%s)\n", problem);
      warn(input.name(), code == 0 ? problem : std::string(problem) + ": " + describe(code));
    }
    print("JSON text     %zu bytes\n", textSize);
    std::string members;
    for (const std::string& key : outline.members) {
      if (key != param::SeriDocument::kInfoKey) members += " \"" + key + "\"";
    }
    print("members      %s\n", members.c_str());
    return kSuccess;
  }

 private:
  std::string file_;
};

}  // namespace

PARAMDOC_COMMAND(Info, "info", "Print a document's header, encoding, writer and members")

}  // namespace paramdoc
