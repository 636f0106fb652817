// paramdoc check: whether documents read as a host would read them.
#include <cstdio>
#include <vector>

#include "command.h"
#include "document.h"

namespace paramdoc {
namespace {

class Check : public Command {
 public:
  void define(CLI::App& cmd) override {
    cmd.add_option("files", files_, "Document files ('-': standard input)")->required();
    cmd.footer(
        "Prints one line per file: 'ok' or why the library refuses it. A document\n"
        "without its information block is refused, as a host's read refuses it.\n"
        "Exit status 1 when any file fails.\n"
        "Examples:\n"
        "  paramdoc check *.cfg\n"
        "  paramdoc check customer.cfg || echo \"ask for the file again\"");
  }

  int run() override {
    int failures = 0;
    bool stdinUsed = false;
    for (const std::string& file : files_) {
      if (file == "-") {
        if (stdinUsed) return usage("check", "standard input ('-') can be read only once");
        stdinUsed = true;
      }
    }
    for (const std::string& file : files_) {
      Input input;
      if (!input.open(file)) {
        ++failures;
        continue;
      }
      param::SeriDocument doc(utils::JsonLoad::instance);
      const ReadResult read = readDocument(input, doc);
      if (read.code == 0) {
        print("%s: ok\n", input.name().c_str());
      } else {
        print("%s: %s\n", input.name().c_str(), readFailure(read).c_str());
        ++failures;
      }
    }
    return failures == 0 ? kSuccess : kFailure;
  }

 private:
  std::vector<std::string> files_;
};

}  // namespace

PARAMDOC_COMMAND(Check, "check", "Read documents and report any that fail")

}  // namespace paramdoc
