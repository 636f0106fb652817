#include <param/params/dataRecordParam.h>

#include <param/mgr/defaultParamMgr.h>
#include <param/seri/recordIo.h>

namespace param {
namespace {

// "resetTime": written as ISO text; read and parsed, but the parsed time is
// not kept.
template <class Time>
struct ResetTimeField {
  Time& time;

  SdkError read(const KeySource& src) {
    std::string text;
    if (SdkError e = src.get(text)) return e;
    if (!text.empty()) {
      utils::TimeDate parsed;
      parsed.fromISOString(text);
    }
    return 0;
  }
  SdkError write(KeySink& dst) const { return dst.put(time.toISOString()); }
  static void describe(SeriObject& prop) {
    prop.set("type", "string");
    prop.set("description", "date and time as 1970-01-01T08:00:00");
  }
};
template <class Time>
ResetTimeField(Time&) -> ResetTimeField<Time>;

SdkError keys(auto&& io, RecordOf<DataRecordParam> auto& r) {
  io("writeToFile", r.writeToFile, "write the marked data to a file");
  io("enableDupCheck", r.enableDupCheck, "check the data for duplicates");
  io("writeTimeToFile", r.writeTimeToFile, "write a time stamp");
  io("writeAfterMark", r.writeAfterMark, "write the record after marking");
  io("overwrite", r.overwrite, "overwrite the file");
  io("timedReset", r.timedReset, "reset the record at a time of day");
  io("resetTime", ResetTimeField{r.resetTime},
     "time of day of the reset; loading keeps the current one");
  io("filePath", r.filePath, "path of the record file");
  return io.result();
}
}  // namespace

DataRecordParam::DataRecordParam() {
  resetTime.setTime(8, 0, 0);
  DefaultParamMgr::loadDefault("struct DataRecordParam", *this);
}

PARAM_RECORD_IO(DataRecordParam)

bool DataRecordParam::isSameEffect(const DataRecordParam& o) const {
  return writeToFile == o.writeToFile && enableDupCheck == o.enableDupCheck &&
         writeTimeToFile == o.writeTimeToFile && writeAfterMark == o.writeAfterMark &&
         overwrite == o.overwrite && timedReset == o.timedReset && resetTime == o.resetTime &&
         filePath == o.filePath;
}

}  // namespace param
