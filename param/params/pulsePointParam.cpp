#include <param/params/pulsePointParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<PulsePointParam> auto& r) {
  io("bEnable", r.bEnable);
  io("pulsePerPoint", r.pulsePerPoint);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(PulsePointParam)

}  // namespace param
