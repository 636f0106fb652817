#include <param/params/markParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<MarkParam> auto& r) {
  io("markLineMaxLen", r.markLineMaxLen);
  io("afterMarkPosMode", r.afterMarkPosMode);
  io("afterMarkPos", r.afterMarkPos);
  io("jumpNoCloseLaserDist", r.jumpNoCloseLaserDist);
  io("heartTime", r.heartTime);
  io("watchDogEnable", r.watchDogEnable);
  io("watchDogTimes", r.watchDogTimes);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(MarkParam)

}  // namespace param
