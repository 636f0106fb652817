#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/seri/seriObject.h>

namespace param {

// Projection marking: the job is projected onto a curved surface (a cylinder
// of `diameter`) with the focus distance `fFocus`.
// Members are named after their JSON keys and saved in this order.
struct PARAM_API ProjectCtrlData : ExtParam {
  std::int32_t nProjectType = 0;
  float diameter = 20.0f;
  float fFocus = 1.0f;

  ProjectCtrlData() = default;
  ProjectCtrlData(const ProjectCtrlData&) = default;
  ProjectCtrlData& operator=(const ProjectCtrlData&) = default;
  ~ProjectCtrlData() override;

  ProjectCtrlData* clone() const override;
  [[nodiscard]] SdkError load(const SeriObject& obj) override;
  [[nodiscard]] SdkError save(SeriObject& obj) const override;
};

}  // namespace param
