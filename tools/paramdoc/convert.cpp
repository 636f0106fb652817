// paramdoc convert: a document written again in another encoding.
#include "command.h"
#include "document.h"

namespace paramdoc {
namespace {

class Convert : public Command {
 public:
  void define(CLI::App& cmd) override {
    cmd.add_option("input", input_, "Document file to read ('-': standard input)")->required();
    cmd.add_option("output", output_, "Document file to write ('-': standard output)")->required();
    choice_.define(cmd, "(default lzma)");
    cmd.footer(
        "The content and the information block stay as they are.\n"
        "Examples:\n"
        "  paramdoc convert old.cfg new.cfg --encoding base64\n"
        "  paramdoc convert job.cfg job-aes.cfg --aes gcm --key 2");
  }

  int run() override {
    param::SeriOption option;
    if (!choice_.resolve("convert", param::SeriOption(param::SeriOption::Lzma), option)) {
      return kUsage;
    }
    Input input;
    if (!input.open(input_)) return kFailure;
    param::SeriDocument doc(utils::JsonLoad::instance);
    if (!loadDocument(input, doc)) return kFailure;
    return writeDocument(doc, output_, option) ? kSuccess : kFailure;
  }

 private:
  std::string input_, output_;
  EncodingChoice choice_;
};

}  // namespace

PARAMDOC_COMMAND(Convert, "convert", "Write a document again in another encoding")

}  // namespace paramdoc
