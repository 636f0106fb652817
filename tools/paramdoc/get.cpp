// paramdoc get: the JSON value at a key path.
#include <cstdio>

#include "command.h"
#include "document.h"
#include "jsonTree.h"
#include "keyPath.h"

namespace paramdoc {
namespace {

class Get : public Command {
 public:
  void define(CLI::App& cmd) override {
    cmd.add_option("file", file_, "Document file ('-': standard input)")->required();
    cmd.add_option("path", path_, "Key path, as in pens.params[3].laserPower ('': all)")
        ->required();
    cmd.add_option("-i,--indent", indent_, "Spaces per level for objects and arrays")
        ->capture_default_str();
    cmd.add_flag("-r,--raw", raw_, "Print a string without quotes or escapes");
    cmd.footer(
        "Key paths join member names with '.' and array elements with [index]; a\n"
        "backslash takes the next character into the name (a\\.b is the member \"a.b\").\n"
        "Examples:\n"
        "  paramdoc get job.cfg pens.params[3].laserPower\n"
        "  paramdoc get job.cfg pens.params[3]\n"
        "  paramdoc get --raw job.cfg pens.params[3].penName");
  }

  int run() override {
    KeyPath path;
    std::string error;
    if (!parseKeyPath(path_, path, error)) return usage("get", "key path " + path_ + ": " + error);
    Input input;
    boost::json::value root;
    if (!input.open(file_) || !readJsonTree(input, root)) return kFailure;
    const boost::json::value* value = findValue(root, path, error);
    if (value == nullptr) return fail(input.name(), error);
    if (raw_ && value->is_string()) {
      const boost::json::string& s = value->get_string();
      writeOutput("-", std::string(s.data(), s.size()) + "\n");
    } else {
      print("%s\n", formatJson(*value, indent_).c_str());
    }
    return kSuccess;
  }

 private:
  std::string file_, path_;
  int indent_ = 2;
  bool raw_ = false;
};

}  // namespace

PARAMDOC_COMMAND(Get, "get", "Print the JSON value at a key path")

}  // namespace paramdoc
