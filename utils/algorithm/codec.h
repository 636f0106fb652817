#pragma once

#include <cstddef>

#include <utils/export.h>

namespace utils::algorithm {

// The largest payload any decoder produces. A payload that would decode to more
// is refused with errc::payloadTooLarge before the memory is taken. Default 1 GiB.
UTILS_API std::size_t decodeLimit();
UTILS_API void setDecodeLimit(std::size_t bytes);

}  // namespace utils::algorithm
