#include "contenders.h"

#include "libraryJob.h"
#include "peers.h"

namespace peers {

const std::vector<Contender>& contenders() {
  static const std::vector<Contender> all = {
      {"param", "param", libraryRead, libraryWrite},
      {"nlohmann", "nlohmann-json", nlohmannRead, nlohmannWrite},
      {"rapidjson", "RapidJSON", rapidjsonRead, rapidjsonWrite},
      {"simdjson", "simdjson", simdjsonRead, nullptr},
  };
  return all;
}

const Contender* findContender(const std::string& name) {
  for (const Contender& c : contenders()) {
    if (name == c.name) return &c;
  }
  return nullptr;
}

}  // namespace peers
