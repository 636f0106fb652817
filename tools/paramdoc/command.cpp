#include "command.h"

#include <cstdio>

namespace paramdoc {

std::vector<CommandEntry>& commands() {
  static std::vector<CommandEntry> all;
  return all;
}

std::string describe(param::SdkError code) {
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%06x", code);
  return std::string(param::errorText(code)) + " (" + hex + ")";
}

int fail(const std::string& subject, const std::string& cause) {
  std::fprintf(stderr, "paramdoc: %s: %s\n", subject.c_str(), cause.c_str());
  return kFailure;
}

int fail(const std::string& subject, param::SdkError code) {
  return fail(subject, describe(code));
}

bool failed(const std::string& subject, const std::string& cause) {
  fail(subject, cause);
  return false;
}

void warn(const std::string& subject, const std::string& cause) {
  std::fprintf(stderr, "paramdoc: warning: %s: %s\n", subject.c_str(), cause.c_str());
}

int usage(const std::string& command, const std::string& message) {
  std::fprintf(stderr, "paramdoc %s: %s\nRun 'paramdoc %s --help' for the options.\n",
               command.c_str(), message.c_str(), command.c_str());
  return kUsage;
}

}  // namespace paramdoc
