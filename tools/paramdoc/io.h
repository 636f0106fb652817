#pragma once

// Reading and writing the files paramdoc works on; "-" stands for standard
// input or standard output. Failures are reported on standard error with the
// file's name and the operating system's cause.

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace paramdoc {

// "standard input" or "standard output" for "-", else the name itself.
std::string inputName(const std::string& name);
std::string outputName(const std::string& name);

// The bytes of one file, or of standard input. A regular file is mapped, not
// copied; pipes and standard input are read up to a size limit. Directories
// and devices are refused.
class Input {
 public:
  Input() = default;
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;
  ~Input();

  // Reads `name`; on failure reports "paramdoc: <name>: <cause>" and returns false.
  bool open(const std::string& name);

  std::string_view bytes() const { return {data_, size_}; }
  // The name to use in messages.
  const std::string& name() const { return name_; }

 private:
  // Reads all of `f` into the buffer; reports a failure and returns false.
  bool take(std::FILE* f);

  std::string name_;
  std::string buffer_;  // what was read, when not mapped
  const char* data_ = nullptr;
  std::size_t size_ = 0;
  void* mapping_ = nullptr;
  std::size_t mappedSize_ = 0;
};

// Writes `bytes` to the file `name`, or to standard output for "-". A file is
// written whole or reported: "paramdoc: <name>: <cause>", false.
bool writeOutput(const std::string& name, std::string_view bytes);

// printf to standard output, remembering the cause of a failed write for
// finishStandardOutput. Every command prints through it.
#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
void print(const char* format, ...);

// Flushes standard output and reports a write that failed at any point
// (a full disk, a closed pipe). Every command ends with it.
bool finishStandardOutput();

}  // namespace paramdoc
