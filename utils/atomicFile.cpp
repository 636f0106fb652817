#include <utils/atomicFile.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include <utils/fileError.h>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <cstring>
#include <vector>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace utils {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kDefaultNameMax = 255;

// FNV-1a: a short, stable name for a long one.
std::uint64_t nameHash(const fs::path::string_type& name) {
  std::uint64_t h = 0xcbf29ce484222325ull;
  for (auto c : name) {
    h ^= static_cast<std::uint64_t>(static_cast<std::make_unsigned_t<decltype(c)>>(c));
    h *= 0x100000001b3ull;
  }
  return h;
}

// The temporary file's name for `name`: `name` plus ".tmp", or, when that is
// longer than `nameMax` units, the start of `name` (cut before a UTF-8 or
// UTF-16 continuation unit) plus a hash of all of it. Every writer of one target
// computes the same name, which is what lets them take turns on it.
fs::path::string_type temporaryName(const fs::path::string_type& name, std::size_t nameMax) {
  using Char = fs::path::value_type;
  fs::path::string_type tmp = name;
  for (const char* s = ".tmp"; *s; ++s)
    tmp += static_cast<Char>(*s);
  if (tmp.size() <= nameMax) return tmp;

  char hash[24];
  std::snprintf(hash, sizeof hash, "~%016llx.tmp", static_cast<unsigned long long>(nameHash(name)));
  const std::size_t suffix = std::char_traits<char>::length(hash);
  std::size_t keep = nameMax > suffix ? nameMax - suffix : 0;
  if (keep > name.size()) keep = name.size();
  auto continuation = [](Char c) {
    const auto u = static_cast<std::uint32_t>(static_cast<std::make_unsigned_t<Char>>(c));
    return sizeof(Char) == 1 ? (u & 0xc0u) == 0x80u : (u & 0xfc00u) == 0xdc00u;
  };
  while (keep > 0 && keep < name.size() && continuation(name[keep]))
    --keep;
  fs::path::string_type shortName = name.substr(0, keep);
  for (const char* s = hash; *s; ++s)
    shortName += static_cast<Char>(*s);
  return shortName;
}

#ifdef _WIN32

int errnoOf(DWORD error) {
  switch (error) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_ACCESS_DENIED:
      return EACCES;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return ENOENT;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return EBUSY;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return ENOMEM;
    default:
      return EIO;
  }
}

HANDLE asHandle(std::intptr_t h) {
  return reinterpret_cast<HANDLE>(h);
}

#else

// Follows symbolic links from `target` to the file they finally name, which
// need not exist yet (a dangling link names the file to create).
SdkError resolveLinks(const fs::path& target, fs::path& resolved) {
  fs::path current = target;
  for (int hop = 0; hop < 40; ++hop) {
    struct stat st {};
    if (::lstat(current.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) {
      resolved = current;
      return errc::ok;
    }
    std::string link(static_cast<std::size_t>(st.st_size > 0 ? st.st_size : 255) + 1, '\0');
    const ssize_t n = ::readlink(current.c_str(), link.data(), link.size());
    if (n < 0 || static_cast<std::size_t>(n) >= link.size()) {
      return recordFileFailure(errc::fileIoError, "follow the link", path(current),
                               n < 0 ? errno : ENAMETOOLONG);
    }
    link.resize(static_cast<std::size_t>(n));
    const fs::path next(link);
    current = next.is_absolute() ? next : current.parent_path() / next;
  }
  return recordFileFailure(errc::fileIoError, "follow the link", path(target), ELOOP);
}

std::size_t nameMaxOf(const fs::path& directory) {
  const long limit = ::pathconf(directory.empty() ? "." : directory.c_str(), _PC_NAME_MAX);
  return limit > 0 ? static_cast<std::size_t>(limit) : kDefaultNameMax;
}

void syncDirectory(const fs::path& directory) {
  const int fd =
      ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  (void)::fsync(fd);  // best effort: some file systems cannot flush a directory
  ::close(fd);
}

#endif

}  // namespace

AtomicFile::~AtomicFile() {
  abandon();
}

SdkError AtomicFile::fail(SdkError code, const char* operation, const path& file, int osError) {
  const path where = file;  // `file` may be temporary_, which abandon clears
  abandon();
  return recordFileFailure(code, operation, where, osError);
}

#ifdef _WIN32

