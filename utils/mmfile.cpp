#include <utils/mmfile.h>

#include <cstdint>
#include <cstring>
#include <utility>

#include <utils/fileError.h>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#endif

namespace utils {

namespace {

// What data() points at for an open mapping of no bytes: never null, never read.
const std::uint8_t kNoBytes[1] = {0};

#ifdef _WIN32

std::uint64_t mapGranularity() {
  SYSTEM_INFO info;
  GetSystemInfo(&info);
  return info.dwAllocationGranularity;
}

#else

// Closes a descriptor when it goes out of scope (the mapping outlives it).
struct Fd {
  int fd;
  ~Fd() {
    if (fd >= 0) ::close(fd);
  }
};

// Gives `fd` `size` bytes with their blocks reserved, so that a full disk shows
// here rather than as a SIGBUS on the first write through the mapping. Returns 0
// or the errno value of the failure.
int reserve(int fd, std::size_t size) {
  if (size == 0) return 0;
#if defined(__APPLE__)
  // No posix_fallocate here: ask for the blocks, then set the size.
  fstore_t store{F_ALLOCATEALL, F_PEOFPOSMODE, 0, static_cast<off_t>(size), 0};
  if (fcntl(fd, F_PREALLOCATE, &store) == -1 && errno == ENOSPC) return ENOSPC;
  return ftruncate(fd, static_cast<off_t>(size)) == 0 ? 0 : errno;
#else
  int rc;
  do {
    rc = posix_fallocate(fd, 0, static_cast<off_t>(size));
  } while (rc == EINTR);
  // A file system without block reservation: set the size and hope for space.
  if (rc == EOPNOTSUPP || rc == EINVAL)
    return ftruncate(fd, static_cast<off_t>(size)) == 0 ? 0 : errno;
  return rc;  // 0, ENOSPC, EFBIG, EIO...
#endif
}

#endif

}  // namespace

// ---------------------------------------------------------------------------
// ro_mmfile

ro_mmfile::ro_mmfile(const path& file, std::size_t size, std::uint64_t offset, unsigned flags) {
  error_ = errc::fileIoError;  // until the mapping stands
#ifdef _WIN32
  const DWORD hint = (flags & mmflags::sequential) ? FILE_FLAG_SEQUENTIAL_SCAN : 0;
  HANDLE handle = CreateFileW(file.wstring().c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | hint, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return;
  LARGE_INTEGER fileSize{};
  const bool sized = GetFileSizeEx(handle, &fileSize) != 0;
  const std::uint64_t total = sized ? static_cast<std::uint64_t>(fileSize.QuadPart) : 0;
  if (!sized || offset > total || (size != all && size > total - offset) ||
      total - offset > SIZE_MAX) {
    CloseHandle(handle);
    return;
  }
  const std::size_t length = size == all ? static_cast<std::size_t>(total - offset) : size;
  if (length == 0) {
    CloseHandle(handle);
    data_ = kNoBytes;
    open_ = true;
    error_ = 0;
    return;
  }
  const std::uint64_t start = offset - offset % mapGranularity();
  const std::size_t lead = static_cast<std::size_t>(offset - start);
  HANDLE mapping = CreateFileMappingW(handle, nullptr, PAGE_READONLY, 0, 0, nullptr);
  void* view = nullptr;
  if (mapping != nullptr) {
    view = MapViewOfFile(mapping, FILE_MAP_READ, static_cast<DWORD>(start >> 32),
                         static_cast<DWORD>(start & 0xffffffffu), length + lead);
    CloseHandle(mapping);  // the view keeps the mapping object alive
  }
  CloseHandle(handle);
  if (view == nullptr) return;
  base_ = view;
  mapped_ = length + lead;
#else
  clearFileFailure();
  // O_NONBLOCK: a FIFO must not hang the open; it is refused below as not a regular file.
  Fd fd{::open(file.native().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
  struct stat st {};
  if (fd.fd < 0 || fstat(fd.fd, &st) != 0) {
    recordFileFailure(error_, "open", file, errno);
    return;
  }
  if (!S_ISREG(st.st_mode)) {
    recordFileFailure(error_, "open", file, S_ISDIR(st.st_mode) ? EISDIR : 0);
    return;
  }
  const auto total = static_cast<std::uint64_t>(st.st_size);
  if (offset > total || (size != all && size > total - offset) || total - offset > SIZE_MAX) {
    recordFileFailure(error_, "map (range past the end of the file)", file, EINVAL);
    return;
  }
  const std::size_t length = size == all ? static_cast<std::size_t>(total - offset) : size;
  if (length == 0) {
    data_ = kNoBytes;
    open_ = true;
    error_ = 0;
    return;
  }
  // mmap wants a page-aligned offset: map from the page boundary below it.
  const auto page = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  const std::uint64_t start = offset - offset % page;
  const auto lead = static_cast<std::size_t>(offset - start);
  if (length > SIZE_MAX - lead) return;
  int mapFlags = MAP_SHARED;
#ifdef MAP_POPULATE
  if (flags & mmflags::populate) mapFlags |= MAP_POPULATE;
#endif
  void* view = mmap(nullptr, length + lead, PROT_READ, mapFlags, fd.fd, static_cast<off_t>(start));
  if (view == MAP_FAILED) {
    recordFileFailure(error_, "map", file, errno);
    return;
  }
  if (flags & mmflags::sequential) (void)madvise(view, length + lead, MADV_SEQUENTIAL);
  base_ = view;
  mapped_ = length + lead;
#endif
  data_ = static_cast<const std::uint8_t*>(base_) + lead;
  size_ = length;
  open_ = true;
  error_ = 0;
}

ro_mmfile::~ro_mmfile() {
  close();
}

ro_mmfile::ro_mmfile(ro_mmfile&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)),
      size_(std::exchange(other.size_, 0)),
      base_(std::exchange(other.base_, nullptr)),
      mapped_(std::exchange(other.mapped_, 0)),
      open_(std::exchange(other.open_, false)),
      error_(std::exchange(other.error_, 0)) {}

ro_mmfile& ro_mmfile::operator=(ro_mmfile&& other) noexcept {
  if (this != &other) {
    close();
    data_ = std::exchange(other.data_, nullptr);
    size_ = std::exchange(other.size_, 0);
    base_ = std::exchange(other.base_, nullptr);
    mapped_ = std::exchange(other.mapped_, 0);
    open_ = std::exchange(other.open_, false);
    error_ = std::exchange(other.error_, 0);
  }
  return *this;
}

void ro_mmfile::close() {
  if (base_ != nullptr) {
#ifdef _WIN32
    UnmapViewOfFile(base_);
#else
    munmap(base_, mapped_);
#endif
  }
  data_ = nullptr;
  size_ = 0;
  base_ = nullptr;
  mapped_ = 0;
  open_ = false;
}

// ---------------------------------------------------------------------------
// wo_mmfile

wo_mmfile::wo_mmfile(const path& file, std::size_t size) {
  error_ = errc::fileIoError;  // until the mapping stands
#ifdef _WIN32
  HANDLE handle = CreateFileW(file.wstring().c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                              nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return;
  LARGE_INTEGER end{};
  end.QuadPart = static_cast<LONGLONG>(size);
  // Setting the end of the file allocates its clusters: a full disk fails here.
  if (!SetFilePointerEx(handle, end, nullptr, FILE_BEGIN) || !SetEndOfFile(handle)) {
    CloseHandle(handle);
    return;
  }
  void* view = nullptr;
  if (size != 0) {
    const auto wide = static_cast<std::uint64_t>(size);
    HANDLE mapping =
        CreateFileMappingW(handle, nullptr, PAGE_READWRITE, static_cast<DWORD>(wide >> 32),
                           static_cast<DWORD>(wide & 0xffffffffu), nullptr);
    if (mapping != nullptr) {
      view = MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, size);
      CloseHandle(mapping);  // the view keeps the mapping object alive
    }
    if (view == nullptr) {
      CloseHandle(handle);
      return;
    }
  }
  // The handle is kept as a C runtime descriptor; _close closes the handle too.
  const int fd = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), 0);
  if (fd < 0) {
    if (view != nullptr) UnmapViewOfFile(view);
    CloseHandle(handle);
    return;
  }
  data_ = static_cast<std::uint8_t*>(view);
  fd_ = fd;
#else
  clearFileFailure();
  const int fd = ::open(file.native().c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (fd < 0) {
    recordFileFailure(error_, "create", file, errno);
    return;
  }
  void* view = nullptr;
  if (const int rc = reserve(fd, size)) {
    ::close(fd);
    error_ = fileCodeFor(rc, error_);
    recordFileFailure(error_, "reserve space for", file, rc);
    return;
  }
  if (size != 0 &&
      (view = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0)) == MAP_FAILED) {
    recordFileFailure(error_, "map", file, errno);
    ::close(fd);
    return;
  }
  data_ = static_cast<std::uint8_t*>(view);
  fd_ = fd;
#endif
  size_ = size;
  error_ = 0;
}

wo_mmfile::~wo_mmfile() {
  close();
}

wo_mmfile::wo_mmfile(wo_mmfile&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)),
      size_(std::exchange(other.size_, 0)),
      fd_(std::exchange(other.fd_, -1)),
      error_(std::exchange(other.error_, 0)) {}

