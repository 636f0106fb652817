// paramdoc pack: a document file from JSON text.
#include "command.h"
#include "document.h"

namespace paramdoc {
namespace {

class Pack : public Command {
 public:
  void define(CLI::App& cmd) override {
    cmd.add_option("json", input_, "JSON text holding one object ('-': standard input)")
        ->required();
    cmd.add_option("output", output_, "Document file to write ('-': standard output)")->required();
    choice_.define(cmd, "(default lzma)");
    cmd.footer(
        "Examples:\n"
        "  paramdoc pack job.json job.cfg\n"
        "  paramdoc pack job.json job.cfg --aes cbc --key 2\n"
        "  paramdoc show old.cfg | sed s/Default/Cut/ | paramdoc pack - new.cfg");
  }

  int run() override {
    param::SeriOption option;
    if (!choice_.resolve("pack", param::SeriOption(param::SeriOption::Lzma), option)) {
      return kUsage;
    }
    Input input;
    if (!input.open(input_)) return kFailure;
    param::SeriDocument doc(utils::JsonSave::instance, "");
    const std::string_view text = input.bytes();
    if (param::SdkError e = doc.parser(text.data(), text.size())) {
      return fail(input.name(), describe(e));
    }
    return writeDocument(doc, output_, option) ? kSuccess : kFailure;
  }

 private:
  std::string input_, output_;
  EncodingChoice choice_;
};

}  // namespace

PARAMDOC_COMMAND(Pack, "pack", "Make a document file from a JSON object")

}  // namespace paramdoc
