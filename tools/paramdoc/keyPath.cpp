#include "keyPath.h"

namespace paramdoc {

bool parseKeyPath(std::string_view text, KeyPath& out, std::string& error) {
  return utils::parseJsonPath(text, out, &error) == 0;
}

std::string formatKeyPath(const KeyPath& path) {
  return utils::formatJsonPath(path);
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
