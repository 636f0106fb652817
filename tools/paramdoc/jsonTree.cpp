#include "jsonTree.h"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>

#include <utils/json.h>

#include <param/seri/seriDocument.h>

#include "command.h"

namespace paramdoc {

bool parseJson(std::string_view text, boost::json::value& out, std::string& error) {
  boost::json::parse_options options;
  options.allow_invalid_utf8 = true;
  options.max_depth = 256;
  boost::system::error_code ec;
  out = boost::json::parse(text, ec, {}, options);
  if (ec) error = ec.message();
  return !ec;
}

bool readJsonTree(const Input& input, boost::json::value& root) {
  const std::string_view bytes = input.bytes();
  std::string text;
  if (param::SdkError e = param::SeriDocument::decodeFromMemory(bytes.data(), bytes.size(), text)) {
    return failed(input.name(), describe(e));
  }
  std::string error;
  if (!parseJson(text, root, error)) {
    return failed(input.name(), describe(utils::errc::parseError) + ": " + error);
  }
  if (!root.is_object()) return failed(input.name(), "the document is not a JSON object");
  return true;
}

std::string formatJson(const boost::json::value& value, int indent) {
  // Through the library's nodes, so that numbers read exactly as in the
  // document files ("0.02", not "2E-2").
  const std::string text = boost::json::serialize(value);
  if (value.is_object()) {
    utils::JsonObject node(utils::JsonLoad::instance);
    if (node.parser(text.data(), text.size()) == 0) return node.stringfy(indent);
  } else if (value.is_array()) {
    utils::JsonArray node(utils::JsonLoad::instance);
    if (node.parser(text.data(), text.size()) == 0) return node.stringfy(indent);
  } else {
    const std::string wrapped = "[" + text + "]";
    utils::JsonArray node(utils::JsonLoad::instance);
    if (node.parser(wrapped.data(), wrapped.size()) == 0) {
      const std::string out = node.stringfy();
      return out.substr(1, out.size() - 2);
    }
  }
  return text;
}

const char* kindName(const boost::json::value& value) {
  switch (value.kind()) {
    case boost::json::kind::object:
      return "an object";
    case boost::json::kind::array:
      return "an array";
    case boost::json::kind::string:
      return "a string";
    case boost::json::kind::bool_:
      return "a boolean";
    case boost::json::kind::null:
      return "null";
    default:
      return "a number";
  }
}

}  // namespace paramdoc
