#include <param/params/projectCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<ProjectCtrlData> auto& r) {
  io("nProjectType", r.nProjectType);
  io("diameter", r.diameter);
  io("fFocus", r.fFocus);
  return io.result();
}
}  // namespace

ProjectCtrlData::~ProjectCtrlData() = default;
ProjectCtrlData* ProjectCtrlData::clone() const {
  return new ProjectCtrlData(*this);
}
PARAM_RECORD_IO(ProjectCtrlData)

}  // namespace param
