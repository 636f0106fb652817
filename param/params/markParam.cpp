#include <param/params/markParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<MarkParam> auto& r) {
  io("markLineMaxLen", r.markLineMaxLen, "longest line piece sent as one move");
  io("afterMarkPosMode", r.afterMarkPosMode, "where the head goes after marking (mode number)");
  io("afterMarkPos", r.afterMarkPos, "the position used by afterMarkPosMode");
  io("jumpNoCloseLaserDist", r.jumpNoCloseLaserDist, "jumps up to this length keep the laser on");
  io("heartTime", r.heartTime, "heartbeat interval of the board connection");
  io("watchDogEnable", r.watchDogEnable, "watchdog active");
  io("watchDogTimes", r.watchDogTimes, "watchdog count");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(MarkParam)

}  // namespace param
