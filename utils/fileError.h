#pragma once

#include <string>

#include <utils/error.h>
#include <utils/export.h>
#include <utils/path.h>

namespace utils {

// Why the most recent file operation of this thread failed: the platform
// layer's code, what it was doing ("create", "reserve space for", "write",
// "flush", "rename", "open"...), the path it was working on and the operating
// system's error number. The file operations of this layer clear it when they
// start and fill it when they fail, so a caller that got a file code can ask
// for the cause without threading it through every signature.
struct UTILS_API FileFailure {
  SdkError code = 0;
  const char* operation = "";
  std::string path;
  int osError = 0;  // errno (POSIX) or GetLastError() mapped to errno values (Windows)

  // "no space left on device": the operating system's reason in plain words,
  // the same in every locale.
  const char* reason() const;
  // "reserve space for /data/job.cfg.tmp: no space left on device"; empty when
  // nothing failed.
  std::string describe() const;
};

// The failure of this thread's most recent file operation (code 0 if it succeeded).
UTILS_API const FileFailure& lastFileFailure();

// Clears this thread's failure: called by each file operation as it starts.
UTILS_API void clearFileFailure();

// Records a failure for this thread and returns `code`, so a caller can write
// `return recordFileFailure(errc::diskFull, "write", file, errno);`.
UTILS_API SdkError recordFileFailure(SdkError code, const char* operation, const path& file,
                                     int osError);

// The code a failed write-side call maps to: errc::diskFull for a full disk, a
// quota or a file size limit, else `otherwise`.
UTILS_API SdkError fileCodeFor(int osError, SdkError otherwise);

// The operating system's reason for `osError` in plain English, independent of
// the process locale ("permission denied", "read-only file system"...).
UTILS_API const char* osErrorText(int osError);

}  // namespace utils
