#include "outline.h"

#include <cstdint>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>

namespace paramdoc {

namespace {

using boost::json::error_code;
using boost::json::string_view;

// Follows the parse: records the root's member names and copies the scalar
// members of the information block; every other value is only passed over.
class OutlineHandler {
 public:
  static constexpr std::size_t max_object_size = std::size_t(-1);
  static constexpr std::size_t max_array_size = std::size_t(-1);
  static constexpr std::size_t max_key_size = std::size_t(-1);
  static constexpr std::size_t max_string_size = std::size_t(-1);

  OutlineHandler(const std::string& infoKey, Outline& out) : infoKey_(infoKey), out_(out) {}

  bool notObject = false;

  bool on_document_begin(error_code&) { return true; }
  bool on_document_end(error_code&) { return true; }

  bool on_object_begin(error_code& ec) {
    if (depth_ == 1 && inInfo_) out_.infoIsObject = true;
    return enter(ec, true);
  }
  bool on_object_end(std::size_t, error_code&) { return leave(); }
  bool on_array_begin(error_code& ec) { return enter(ec, false); }
  bool on_array_end(std::size_t, error_code&) { return leave(); }

  bool on_key_part(string_view s, std::size_t, error_code&) {
    if (wanted()) key_.append(s.data(), s.size());
    return true;
  }
  bool on_key(string_view s, std::size_t, error_code&) {
    if (!wanted()) return true;
    key_.append(s.data(), s.size());
    if (depth_ == 1) {
      out_.members.push_back(key_);
      inInfo_ = key_ == infoKey_;
      if (inInfo_) out_.hasInfo = true;
    } else {
      infoMember_ = key_;
    }
    key_.clear();
    return true;
  }

  bool on_string_part(string_view s, std::size_t, error_code&) {
    if (capturing()) text_.append(s.data(), s.size());
    return true;
  }
  bool on_string(string_view s, std::size_t, error_code& ec) {
    if (!scalar(ec)) return false;
    if (capturing()) {
      text_.append(s.data(), s.size());
      block_[infoMember_] = text_;
      text_.clear();
    }
    return true;
  }
  bool on_number_part(string_view, error_code&) { return true; }
  bool on_int64(std::int64_t v, string_view, error_code& ec) { return store(v, ec); }
  bool on_uint64(std::uint64_t v, string_view, error_code& ec) { return store(v, ec); }
  bool on_double(double v, string_view, error_code& ec) { return store(v, ec); }
  bool on_bool(bool v, error_code& ec) { return store(v, ec); }
  bool on_null(error_code& ec) { return store(nullptr, ec); }
  bool on_comment_part(string_view, error_code&) { return true; }
  bool on_comment(string_view, error_code&) { return true; }

  void finish() {
    if (out_.infoIsObject) out_.infoText = boost::json::serialize(block_);
  }

 private:
  // The root's keys, and the information block's own keys.
  bool wanted() const { return depth_ == 1 || capturing(); }
  bool capturing() const { return depth_ == 2 && inInfo_ && out_.infoIsObject; }

  bool enter(error_code& ec, bool object) {
    if (depth_ == 0 && !object) return refuse(ec);
    ++depth_;
    return true;
  }
  bool leave() {
    --depth_;
    return true;
  }
  // A scalar where the root belongs is no document.
  bool scalar(error_code& ec) { return depth_ != 0 || refuse(ec); }
  bool refuse(error_code& ec) {
    notObject = true;
    ec = boost::json::error::syntax;
    return false;
  }
  template <class T>
  bool store(T value, error_code& ec) {
    if (!scalar(ec)) return false;
    if (capturing()) block_[infoMember_] = value;
    return true;
  }

  const std::string& infoKey_;
  Outline& out_;
  int depth_ = 0;
  bool inInfo_ = false;
  std::string key_, infoMember_, text_;
  boost::json::object block_;
};

}  // namespace

bool outlineJson(std::string_view text, const std::string& infoKey, Outline& out,
                 std::string& error) {
  boost::json::parse_options options;
  options.allow_invalid_utf8 = true;
  options.max_depth = 256;
  boost::json::basic_parser<OutlineHandler> parser(options, infoKey, out);
  error_code ec;
  const std::size_t used = parser.write_some(false, text.data(), text.size(), ec);
  if (ec || used != text.size()) {
    error = parser.handler().notObject ? "the document is not a JSON object"
                                       : "text is not JSON: " + ec.message();
    return false;
  }
  parser.handler().finish();
  return true;
}

}  // namespace paramdoc
