#include <param/params/extAxisPar.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<ExtAxisPar> auto& r) {
  io("setting", r.setting);
  io("runData", r.runData);
  return io.result();
}
}  // namespace

PARAM_RECORD_IO(ExtAxisPar)

}  // namespace param
