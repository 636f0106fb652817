#include <param/seri/seriInfo.h>

#include <param/errors.h>
#include <param/seri/errorStep.h>

namespace param {

const char* SeriInfo::buildOs() {
#if defined(_WIN32)
  return "Windows";
#elif defined(__APPLE__)
  return "macOS";
#elif defined(__linux__)
  return "Linux";
#else
  return "Unknown";
#endif
}

SdkError SeriInfo::load(const SeriObject& obj) {
  std::string text;
  utils::Version parsed;
  if (SdkError e = obj.get("ver", text)) {
    if (SdkError stop = errorStep(e)) return stop;
  } else if (parsed.fromString(text)) {
    ver = parsed;
  } else if (SdkError stop = errorStep(errc::badVersion)) {
    return stop;
  }
  if (SdkError e = strictErrorStep(obj.get("os", os))) return e;
  if (SdkError e = strictErrorStep(obj.get("arch", arch))) return e;
  if (SdkError e = strictErrorStep(obj.get("extension", extension))) return e;
  return 0;
}

SdkError SeriInfo::save(SeriObject& obj) const {
  if (SdkError e = errorStep(obj.set("ver", ver.toString()))) return e;
  if (SdkError e = errorStep(obj.set("os", os))) return e;
  if (SdkError e = errorStep(obj.set("arch", arch))) return e;
  return errorStep(obj.set("extension", extension));
}

}  // namespace param
