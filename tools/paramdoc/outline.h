#pragma once

// The outline of a document's JSON text, taken in one pass without building
// its tree: what `info` shows costs no more memory than the text itself.

#include <string>
#include <string_view>
#include <vector>

namespace paramdoc {

struct Outline {
  std::vector<std::string> members;  // the root's member names, in order
  bool hasInfo = false;              // an information block member is there
  bool infoIsObject = false;
  std::string infoText;  // the block's scalar members as a JSON object
};

// False with `error` for text that is not one JSON object.
bool outlineJson(std::string_view text, const std::string& infoKey, Outline& out,
                 std::string& error);

}  // namespace paramdoc