SdkError AtomicFile::open(const path& target, std::uint64_t size, SdkError openFailure) {
  clearFileFailure();
  abandon();
  target_ = target;
  size_ = size;
  written_ = 0;
  const fs::path& real = target.native();
  const DWORD attributes = GetFileAttributesW(real.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY)) {
    return recordFileFailure(errc::notRegularFile, "replace", target, EISDIR);
  }
  fs::path tmp = real;
  tmp.replace_filename(temporaryName(real.filename().native(), kDefaultNameMax));
  temporary_ = path(tmp);

  // Writers take turns through the share mode: a second writer of the same
  // target waits until the first has renamed its file.
  HANDLE h = INVALID_HANDLE_VALUE;
  for (int attempt = 0; attempt < 3000; ++attempt) {
    h = CreateFileW(tmp.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_ALWAYS,
                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h != INVALID_HANDLE_VALUE || GetLastError() != ERROR_SHARING_VIOLATION) break;
    Sleep(10);
  }
  if (h == INVALID_HANDLE_VALUE) {
    const int error = errnoOf(GetLastError());
    temporary_ = path();
    return recordFileFailure(fileCodeFor(error, openFailure), "create", path(tmp), error);
  }
  if (GetFileType(h) != FILE_TYPE_DISK) {
    CloseHandle(h);
    temporary_ = path();
    return recordFileFailure(errc::notRegularFile, "replace", target, 0);
  }
  handle_ = reinterpret_cast<std::intptr_t>(h);
  LARGE_INTEGER end{};
  end.QuadPart = static_cast<LONGLONG>(size);
  LARGE_INTEGER start{};
  // Setting the end of the file allocates its clusters: a full disk fails here.
  if (!SetFilePointerEx(h, end, nullptr, FILE_BEGIN) || !SetEndOfFile(h) ||
      !SetFilePointerEx(h, start, nullptr, FILE_BEGIN)) {
    const int error = errnoOf(GetLastError());
    return fail(fileCodeFor(error, errc::fileIoError), "reserve space for", temporary_, error);
  }
  return errc::ok;
}

SdkError AtomicFile::append(const void* bytes, std::size_t count) {
  if (handle_ == -1) return errc::fileIoError;
  if (count > size_ - written_) return fail(errc::writeOutOfBounds, "write", temporary_, 0);
  const auto* p = static_cast<const char*>(bytes);
  while (count > 0) {
    const DWORD chunk = count > (1u << 30) ? (1u << 30) : static_cast<DWORD>(count);
    DWORD done = 0;
    if (!WriteFile(asHandle(handle_), p, chunk, &done, nullptr) || done == 0) {
      const int error = errnoOf(GetLastError());
      return fail(fileCodeFor(error, errc::fileIoError), "write", temporary_, error);
    }
    p += done;
    count -= done;
    written_ += done;
  }
  return errc::ok;
}

SdkError AtomicFile::commit() {
  if (handle_ == -1) return errc::fileIoError;
  if (written_ != size_) return fail(errc::writeOutOfBounds, "write", temporary_, 0);
  HANDLE h = asHandle(handle_);
  if (!FlushFileBuffers(h)) {
    const int error = errnoOf(GetLastError());
    return fail(fileCodeFor(error, errc::fileIoError), "flush", temporary_, error);
  }
  // Rename through the open handle, so that no other writer can take the name
  // between closing and renaming.
  const std::wstring name = target_.native().wstring();
  std::vector<char> buffer(sizeof(FILE_RENAME_INFO) + (name.size() + 1) * sizeof(wchar_t));
  auto* info = reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
  info->ReplaceIfExists = TRUE;
  info->RootDirectory = nullptr;
  info->FileNameLength = static_cast<DWORD>(name.size() * sizeof(wchar_t));
  std::memcpy(info->FileName, name.c_str(), (name.size() + 1) * sizeof(wchar_t));
  if (!SetFileInformationByHandle(h, FileRenameInfo, info, static_cast<DWORD>(buffer.size()))) {
    const int error = errnoOf(GetLastError());
    return fail(errc::fileIoError, "rename", temporary_, error);
  }
  CloseHandle(h);
  handle_ = -1;
  temporary_ = path();
  return errc::ok;
}

void AtomicFile::abandon() {
  if (handle_ == -1) return;
  FILE_DISPOSITION_INFO dispose{};
  dispose.DeleteFile = TRUE;
  (void)SetFileInformationByHandle(asHandle(handle_), FileDispositionInfo, &dispose,
                                   sizeof dispose);
  CloseHandle(asHandle(handle_));
  handle_ = -1;
  temporary_ = path();
}

#else

