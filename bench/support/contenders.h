#pragma once

// Who does the job: the library first, then the peers written by hand.

#include <string>
#include <vector>

#include <param/seri/seriOption.h>

#include "peerRecords.h"

namespace peers {

struct Contender {
  const char* name;   // in benchmark names: "read/base64/<name>"
  const char* title;  // in the tables
  bool (*read)(const std::string& file, Job& job);
  bool (*write)(const Job& job, const std::string& file, param::SeriOption option);  // or null
};

const std::vector<Contender>& contenders();
const Contender* findContender(const std::string& name);

// The encodings measured: one per encoding, AES in its authenticated default.
inline constexpr const char* kEncodingNames[4] = {"base64", "xor", "lzma", "aes-gcm"};
inline param::SeriOption encodingOption(int encoding) {
  return param::SeriOption(static_cast<param::SeriOption::Encoding>(encoding), 0, 0);
}

// The bare codec an LZMA read or write is compared with (liblzma decoding the
// payload, or encoding the text).
inline constexpr const char* kBareXzName = "bare/xz-decode";
inline constexpr const char* kBareXzEncodeName = "bare/xz-encode";

}  // namespace peers
