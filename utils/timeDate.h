#pragma once

#include <string>
#include <string_view>

#include <utils/export.h>

namespace utils {

// A calendar date and a time of day, to the second, without a time zone.
// A default TimeDate is 1970-01-01 00:00:00.
class UTILS_API TimeDate {
 public:
  TimeDate() = default;

  // Each setter returns false and changes nothing when a field is out of range.
  bool setDate(int year, int month, int day);
  bool setTime(int hour, int minute, int second);

  int year() const { return year_; }
  int month() const { return month_; }
  int day() const { return day_; }
  int hour() const { return hour_; }
  int minute() const { return minute_; }
  int second() const { return second_; }

  // "1970-01-01T08:00:00"
  std::string toISOString() const;
  // Reads the form toISOString writes; false and no change on anything else.
  bool fromISOString(std::string_view text);

  friend bool operator==(const TimeDate&, const TimeDate&) = default;

 private:
  int year_ = 1970;
  int month_ = 1;
  int day_ = 1;
  int hour_ = 0;
  int minute_ = 0;
  int second_ = 0;
};

}  // namespace utils
