#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include <utils/errorHandle.h>

#include <param/seri/seriObject.h>

namespace devtest {

// The compact JSON text a record saves.
template <class R>
std::string jsonOf(const R& record) {
  param::SeriObject obj(utils::JsonSave::instance);
  EXPECT_EQ(record.save(obj), 0u);
  return obj.stringfy();
}

// The keys a record saves, in their stored order, joined by commas.
template <class R>
std::string keyLine(const R& record) {
  param::SeriObject obj(utils::JsonSave::instance);
  EXPECT_EQ(record.save(obj), 0u);
  std::string line;
  for (const std::string& key : obj.keys())
    line += (line.empty() ? "" : ",") + key;
  return line;
}

// Loads `record` from JSON text (which must parse).
template <class R>
utils::SdkError loadJson(R& record, std::string_view json) {
  param::SeriObject obj(utils::JsonLoad::instance);
  EXPECT_EQ(obj.parser(json.data(), json.size()), 0u) << json;
  return record.load(obj);
}

// `text` with the first occurrence of `from` replaced by `to`.
inline std::string edit(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at != std::string::npos) text.replace(at, from.size(), to);
  return text;
}

// An error handler that always gives one answer and counts how often it was asked.
struct CountingHandler {
  explicit CountingHandler(utils::ErrorResponseType answer)
      : guard([this, answer](utils::SdkError code, unsigned) {
          ++calls;
          codes.push_back(code);
          return answer;
        }) {}
  int calls = 0;
  std::vector<utils::SdkError> codes;
  utils::ScopedErrorHandler guard;
};

}  // namespace devtest
