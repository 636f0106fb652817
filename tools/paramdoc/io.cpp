#include "io.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include <utils/algorithm/codec.h>

#include "command.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace paramdoc {

namespace {

// The most that is read from a pipe: a base64 payload that decodes to the
// library's decode limit, with room for the header.
std::size_t readLimit() {
  return utils::algorithm::decodeLimit() / 3 * 4 + 64;
}

std::string tooLarge() {
  return "larger than the decode limit (" + std::to_string(utils::algorithm::decodeLimit()) +
         " bytes)";
}

// Reads a stream to its end; false with errno set, or with `limitHit`.
bool readAll(std::FILE* in, std::string& out, bool& limitHit) {
  const std::size_t limit = readLimit();
  char chunk[1 << 16];
  for (;;) {
    const std::size_t n = std::fread(chunk, 1, sizeof chunk, in);
    if (out.size() + n > limit) {
      limitHit = true;
      return false;
    }
    out.append(chunk, n);
    if (n < sizeof chunk) return std::ferror(in) == 0;
  }
}

// The cause of the first write to standard output that failed.
int g_stdoutError = 0;

void noteStdoutFailure() {
  if (g_stdoutError == 0) g_stdoutError = errno != 0 ? errno : EIO;
}

}  // namespace

void print(const char* format, ...) {
  std::va_list args;
  va_start(args, format);
  errno = 0;
  if (std::vprintf(format, args) < 0) noteStdoutFailure();
  va_end(args);
}

std::string inputName(const std::string& name) {
  return name == "-" ? "standard input" : name;
}

std::string outputName(const std::string& name) {
  return name == "-" ? "standard output" : name;
}

Input::~Input() {
#ifndef _WIN32
  if (mapping_ != nullptr) ::munmap(mapping_, mappedSize_);
#endif
}

bool Input::open(const std::string& name) {
  name_ = inputName(name);
  if (name == "-") {
#ifdef _WIN32
    _setmode(_fileno(stdin), _O_BINARY);
#endif
    return take(stdin);
  }
#ifdef _WIN32
  std::FILE* f = std::fopen(name.c_str(), "rb");
  if (f == nullptr) return failed(name_, std::strerror(errno));
  const bool ok = take(f);
  std::fclose(f);
  return ok;
#else
  const int fd = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return failed(name_, std::strerror(errno));
  struct stat st {};
  if (::fstat(fd, &st) != 0) {
    const int cause = errno;
    ::close(fd);
    return failed(name_, std::strerror(cause));
  }
  if (S_ISDIR(st.st_mode) || !(S_ISREG(st.st_mode) || S_ISFIFO(st.st_mode))) {
    ::close(fd);
    return failed(name_,
                  S_ISDIR(st.st_mode) ? std::strerror(EISDIR) : "not a regular file or a pipe");
  }
  if (S_ISREG(st.st_mode) && st.st_size > 0) {
    mappedSize_ = static_cast<std::size_t>(st.st_size);
    void* map = ::mmap(nullptr, mappedSize_, PROT_READ, MAP_PRIVATE, fd, 0);
    const int cause = errno;
    ::close(fd);
    if (map == MAP_FAILED) return failed(name_, std::strerror(cause));
    mapping_ = map;
    data_ = static_cast<const char*>(map);
    size_ = mappedSize_;
    return true;
  }
  std::FILE* f = ::fdopen(fd, "rb");
  if (f == nullptr) {
    const int cause = errno;
    ::close(fd);
    return failed(name_, std::strerror(cause));
  }
  const bool ok = take(f);
  std::fclose(f);
  return ok;
#endif
}

bool Input::take(std::FILE* f) {
  bool limitHit = false;
  errno = 0;
  if (!readAll(f, buffer_, limitHit)) {
    return failed(name_, limitHit ? tooLarge() : std::strerror(errno ? errno : EIO));
  }
  data_ = buffer_.data();
  size_ = buffer_.size();
  return true;
}

bool writeOutput(const std::string& name, std::string_view bytes) {
  if (name == "-") {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size()) noteStdoutFailure();
    return true;  // reported once, when the command ends
  }
  std::FILE* f = std::fopen(name.c_str(), "wb");
  if (f == nullptr) return failed(name, std::strerror(errno));
  bool ok = std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
  int cause = ok ? 0 : errno;
  if (std::fclose(f) != 0 && ok) {
    ok = false;
    cause = errno;
  }
  return ok || failed(name, std::strerror(cause ? cause : EIO));
}

bool finishStandardOutput() {
  errno = 0;
  if (std::fflush(stdout) != 0) noteStdoutFailure();
  if (g_stdoutError == 0 && std::ferror(stdout) == 0) return true;
  return failed("standard output", std::strerror(g_stdoutError != 0 ? g_stdoutError : EIO));
}

}  // namespace paramdoc
