#include <utils/timeDate.h>

// Placeholder until dates land.
namespace utils {
bool TimeDate::setDate(int, int, int) { return false; }
bool TimeDate::setTime(int, int, int) { return false; }
std::string TimeDate::toISOString() const { return {}; }
bool TimeDate::fromISOString(std::string_view) { return false; }
}  // namespace utils
