// paramdoc validate: loads members of a document as record types and lists
// every key a host's load would skip.
#include <map>

#include <utils/jsonPath.h>

#include <param/seri/loadReport.h>
#include <param/seri/recordRegistry.h>

#include "command.h"
#include "document.h"
#include "io.h"

namespace paramdoc {
namespace {

// The members a host's documents usually hold, for validate without --as.
const std::map<std::string, std::string> kUsual = {
    {"pens", "PenArray"},         {"board", "LmcParam"}, {"lmcParam", "LmcParam"},
    {"markCtrl", "MarkCtrlData"}, {"fill", "FillParam"}, {"array", "ArrayParam"}};

class Validate : public Command {
 public:
  void define(CLI::App& cmd) override {
    cmd.add_option("file", file_, "Document file ('-': standard input)")->required();
    cmd.add_option("--as", as_, "MEMBER=TYPE: load the member at a key path as a record type")
        ->type_name("MEMBER=TYPE");
    cmd.footer(
        "Each member is loaded as a host would load it, over the type's built-in\n"
        "defaults, and every key that would be skipped (missing, of the wrong type,\n"
        "out of range) is listed with its path, the reason, what was found and the\n"
        "value kept. Exit status 1 when any key would be skipped.\n"
        "Without --as, the usual members are checked where present: pens=PenArray,\n"
        "board=LmcParam, lmcParam=LmcParam, markCtrl=MarkCtrlData, fill=FillParam,\n"
        "array=ArrayParam.\n"
        "Examples:\n"
        "  paramdoc validate job.cfg\n"
        "  paramdoc validate job.cfg --as pens=PenArray --as board=LmcParam\n"
        "  paramdoc validate job.cfg --as pens.params[3]=PenParam");
  }

  int run() override {
    std::vector<std::pair<std::string, std::string>> members;
    for (const std::string& a : as_) {
      const auto eq = a.rfind('=');
      if (eq == std::string::npos || eq == 0 || eq + 1 == a.size()) {
        return usage("validate", "--as " + a + ": expected MEMBER=TYPE");
      }
      members.emplace_back(a.substr(0, eq), a.substr(eq + 1));
      if (param::RecordRegistry::find(members.back().second) == nullptr) {
        return usage("validate", "no record type " + members.back().second +
                                     " (paramdoc schema --list names them)");
      }
    }
    Input input;
    param::SeriDocument doc(utils::JsonLoad::instance);
    if (!input.open(file_) || !loadDocument(input, doc)) return kFailure;
    if (members.empty()) {
      for (const auto& [member, type] : kUsual) {
        if (doc.contains(member.c_str())) members.emplace_back(member, type);
      }
      if (members.empty())
        return fail(input.name(), "none of the usual members; name them with --as");
    }

    int skipped = 0;
    for (const auto& [member, typeName] : members) {
      utils::JsonPath path;
      std::string why;
      if (utils::parseJsonPath(member, path, &why) != 0) {
        return usage("validate", "key path " + member + ": " + why);
      }
      std::string text;
      param::SeriObject obj(utils::JsonLoad::instance);
      if (param::SdkError e = utils::getJsonText(doc, path, text)) {
        ++skipped;
        print("%s: %s\n", member.c_str(), param::errorText(e));
        continue;
      }
      if (obj.parser(text.data(), text.size()) != 0) {
        ++skipped;
        print("%s: not an object, so no %s\n", member.c_str(), typeName.c_str());
        continue;
      }
      const param::RecordType* type = param::RecordRegistry::find(typeName);
      param::SeriObject saved(utils::JsonSave::instance);
      param::LoadReport report;
      const param::SdkError e = type->loadAndSave(obj, saved);
      for (const param::SkippedKey& k : report.entries()) {
        ++skipped;
        print("%s.%s: %s; found %s; kept %s\n", member.c_str(), k.path.c_str(),
              param::errorText(k.code), k.found.empty() ? "nothing" : k.found.c_str(),
              k.kept.c_str());
      }
      if (e != 0 && report.empty()) {
        ++skipped;
        print("%s: %s\n", member.c_str(), param::errorText(e));
      }
    }
    if (skipped == 0) print("%s: every key reads\n", input.name().c_str());
    return skipped == 0 ? kSuccess : kFailure;
  }

 private:
  std::string file_;
  std::vector<std::string> as_;
};

}  // namespace

PARAMDOC_COMMAND(Validate, "validate", "List the keys a host's load of a document would skip")

}  // namespace paramdoc
