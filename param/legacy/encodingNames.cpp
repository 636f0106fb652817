#include <param/legacy/encodingNames.h>

namespace param {

// Constant-initialised, so it never depends on the order of static construction.
constinit const char* const g_encodingNames[encodingNameCount] = {
    "GBK", "UTF-8", "BIG5", "Shift-JIS", "EUC-KR", "UNICODE", "UNICODE_BE", ""};

const char* encodingName(std::size_t index) {
  return index < encodingNameCount ? g_encodingNames[index] : nullptr;
}

}  // namespace param
