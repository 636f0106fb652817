#include <param/params/flyParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<FlyParam> auto& r) {
  io("bufferCount", r.bufferCount);
  io("sortMode", r.sortMode);
  io("startPosMode", r.startPosMode);
  io("startMarkPoint", r.startMarkPoint);
  io("triggerType", r.triggerType);
  io("continuousSignal", r.continuousSignal);
  io("continuousDelayDistance", r.continuousDelayDistance);
  io("triggerDelayMode", r.triggerDelayMode);
  io("triggerDelayDistance", r.triggerDelayDistance);
  io("triggerDelayTime", r.triggerDelayTime);
  io("triggerIntervalMode", r.triggerIntervalMode);
  io("triggerIntervalDistance", r.triggerIntervalDistance);
  io("triggerIntervalTime", r.triggerIntervalTime);
  io("flyRtoL", r.flyRtoL);
  io("flowLineType", r.flowLineType);
  io("encodeRevert", r.encodeRevert);
  io("encodeNoDirection", r.encodeNoDirection);
  io("encodePusleLen", r.encodePusleLen);
  io("flyEncoderID", r.flyEncoderID);
  io("flowFixSpeed", r.flowFixSpeed);
  io("pipeMode", r.pipeMode);
  io("pipeDistance", r.pipeDistance);
  io("pipeTime", r.pipeTime);
  io("pipeMarkCount", r.pipeMarkCount);
  // Stored last although it sits before pipeTime in memory.
  io("pipeMaxDistance", r.pipeMaxDistance);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(FlyParam)

}  // namespace param
