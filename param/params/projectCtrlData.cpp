#include <param/params/projectCtrlData.h>

#include <param/seri/recordIo.h>

namespace param {
namespace {
SdkError keys(auto&& io, RecordOf<ProjectCtrlData> auto& r) {
  io("nProjectType", r.nProjectType, "projection type (number)");
  io("diameter", r.diameter, "diameter of the workpiece on the rotary axis");
  io("fFocus", r.fFocus, "focus");
  return io.result();
}
}  // namespace

ProjectCtrlData::~ProjectCtrlData() = default;
ProjectCtrlData* ProjectCtrlData::clone() const {
  return new ProjectCtrlData(*this);
}
PARAM_RECORD_IO(ProjectCtrlData)

}  // namespace param
