#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/params/extParam.h>
#include <param/seri/seriObject.h>

namespace param {

// The kind of a marking job, stored as its integer. Only the default is named
// here; the marking engine defines the other values, which are kept as read.
enum class MarkType : std::int32_t {
  Normal = 1,
};

// The switches with which a host starts one marking job. Members are named
// after their JSON keys and saved in this order.
//
// The two extension records (rotary or axis control records, any ExtParam) are
// not saved or loaded: load leaves them as they are and save writes nothing for
// them. Copy construction clones them; move construction takes them over and
// leaves the source's holders empty. Both assignments copy: the target's
// records are replaced by clones of the source's, and a moved-from source keeps
// its records.
struct PARAM_API MarkCtrlData {
  MarkType markType = MarkType::Normal;
  bool bAsyn = true;
  bool bOnline = true;
  std::uint32_t markCount = 1;  // passes to send unless bContinuousMark
  bool bContinuousMark = false;
  bool bSelectMark = false;
  bool bRedLightMark = false;
  bool bSimulateMark = false;
  bool bNoLightMode = false;
  std::uint32_t pointTime = 100;
  ExtParamProxy firstExtParam;
  ExtParamProxy secondExtParam;

  MarkCtrlData() = default;
  MarkCtrlData(const MarkCtrlData&) = default;
  MarkCtrlData(MarkCtrlData&&) noexcept = default;
  MarkCtrlData& operator=(const MarkCtrlData&) = default;
  // Copies, like the copy assignment.
  MarkCtrlData& operator=(MarkCtrlData&& other);
  ~MarkCtrlData() = default;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
