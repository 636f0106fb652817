#include <utils/inFile.h>

#include <utility>

#include <utils/fileError.h>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#endif

namespace utils {

InFile::InFile(const path& file) : file_(file) {
#ifdef _WIN32
  HANDLE handle = CreateFileW(
      file.wstring().c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return;
  LARGE_INTEGER fileSize{};
  if (GetFileType(handle) != FILE_TYPE_DISK || GetFileSizeEx(handle, &fileSize) == 0) {
    CloseHandle(handle);
    return;
  }
  handle_ = handle;
  size_ = static_cast<std::uint64_t>(fileSize.QuadPart);
#else
  clearFileFailure();
  // O_NONBLOCK: a FIFO must not hang the open; it is refused below as not a regular file.
  const int fd = ::open(file.native().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  struct stat st {};
  if (fd < 0 || fstat(fd, &st) != 0) {
    recordFileFailure(errc::fileIoError, "open", file, errno);
    if (fd >= 0) ::close(fd);
    return;
  }
  if (!S_ISREG(st.st_mode)) {
    recordFileFailure(errc::fileIoError, "open", file, S_ISDIR(st.st_mode) ? EISDIR : 0);
    ::close(fd);
    return;
  }
  fd_ = fd;
  size_ = static_cast<std::uint64_t>(st.st_size);
#endif
  open_ = true;
}

InFile::~InFile() {
  close();
}

InFile::InFile(InFile&& other) noexcept
    : file_(std::move(other.file_)),
      size_(std::exchange(other.size_, 0)),
      open_(std::exchange(other.open_, false)),
#ifdef _WIN32
      handle_(std::exchange(other.handle_, nullptr)) {
}
#else
      fd_(std::exchange(other.fd_, -1)) {
}
#endif

InFile& InFile::operator=(InFile&& other) noexcept {
  if (this != &other) {
    close();
    file_ = std::move(other.file_);
    size_ = std::exchange(other.size_, 0);
    open_ = std::exchange(other.open_, false);
#ifdef _WIN32
    handle_ = std::exchange(other.handle_, nullptr);
#else
    fd_ = std::exchange(other.fd_, -1);
#endif
  }
  return *this;
}

SdkError InFile::read(std::uint64_t offset, void* out, std::size_t count) const {
  auto* to = static_cast<char*>(out);
  while (count > 0) {
#ifdef _WIN32
    OVERLAPPED at{};
    at.Offset = static_cast<DWORD>(offset & 0xffffffffu);
    at.OffsetHigh = static_cast<DWORD>(offset >> 32);
    const DWORD ask = count > 0x40000000u ? 0x40000000u : static_cast<DWORD>(count);
    DWORD got = 0;
    if (!open_ || ReadFile(static_cast<HANDLE>(handle_), to, ask, &got, &at) == 0 || got == 0) {
      return errc::fileIoError;
    }
#else
    if (!open_) return errc::fileIoError;
    const ssize_t got = ::pread(fd_, to, count, static_cast<off_t>(offset));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) {
      // A file cut short since it was opened ends early: an I/O failure too.
      return recordFileFailure(errc::fileIoError, "read", file_, got < 0 ? errno : EIO);
    }
#endif
    to += got;
    offset += static_cast<std::uint64_t>(got);
    count -= static_cast<std::size_t>(got);
  }
  return 0;
}

void InFile::close() {
#ifdef _WIN32
  if (handle_ != nullptr) CloseHandle(static_cast<HANDLE>(handle_));
  handle_ = nullptr;
#else
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
#endif
  open_ = false;
  size_ = 0;
}

}  // namespace utils
