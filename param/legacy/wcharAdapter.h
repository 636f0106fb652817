#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include <param/export.h>

namespace param {

// Converts wide text between 16-bit units (old documents, Windows wchar_t) and
// 32-bit characters (wchar_t on Linux). Every unit becomes one character and back;
// surrogate pairs are not combined or split.
//
// The allocating forms write into the adapter's own buffer (512 bytes at first,
// doubled as needed, zeroed before each conversion) and return it; it stays valid
// until the next conversion. The output ends in a zero only when it does not fill
// the buffer. A copy shares the buffer with its source until either one grows it.
class PARAM_API WcharAdapter {
 public:
  static constexpr std::size_t failed = static_cast<std::size_t>(-1);

  WcharAdapter();

  // `count` 32-bit characters at `src` to 16-bit units: the low two bytes of each.
  // Null for a null source or when the buffer cannot be made large enough.
  const char* Linux2Win(const void* src, std::size_t count);
  // `count` 16-bit units at `src` to 32-bit characters with the upper bytes zero.
  const char* Win2Linux(const void* src, std::size_t count);

  // The same into a caller's buffer of `dstSize` bytes. Returns the bytes written
  // (count x 2, or count x 4), or `failed` for a null pointer or a buffer too small.
  std::size_t Linux2Win(const void* src, std::size_t count, void* dst, std::size_t dstSize);
  std::size_t Win2Linux(const void* src, std::size_t count, void* dst, std::size_t dstSize);

  std::uint64_t Capacity() const { return capacity_; }

 private:
  // Grows the buffer (doubling) until it holds `need` bytes, zeroes all of it and
  // returns it; null when that much memory cannot be had.
  char* GetBuffer(std::size_t need);

  std::uint64_t capacity_ = 512;
  std::shared_ptr<char[]> buffer_;
};

}  // namespace param
