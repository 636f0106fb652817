#pragma once

// A description of a JSON object or array made only through the public
// accessors: every key in order, and each member as every typed get reads
// it (codes and values), the cursor lookups and the member's own text. Two
// nodes with the same description read the same through any accessor.

#include <cstdint>
#include <cstdio>
#include <string>

#include <utils/json.h>

namespace testing_json {

inline std::string describe(const utils::JsonObject& o);
inline std::string describe(const utils::JsonArray& a);

// `get(out)` for every scalar target, as "code:value" pairs.
template <class Get>
std::string describeScalar(Get&& get) {
  std::string out;
  const auto add = [&out](auto e, const std::string& value) {
    out += std::to_string(e) + ":" + (e == 0 ? value : "") + " ";
  };
  bool b = false;
  const auto be = get(b);
  add(be, b ? "true" : "false");
  std::int64_t i = 0;
  const auto ie = get(i);
  add(ie, std::to_string(i));
  std::uint64_t u = 0;
  const auto ue = get(u);
  add(ue, std::to_string(u));
  std::int32_t i32 = 0;
  const auto i32e = get(i32);
  add(i32e, std::to_string(i32));
  char text[40];
  double d = 0;
  const auto de = get(d);
  std::snprintf(text, sizeof text, "%a", d);
  add(de, text);
  float f = 0;
  const auto fe = get(f);
  std::snprintf(text, sizeof text, "%a", static_cast<double>(f));
  add(fe, text);
  std::string s;
  const auto se = get(s);
  add(se, "\"" + s + "\"");
  return out;
}

inline std::string describe(const utils::JsonObject& o) {
  std::string out = "{" + std::to_string(o.size()) + " ";
  std::size_t cursor = 0;
  for (const std::string& key : o.keys()) {
    out += "\"" + key + "\"=";
    utils::JsonObject child(utils::JsonLoad::instance);
    utils::JsonArray list(utils::JsonLoad::instance);
    std::size_t at = cursor;
    if (o.getJsonObject(key.c_str(), child) == 0) {
      out += describe(child);
      (void)o.getJsonObject(key.c_str(), child, cursor);
    } else if (o.getJsonArray(key.c_str(), list) == 0) {
      out += describe(list);
      (void)o.getJsonArray(key.c_str(), list, cursor);
    } else {
      out += describeScalar([&](auto& v) { return o.get(key.c_str(), v); });
      double d = 0;
      out += "cursor " + std::to_string(o.get(key.c_str(), d, cursor));
    }
    out += (cursor == at ? " stuck " : " ") + o.memberText(key.c_str()) + "\n";
  }
  return out + "}";
}

inline std::string describe(const utils::JsonArray& a) {
  std::string out = "[" + std::to_string(a.size()) + " ";
  for (std::size_t i = 0; i <= a.size(); ++i) {
    utils::JsonObject child(utils::JsonLoad::instance);
    utils::JsonArray list(utils::JsonLoad::instance);
    if (a.getJsonObject(i, child) == 0) {
      out += describe(child);
    } else if (a.getJsonArray(i, list) == 0) {
      out += describe(list);
    } else {
      out += describeScalar([&](auto& v) { return a.get(i, v); });
    }
    out += " " + a.elementText(i) + "\n";
  }
  return out + "]";
}

// Makes `o` hold its content as a tree of its own, which a change does.
inline void settle(utils::JsonObject& o) {
  o.set("\x01settle", 0);
  o.erase("\x01settle");
}

}  // namespace testing_json
