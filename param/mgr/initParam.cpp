#include <param/mgr/initParam.h>

#include <param/mgr/colorMgr.h>
#include <param/mgr/defaultParamMgr.h>

namespace param {

SdkError load(InitParam init) {
  if (SdkError e = DefaultParamMgr::load(init)) return e;
  return ColorMgr::load(init);
}

void unload() {
  ColorMgr::unload();
  DefaultParamMgr::unload();
}

}  // namespace param
