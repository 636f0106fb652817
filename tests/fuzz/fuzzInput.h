#pragma once

// What the fuzz targets share: typed values taken from the fuzzer's bytes, and
// a quiet library.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include <utils/logger.h>

namespace fuzz {

// Takes values from the front of the input; once the bytes run out every value
// is zero. Any bit pattern is taken as it comes, so doubles include NaN,
// infinities and subnormals.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : data_(reinterpret_cast<const char*>(data)), size_(size) {}

  bool empty() const { return size_ == 0; }
  std::size_t left() const { return size_; }

  template <class T>
  T take() {
    static_assert(std::is_trivially_copyable_v<T>);
    T value{};
    const std::size_t n = std::min(sizeof(T), size_);
    std::memcpy(&value, data_, n);
    data_ += n;
    size_ -= n;
    return value;
  }
  std::uint8_t byte() { return take<std::uint8_t>(); }
  bool flag() { return (byte() & 1) != 0; }
  // A number from 0 to `count` - 1 (count from 1 to 256).
  std::size_t pick(std::size_t count) { return byte() % count; }
  double real() { return take<double>(); }
  float real32() { return take<float>(); }

  // Everything not taken yet.
  std::string_view rest() {
    std::string_view all(data_, size_);
    data_ += size_;
    size_ = 0;
    return all;
  }

 private:
  const char* data_;
  std::size_t size_;
};

// Drops the library's log lines: a fuzzer feeds it bad data on purpose, and
// writing millions of warnings would only slow it down.
inline void quietLog() {
  static const bool once = [] {
    utils::Logger::setSink([](utils::LogLevel, std::string_view, std::string_view) {});
    return true;
  }();
  (void)once;
}

}  // namespace fuzz
