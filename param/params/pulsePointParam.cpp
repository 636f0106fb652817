#include <param/params/pulsePointParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<PulsePointParam> auto& r) {
  io("bEnable", r.bEnable, "mark each point with a set number of pulses");
  io("pulsePerPoint", r.pulsePerPoint, "number of laser pulses per point");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(PulsePointParam)

}  // namespace param
