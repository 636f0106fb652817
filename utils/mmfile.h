#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include <utils/error.h>
#include <utils/export.h>
#include <utils/path.h>

namespace utils {

// Access hints for ro_mmfile; the default (10) is sequential | populate.
namespace mmflags {
inline constexpr unsigned sequential = 2;  // the mapping is read front to back
inline constexpr unsigned populate = 8;    // read the pages in at once
}  // namespace mmflags

// A read-only memory mapping of (part of) a file. An empty file (or an empty
// range) maps as open with size 0 and a non-null data(). A range that reaches
// past the end of the file, a missing file, a directory or one that cannot be
// read leaves it not open with errc::fileIoError. The offset need not be
// page-aligned. Movable, not copyable; unmapped on destruction.
class UTILS_API ro_mmfile {
 public:
  static constexpr std::size_t all = std::numeric_limits<std::size_t>::max();

  ro_mmfile() = default;
  // Maps `size` bytes from `offset` (all: to the end of the file).
  explicit ro_mmfile(const path& file, std::size_t size = all, std::uint64_t offset = 0,
                     unsigned flags = mmflags::sequential | mmflags::populate);
  ~ro_mmfile();
  ro_mmfile(ro_mmfile&& other) noexcept;
  ro_mmfile& operator=(ro_mmfile&& other) noexcept;
  ro_mmfile(const ro_mmfile&) = delete;
  ro_mmfile& operator=(const ro_mmfile&) = delete;

  bool is_open() const { return open_; }
  const std::uint8_t* data() const { return data_; }
  std::size_t size() const { return size_; }
  // Why the file is not open (errc::fileIoError), or 0.
  SdkError error() const { return error_; }
  void close();

 private:
  const std::uint8_t* data_ = nullptr;
  std::size_t size_ = 0;
  void* base_ = nullptr;  // page-aligned start of the mapping
  std::size_t mapped_ = 0;
  bool open_ = false;
  SdkError error_ = 0;
};

// A write-only memory mapping of a new file of a fixed size. The file is created
// (or truncated) at that size with its blocks reserved, so that a full disk is an
// error here rather than a crash on the first write; write() fills it, flush()
// makes it durable. Size 0 is open with nothing mapped (data() is null).
// close() unmaps and closes without flushing and may be called again; the
// destructor closes. Movable, not copyable.
class UTILS_API wo_mmfile {
 public:
  wo_mmfile() = default;
  wo_mmfile(const path& file, std::size_t size);
  ~wo_mmfile();
  wo_mmfile(wo_mmfile&& other) noexcept;
  wo_mmfile& operator=(wo_mmfile&& other) noexcept;
  wo_mmfile(const wo_mmfile&) = delete;
  wo_mmfile& operator=(const wo_mmfile&) = delete;

  bool is_open() const { return fd_ >= 0; }
  std::size_t size() const { return size_; }
  std::uint8_t* data() { return data_; }
  SdkError error() const { return error_; }

  // Copies `count` bytes to `offset`; errc::writeOutOfBounds past the end.
  [[nodiscard]] SdkError write(std::size_t offset, const void* bytes, std::size_t count);
  // Writes the mapped pages and the file's metadata to the disk.
  [[nodiscard]] SdkError flush();
  void close();

 private:
  std::uint8_t* data_ = nullptr;
  std::size_t size_ = 0;
  int fd_ = -1;
  SdkError error_ = 0;
};

}  // namespace utils
