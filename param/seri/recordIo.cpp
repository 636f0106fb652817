#include <param/seri/recordIo.h>

#include <utils/logger.h>

#include "internal/quietErrorSteps.h"

namespace param {

void logUnreadableElement(const char* key, SdkError code) {
  utils::Logger(utils::LogLevel::Error, "Param")
      .write("\"")
      .write(key)
      .write("\" holds an unreadable element, load stopped: ")
      .write(code);
}

std::string savedText(const std::function<SdkError(KeySink&)>& write) {
  internal::QuietErrorSteps quiet;
  SeriObject scratch(utils::JsonSave::instance);
  KeySink sink{scratch, "value"};
  write(sink);
  return scratch.memberText("value");
}

}  // namespace param