SdkError AtomicFile::open(const path& target, std::uint64_t size, SdkError openFailure) {
  clearFileFailure();
  abandon();
  size_ = size;
  written_ = 0;
  keepAttributes_ = false;

  // Whatever the path names in the end must be a regular file or nothing.
  struct stat st {};
  if (::stat(target.native().c_str(), &st) == 0) {
    if (!S_ISREG(st.st_mode)) {
      return recordFileFailure(errc::notRegularFile, "replace", target,
                               S_ISDIR(st.st_mode) ? EISDIR : 0);
    }
    keepAttributes_ = true;
    mode_ = static_cast<unsigned>(st.st_mode & 07777);
    owner_ = static_cast<unsigned>(st.st_uid);
    group_ = static_cast<unsigned>(st.st_gid);
  }
  fs::path real;
  if (SdkError e = resolveLinks(target.native(), real)) return e;
  target_ = path(real);
  fs::path tmp = real;
  tmp.replace_filename(temporaryName(real.filename().native(), nameMaxOf(real.parent_path())));

  // Take the temporary name: create or open it, lock it, and make sure the
  // locked file still has the name (a writer before us may have renamed or
  // removed it while we waited for the lock).
  int fd = -1;
  for (int attempt = 0;; ++attempt) {
    fd = ::open(tmp.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
    if (fd < 0) {
      const int error = errno;
      return recordFileFailure(error == ELOOP ? errc::notRegularFile : openFailure, "create",
                               path(tmp), error);
    }
    struct stat mine {};
    struct stat named {};
    int rc;
    do {
      rc = ::flock(fd, LOCK_EX);
    } while (rc != 0 && errno == EINTR);
    if (rc != 0 || ::fstat(fd, &mine) != 0 || !S_ISREG(mine.st_mode)) {
      const int error = rc != 0 ? errno : 0;
      ::close(fd);
      return recordFileFailure(rc != 0 ? errc::fileIoError : errc::notRegularFile, "lock",
                               path(tmp), error);
    }
    if (::lstat(tmp.c_str(), &named) == 0 && named.st_dev == mine.st_dev &&
        named.st_ino == mine.st_ino) {
      break;
    }
    ::close(fd);
    if (attempt == 1000) return recordFileFailure(errc::fileIoError, "lock", path(tmp), EBUSY);
  }
  handle_ = fd;
  temporary_ = path(tmp);

  // A file left by a killed writer may hold anything: start empty.
  if (::ftruncate(fd, 0) != 0) {
    const int error = errno;
    return fail(fileCodeFor(error, errc::fileIoError), "truncate", temporary_, error);
  }
  // Reserve the blocks now, so that a full disk shows before a byte is written.
  if (size > 0) {
    int rc;
    do {
      rc = ::posix_fallocate(fd, 0, static_cast<off_t>(size));
    } while (rc == EINTR);
    if (rc != 0 && rc != EOPNOTSUPP && rc != EINVAL) {
      return fail(fileCodeFor(rc, errc::fileIoError), "reserve space for", temporary_, rc);
    }
  }
  return errc::ok;
}

SdkError AtomicFile::append(const void* bytes, std::size_t count) {
  if (handle_ == -1) return errc::fileIoError;
  if (count > size_ - written_) return fail(errc::writeOutOfBounds, "write", temporary_, 0);
  const auto* p = static_cast<const char*>(bytes);
  while (count > 0) {
    const ssize_t n = ::write(static_cast<int>(handle_), p, count);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      const int error = n < 0 ? errno : ENOSPC;
      return fail(fileCodeFor(error, errc::fileIoError), "write", temporary_, error);
    }
    p += n;
    count -= static_cast<std::size_t>(n);
    written_ += static_cast<std::uint64_t>(n);
  }
  return errc::ok;
}

SdkError AtomicFile::commit() {
  if (handle_ == -1) return errc::fileIoError;
  const int fd = static_cast<int>(handle_);
  if (written_ != size_) return fail(errc::writeOutOfBounds, "write", temporary_, 0);
  if (keepAttributes_) {
    // Owner first: a change of owner may clear set-id bits that the mode restores.
    // Only the owner, or a privileged process, may change these; a file that
    // cannot take them keeps the writer's.
    (void)::fchown(fd, static_cast<uid_t>(owner_), static_cast<gid_t>(group_));
    (void)::fchmod(fd, static_cast<mode_t>(mode_));
  }
  if (::fsync(fd) != 0) {
    const int error = errno;
    return fail(fileCodeFor(error, errc::fileIoError), "flush", temporary_, error);
  }
  if (::rename(temporary_.native().c_str(), target_.native().c_str()) != 0) {
    const int error = errno;
    return fail(fileCodeFor(error, errc::fileIoError), "rename", temporary_, error);
  }
  syncDirectory(target_.native().parent_path());
  ::close(fd);  // releases the lock: the next writer finds the name gone and starts afresh
  handle_ = -1;
  temporary_ = path();
  return errc::ok;
}

void AtomicFile::abandon() {
  if (handle_ == -1) return;
  // The lock is still held, so the name is still this file's.
  (void)::unlink(temporary_.native().c_str());
  ::close(static_cast<int>(handle_));
  handle_ = -1;
  temporary_ = path();
}

#endif

}  // namespace utils
