// paramdoc show: a document's JSON text.
#include <cstdio>

#include "command.h"
#include "document.h"

namespace paramdoc {
namespace {

class Show : public Command {
 public:
  void define(CLI::App& cmd) override {
    cmd.add_option("file", file_, "Document file ('-': standard input)")->required();
    cmd.add_option("-i,--indent", indent_, "Spaces per level; 0 prints one line")
        ->capture_default_str();
    cmd.footer(
        "Examples:\n"
        "  paramdoc show job.cfg\n"
        "  paramdoc show --indent 0 job.cfg | jq .pens\n"
        "  cat job.cfg | paramdoc show -");
  }

  int run() override {
    Input input;
    if (!input.open(file_)) return kFailure;
    param::SeriDocument doc(utils::JsonLoad::instance);
    if (!loadDocument(input, doc)) return kFailure;
    print("%s\n", doc.stringfy(indent_).c_str());
    return kSuccess;
  }

 private:
  std::string file_;
  int indent_ = 2;
};

}  // namespace

PARAMDOC_COMMAND(Show, "show", "Print a document's JSON text")

}  // namespace paramdoc
