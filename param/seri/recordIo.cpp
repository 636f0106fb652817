#include <param/seri/recordIo.h>

#include <utils/logger.h>

namespace param {

void logUnreadableElement(const char* key, SdkError code) {
  utils::Logger(utils::LogLevel::Error, "Param")
      .write("\"")
      .write(key)
      .write("\" holds an unreadable element, load stopped: ")
      .write(code);
}

}  // namespace param
