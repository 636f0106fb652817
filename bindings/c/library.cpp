// Start, stop, version, error texts and buffers.

#include <utils/version.h>

#include <param/errors.h>
#include <param/mgr/initParam.h>

#include "internal/capi.h"

extern "C" {

param_error param_load(const char* defaults_path) {
  if (defaults_path == nullptr) return PARAM_C_INVALID_ARGUMENT;
  return param_c::guarded([&] { return param::load(param::InitParam{defaults_path}); });
}

void param_unload(void) {
  (void)param_c::guarded([] {
    param::unload();
    return param_error{0};
  });
}

const char* param_version(void) {
  static const std::string text = utils::Version::g_sdkBuildVersion.toString();
  return text.c_str();
}

const char* param_error_text(param_error code) {
  switch (code) {
    case PARAM_C_INVALID_ARGUMENT:
      return "invalid argument (a null pointer or a bad value)";
    case PARAM_C_INTERNAL_ERROR:
      return "internal error of the library";
    default:
      return param::errorText(code);
  }
}

void param_free(void* buffer) {
  std::free(buffer);
}

}  // extern "C"
