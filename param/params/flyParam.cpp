#include <param/params/flyParam.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<FlyParam> auto& r) {
  io("bufferCount", r.bufferCount, "number of buffered products");
  io("sortMode", r.sortMode, "ordering mode number");
  io("startPosMode", r.startPosMode, "how the start position is chosen (mode number)");
  io("startMarkPoint", r.startMarkPoint, "start mark position");
  io("triggerType", r.triggerType, "trigger kind");
  io("continuousSignal", r.continuousSignal, "the trigger signal is continuous");
  io("continuousDelayDistance", r.continuousDelayDistance,
     "delay distance for a continuous signal");
  io("triggerDelayMode", r.triggerDelayMode, "delay by distance or by time (mode number)");
  io("triggerDelayDistance", r.triggerDelayDistance, "delay distance after the trigger");
  io("triggerDelayTime", r.triggerDelayTime, "delay time after the trigger");
  io("triggerIntervalMode", r.triggerIntervalMode,
     "minimum spacing between triggers (mode number)");
  io("triggerIntervalDistance", r.triggerIntervalDistance,
     "minimum spacing between triggers, distance");
  io("triggerIntervalTime", r.triggerIntervalTime, "minimum spacing between triggers, time");
  io("flyRtoL", r.flyRtoL, "the product moves from right to left");
  io("flowLineType", r.flowLineType, "kind of conveyor motion (mode number)");
  io("encodeRevert", r.encodeRevert, "reverse the encoder count, per axis");
  io("encodeNoDirection", r.encodeNoDirection, "ignore the encoder direction, per axis");
  io("encodePusleLen", r.encodePusleLen, "encoder pulse length, per axis");
  io("flyEncoderID", r.flyEncoderID, "encoder used");
  io("flowFixSpeed", r.flowFixSpeed, "conveyor speed when no encoder is used");
  io("pipeMode", r.pipeMode, "pipe marking mode number");
  io("pipeDistance", r.pipeDistance, "pipe marking distance");
  io("pipeTime", r.pipeTime, "pipe marking time");
  io("pipeMarkCount", r.pipeMarkCount, "number of pipe markings");
  // Stored last although it sits before pipeTime in memory.
  io("pipeMaxDistance", r.pipeMaxDistance, "largest pipe distance");
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(FlyParam)

}  // namespace param
