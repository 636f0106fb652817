#pragma once

#include <cstddef>
#include <cstdint>

#include <utils/error.h>
#include <utils/export.h>
#include <utils/path.h>

namespace utils {

// A regular file opened for reading at any offset, for readers that take a
// large file a slice at a time instead of mapping it whole. Opening fails as
// ro_mmfile's does (errc::fileIoError, the cause in lastFileFailure()): a
// missing file, a directory, a FIFO or any other file that is not regular.
// The size is the file's when it was opened. Movable, not copyable.
class UTILS_API InFile {
 public:
  InFile() = default;
  explicit InFile(const path& file);
  ~InFile();
  InFile(InFile&& other) noexcept;
  InFile& operator=(InFile&& other) noexcept;
  InFile(const InFile&) = delete;
  InFile& operator=(const InFile&) = delete;

  bool is_open() const { return open_; }
  std::uint64_t size() const { return size_; }

  // Reads `count` bytes from `offset` into `out`. errc::fileIoError (cause in
  // lastFileFailure()) when the system fails or the file ends before them.
  [[nodiscard]] SdkError read(std::uint64_t offset, void* out, std::size_t count) const;
  void close();

 private:
  path file_;
  std::uint64_t size_ = 0;
  bool open_ = false;
#ifdef _WIN32
  void* handle_ = nullptr;
#else
  int fd_ = -1;
#endif
};

}  // namespace utils
