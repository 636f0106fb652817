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

SdkError ExtAxisPar::load(const SeriObject& obj) {
  return keys(RecordLoader(obj), *this);
}
SdkError ExtAxisPar::save(SeriObject& obj) const {
  return keys(RecordSaver(obj), *this);
}

}  // namespace param
