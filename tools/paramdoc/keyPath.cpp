#include "keyPath.h"

#include <charconv>

namespace paramdoc {

namespace {

bool special(char c) {
  return c == '.' || c == '[' || c == ']' || c == '\\';
}

}  // namespace

bool parseKeyPath(std::string_view text, KeyPath& out, std::string& error) {
  out.clear();
  std::size_t i = 0;
  while (i < text.size()) {
    const bool first = out.empty();
    if (text[i] == '[') {
      const std::size_t close = text.find(']', i);
      const std::string_view digits =
          text.substr(i + 1, close == std::string_view::npos ? 0 : close - i - 1);
      KeyStep step;
      step.isIndex = true;
      const auto [end, ec] =
          std::from_chars(digits.data(), digits.data() + digits.size(), step.index);
      if (close == std::string_view::npos || digits.empty() || ec != std::errc() ||
          end != digits.data() + digits.size()) {
        error = "an index is a number in brackets, as in params[3] (at character " +
                std::to_string(i + 1) + ")";
        return false;
      }
      out.push_back(step);
      i = close + 1;
      continue;
    }
    if (!first) {
      if (text[i] != '.') {
        error = "expected '.' or '[' at character " + std::to_string(i + 1);
        return false;
      }
      ++i;
    }
    KeyStep step;
    while (i < text.size() && text[i] != '.' && text[i] != '[') {
      if (text[i] == ']') {
        error = "unexpected ']' at character " + std::to_string(i + 1) + " (write \\] in a name)";
        return false;
      }
      if (text[i] == '\\') {
        if (++i == text.size()) {
          error = "a backslash at the end (write \\\\ for a backslash in a name)";
          return false;
        }
      }
      step.key += text[i++];
    }
    if (step.key.empty()) {
      error = "an empty name at character " + std::to_string(i + 1);
      return false;
    }
    out.push_back(std::move(step));
  }
  return true;
}

std::string formatKeyPath(const KeyPath& path) {
  std::string text;
  for (const KeyStep& step : path) {
    if (step.isIndex) {
      text += '[' + std::to_string(step.index) + ']';
      continue;
    }
    if (!text.empty()) text += '.';
    for (char c : step.key) {
      if (special(c)) text += '\\';
      text += c;
    }
  }
  return text;
}

const boost::json::value* findValue(const boost::json::value& root, const KeyPath& path,
                                    std::string& error) {
  const boost::json::value* at = &root;
  KeyPath walked;
  for (const KeyStep& step : path) {
    const std::string where = walked.empty() ? "the document" : formatKeyPath(walked);
    if (step.isIndex) {
      const boost::json::array* array = at->if_array();
      if (array == nullptr) {
        error = where + " is not an array";
        return nullptr;
      }
      if (step.index >= array->size()) {
        error = where + " has " + std::to_string(array->size()) + " elements, no [" +
                std::to_string(step.index) + "]";
        return nullptr;
      }
      at = &(*array)[step.index];
    } else {
      const boost::json::object* object = at->if_object();
      if (object == nullptr) {
        error = where + " is not an object";
        return nullptr;
      }
      at = object->if_contains(step.key);
      if (at == nullptr) {
        error = where + " has no member \"" + step.key + "\"";
        return nullptr;
      }
    }
    walked.push_back(step);
  }
  return at;
}

boost::json::value* findValue(boost::json::value& root, const KeyPath& path, std::string& error) {
  return const_cast<boost::json::value*>(
      findValue(static_cast<const boost::json::value&>(root), path, error));
}

}  // namespace paramdoc
