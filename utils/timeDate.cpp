#include <utils/timeDate.h>

#include <cstdio>

namespace utils {

namespace {

bool isLeapYear(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int daysInMonth(int year, int month) {
  static constexpr int days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && isLeapYear(year) ? 29 : days[month - 1];
}

// Reads `width` decimal digits at `text`; -1 when any of them is not a digit.
int digits(std::string_view text, std::size_t at, std::size_t width) {
  int value = 0;
  for (std::size_t i = at; i < at + width; ++i) {
    if (text[i] < '0' || text[i] > '9') return -1;
    value = value * 10 + (text[i] - '0');
  }
  return value;
}

}  // namespace

bool TimeDate::setDate(int year, int month, int day) {
  if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 ||
      day > daysInMonth(year, month)) {
    return false;
  }
  year_ = year;
  month_ = month;
  day_ = day;
  return true;
}

bool TimeDate::setTime(int hour, int minute, int second) {
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) {
    return false;
  }
  hour_ = hour;
  minute_ = minute;
  second_ = second;
  return true;
}

std::string TimeDate::toISOString() const {
  char text[32];
  const int n = std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", year_, month_,
                              day_, hour_, minute_, second_);
  return std::string(text, n > 0 ? static_cast<std::size_t>(n) : 0);
}

bool TimeDate::fromISOString(std::string_view text) {
  // Exactly "YYYY-MM-DDTHH:MM:SS".
  if (text.size() != 19 || text[4] != '-' || text[7] != '-' || text[10] != 'T' || text[13] != ':' ||
      text[16] != ':') {
    return false;
  }
  TimeDate read;
  if (!read.setDate(digits(text, 0, 4), digits(text, 5, 2), digits(text, 8, 2)) ||
      !read.setTime(digits(text, 11, 2), digits(text, 14, 2), digits(text, 17, 2))) {
    return false;
  }
  *this = read;
  return true;
}

}  // namespace utils