wo_mmfile& wo_mmfile::operator=(wo_mmfile&& other) noexcept {
  if (this != &other) {
    close();
    data_ = std::exchange(other.data_, nullptr);
    size_ = std::exchange(other.size_, 0);
    fd_ = std::exchange(other.fd_, -1);
    error_ = std::exchange(other.error_, 0);
  }
  return *this;
}

SdkError wo_mmfile::write(std::size_t offset, const void* bytes, std::size_t count) {
  if (!is_open()) return errc::fileIoError;
  if (offset > size_ || count > size_ - offset) return errc::writeOutOfBounds;
  if (count == 0) return errc::ok;
  if (bytes == nullptr) return errc::fileIoError;
  std::memcpy(data_ + offset, bytes, count);
  return errc::ok;
}

SdkError wo_mmfile::flush() {
  if (!is_open()) return errc::fileIoError;
#ifdef _WIN32
  if (data_ != nullptr && !FlushViewOfFile(data_, size_)) return errc::fileIoError;
  if (!FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(fd_)))) return errc::fileIoError;
#else
  if (data_ != nullptr && msync(data_, size_, MS_SYNC) != 0) return errc::fileIoError;
  if (fsync(fd_) != 0) return errc::fileIoError;
#endif
  return errc::ok;
}

void wo_mmfile::close() {
  if (data_ != nullptr) {
#ifdef _WIN32
    UnmapViewOfFile(data_);
#else
    munmap(data_, size_);
#endif
  }
  if (fd_ >= 0) {
#ifdef _WIN32
    _close(fd_);
#else
    ::close(fd_);
#endif
  }
  data_ = nullptr;
  size_ = 0;
  fd_ = -1;
}

}  // namespace utils
