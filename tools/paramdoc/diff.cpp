// paramdoc diff: the differences between two documents, member by member,
// whatever their encodings.
#include <cstdio>
#include <vector>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <param/seri/seriDocument.h>

#include "command.h"
#include "document.h"
#include "jsonTree.h"
#include "keyPath.h"

namespace paramdoc {
namespace {

namespace json = boost::json;

struct Difference {
  enum Kind { Changed, Added, Removed } kind;
  KeyPath path;
  const json::value* from = nullptr;  // null when added
  const json::value* to = nullptr;    // null when removed
};

// Numbers compare by value: 60, 60.0 and 6e1 are the same.
bool sameNumber(const json::value& a, const json::value& b) {
  if (a.is_double() || b.is_double()) return a.to_number<double>() == b.to_number<double>();
  if (a.is_int64() && b.is_int64()) return a.get_int64() == b.get_int64();
  if (a.is_uint64() && b.is_uint64()) return a.get_uint64() == b.get_uint64();
  const std::int64_t s = a.is_int64() ? a.get_int64() : b.get_int64();
  const std::uint64_t u = a.is_uint64() ? a.get_uint64() : b.get_uint64();
  return s >= 0 && static_cast<std::uint64_t>(s) == u;
}

bool isNumber(const json::value& v) {
  return v.is_int64() || v.is_uint64() || v.is_double();
}

class Comparison {
 public:
  explicit Comparison(bool withInfo) : withInfo_(withInfo) {}

  void compare(const json::value& a, const json::value& b, KeyPath& path) {
    if (a.is_object() && b.is_object()) return compareObjects(a.get_object(), b.get_object(), path);
    if (a.is_array() && b.is_array()) return compareArrays(a.get_array(), b.get_array(), path);
    const bool same = isNumber(a) && isNumber(b) ? sameNumber(a, b) : a == b;
    if (!same) differences.push_back({Difference::Changed, path, &a, &b});
  }

  std::vector<Difference> differences;

 private:
  bool skipped(const KeyPath& path, std::string_view key) const {
    return !withInfo_ && path.empty() && key == param::SeriDocument::kInfoKey;
  }

  void compareObjects(const json::object& a, const json::object& b, KeyPath& path) {
    for (const auto& member : a) {
      if (skipped(path, member.key())) continue;
      path.push_back({std::string(member.key()), 0, false});
      if (const json::value* other = b.if_contains(member.key())) {
        compare(member.value(), *other, path);
      } else {
        differences.push_back({Difference::Removed, path, &member.value(), nullptr});
      }
      path.pop_back();
    }
    for (const auto& member : b) {
      if (skipped(path, member.key()) || a.contains(member.key())) continue;
      path.push_back({std::string(member.key()), 0, false});
      differences.push_back({Difference::Added, path, nullptr, &member.value()});
      path.pop_back();
    }
  }

  void compareArrays(const json::array& a, const json::array& b, KeyPath& path) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
      path.push_back({std::string(), i, true});
      if (i < common) {
        compare(a[i], b[i], path);
      } else if (i < a.size()) {
        differences.push_back({Difference::Removed, path, &a[i], nullptr});
      } else {
        differences.push_back({Difference::Added, path, nullptr, &b[i]});
      }
      path.pop_back();
    }
  }

  bool withInfo_;
};

const char* kindText(Difference::Kind kind) {
  switch (kind) {
    case Difference::Added:
      return "added";
    case Difference::Removed:
      return "removed";
    default:
      return "changed";
  }
}

class Diff : public Command {
 public:
  void define(CLI::App& cmd) override {
    cmd.add_option("a", a_, "First document ('-': standard input)")->required();
    cmd.add_option("b", b_, "Second document ('-': standard input)")->required();
    cmd.add_flag("--json", json_, "Print the differences as a JSON object");
    cmd.add_flag("--info", info_, "Compare the information blocks too");
    cmd.footer(
        "Compares the decoded documents, so any two encodings compare. Numbers compare\n"
        "by value (60 and 60.0 are equal). One line per difference, with its key path:\n"
        "  pens.params[3].laserPower: 60 -> 75\n"
        "  pens.params[16]: added {\"penId\":16,...}\n"
        "  board.flyParam: removed {...}\n"
        "With --json: {\"equal\": false, \"differences\": [{\"path\": ..., \"keys\": [...],\n"
        "\"change\": \"changed\"|\"added\"|\"removed\", \"from\": ..., \"to\": ...}]}.\n"
        "Exit status 0 when equal, 1 when they differ or one cannot be read.\n"
        "Examples:\n"
        "  paramdoc diff factory.cfg customer.cfg\n"
        "  paramdoc diff --json before.cfg after.cfg | jq '.differences[].path'");
  }

  int run() override {
    if (a_ == "-" && b_ == "-") return usage("diff", "only one document can be standard input");
    json::value a, b;
    {
      Input input;
      if (!input.open(a_) || !readJsonTree(input, a)) return kFailure;
    }
    {
      Input input;
      if (!input.open(b_) || !readJsonTree(input, b)) return kFailure;
    }
    Comparison comparison(info_);
    KeyPath path;
    comparison.compare(a, b, path);
    const auto& found = comparison.differences;
    if (json_) {
      printJson(found);
    } else {
      for (const Difference& d : found)
        printLine(d);
    }
    return found.empty() ? kSuccess : kFailure;
  }

 private:
  static void printLine(const Difference& d) {
    const std::string path = formatKeyPath(d.path);
    if (d.kind == Difference::Changed) {
      print("%s: %s -> %s\n", path.c_str(), formatJson(*d.from).c_str(), formatJson(*d.to).c_str());
    } else {
      print("%s: %s %s\n", path.c_str(), kindText(d.kind),
            formatJson(d.from ? *d.from : *d.to).c_str());
    }
  }

  static void printJson(const std::vector<Difference>& found) {
    json::array list;
    for (const Difference& d : found) {
      json::array keys;
      for (const KeyStep& step : d.path) {
        if (step.isIndex) {
          keys.emplace_back(static_cast<std::uint64_t>(step.index));
        } else {
          keys.emplace_back(step.key);
        }
      }
      json::object entry;
      entry["path"] = formatKeyPath(d.path);
      entry["keys"] = std::move(keys);
      entry["change"] = kindText(d.kind);
      if (d.from) entry["from"] = *d.from;
      if (d.to) entry["to"] = *d.to;
      list.emplace_back(std::move(entry));
    }
    json::object out;
    out["equal"] = found.empty();
    out["differences"] = std::move(list);
    print("%s\n", formatJson(out, 2).c_str());
  }

  std::string a_, b_;
  bool json_ = false;
  bool info_ = false;
};

}  // namespace

PARAMDOC_COMMAND(Diff, "diff", "Compare two documents member by member")

}  // namespace paramdoc
