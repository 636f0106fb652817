// paramdoc set: stores one JSON value at a key path and writes the document
// back in its own encoding.
#include <boost/json/serialize.hpp>

#include "command.h"
#include "document.h"
#include "jsonTree.h"
#include "keyPath.h"

namespace paramdoc {
namespace {

namespace json = boost::json;

// Whether `to` may replace `from` without --force: the same kind of value
// (any two numbers are the same kind), or a value in place of null.
bool sameKind(const json::value& from, const json::value& to) {
  auto number = [](const json::value& v) { return v.is_int64() || v.is_uint64() || v.is_double(); };
  return from.is_null() || (number(from) && number(to)) || from.kind() == to.kind();
}

class Set : public Command {
 public:
  void define(CLI::App& cmd) override {
    cmd.add_option("file", file_, "Document file ('-': standard input)")->required();
    cmd.add_option("path", path_, "Key path, as in pens.params[3].laserPower")->required();
    cmd.add_option("value", value_, "JSON value: 75, true, '\"deep cut\"', '{\"x\": 1}'")
        ->required();
    cmd.add_option("-o,--output", output_,
                   "Write here instead of back to FILE ('-': standard output)");
    cmd.add_flag("-f,--force", force_, "Store a value of another JSON type than the old one");
    choice_.define(cmd, "(default: the file's own)");
    cmd.footer(
        "The document is written back in the encoding, AES mode and key of its header\n"
        "unless --encoding, --aes or --key say otherwise; nothing else changes. The last\n"
        "member of the path may be new; array elements must exist. A standard input\n"
        "document is written to standard output.\n"
        "Examples:\n"
        "  paramdoc set job.cfg pens.params[3].laserPower 75\n"
        "  paramdoc set job.cfg pens.params[3].penName '\"deep cut\"'\n"
        "  paramdoc set job.cfg pens.params[3].wobble '{\"bEnable\": true, \"wobbleType\": 0}' "
        "--force\n"
        "  paramdoc set factory.cfg board.galvoParam.galvoSize 160 -o customer.cfg");
  }

  int run() override {
    KeyPath path;
    std::string error;
    if (!parseKeyPath(path_, path, error)) return usage("set", "key path " + path_ + ": " + error);
    if (path.empty()) return usage("set", "give the key path of the value to change");
    if (!path.front().isIndex && path.front().key == param::SeriDocument::kInfoKey) {
      return usage("set", "the information block is written by the library itself");
    }
    json::value value;
    if (!parseJson(value_, value, error)) {
      return usage("set", "the value is no JSON (" + error +
                              "); a string needs its quotes, as in '\"deep cut\"'");
    }
    const std::string target = output_.empty() ? file_ : output_;

    Input input;
    if (!input.open(file_)) return kFailure;
    param::SeriDocument doc(utils::JsonLoad::instance);
    if (!loadDocument(input, doc)) return kFailure;
    param::SeriOption option;
    if (!choice_.resolve("set", headerOption(input.bytes()), option)) return kUsage;

    json::value root;
    if (!parseJson(doc.stringfy(), root, error)) return fail(input.name(), error);
    if (!store(root, path, std::move(value), input.name())) return kFailure;

    const std::string text = json::serialize(root);
    if (param::SdkError e = doc.parser(text.data(), text.size())) {
      return fail(input.name(), describe(e));
    }
    return writeDocument(doc, target, option) ? kSuccess : kFailure;
  }

 private:
  // Puts `value` at `path`: over an existing value of the same kind, or as a
  // new last member of an existing object.
  bool store(json::value& root, const KeyPath& path, json::value value,
             const std::string& name) const {
    std::string error;
    json::value* slot = findValue(root, path, error);
    if (slot == nullptr) {
      std::string parentError;
      json::value* parent = findValue(root, KeyPath(path.begin(), path.end() - 1), parentError);
      if (parent == nullptr || !parent->is_object() || path.back().isIndex) {
        return failed(name, error);
      }
      parent->get_object()[path.back().key] = std::move(value);
      return true;
    }
    if (!force_ && !sameKind(*slot, value)) {
      return failed(name, path_ + " holds " + kindName(*slot) + ", not " + kindName(value) +
                              " (--force stores it anyway)");
    }
    *slot = std::move(value);
    return true;
  }

  std::string file_, path_, value_, output_;
  bool force_ = false;
  EncodingChoice choice_;
};

}  // namespace

PARAMDOC_COMMAND(Set, "set", "Store a JSON value at a key path")

}  // namespace paramdoc
