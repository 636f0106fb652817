#pragma once

#include <string>

#include <utils/timeDate.h>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// Settings of the marking record log. Members are named after their JSON keys
// and saved in this order.
//
// "resetTime" is saved as its ISO text ("1970-01-01T08:00:00"). Loading reads
// and checks the text but keeps the record's own reset time: the time of day
// is set in memory only, as the log has always behaved.
//
// The default constructor applies the stored default "struct DataRecordParam"
// of the default-parameter manager on top of these values; before param::load
// it logs "please call DefaultParamMgr::load() first" and keeps them.
struct PARAM_API DataRecordParam {
  bool writeToFile = false;
  bool enableDupCheck = false;
  bool writeTimeToFile = true;
  bool writeAfterMark = true;
  bool overwrite = false;
  bool timedReset = false;
  utils::TimeDate resetTime;  // 08:00:00
  std::string filePath;

  DataRecordParam();

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

  // All eight members equal.
  bool isSameEffect(const DataRecordParam& other) const;
};

}  // namespace param
