#pragma once

#include <cstddef>
#include <cstdint>

#include <utils/error.h>
#include <utils/export.h>
#include <utils/path.h>

namespace utils {

// Replaces a file with new content so that nobody ever sees a partial file and
// a failure never harms the old one.
//
//   utils::AtomicFile out;
//   SdkError e = out.open("job.cfg", size);      // resolves links, reserves space
//   if (!e) e = out.append(header, 8);
//   if (!e) e = out.append(payload, n);
//   if (!e) e = out.commit();                    // flush, keep attributes, rename
//   // on any failure (or if commit is never called) the temporary is removed
//
// How:
// - The bytes go to a temporary file in the directory of the real target: the
//   target's name plus ".tmp", or, when that would be longer than the file
//   system allows, a shorter name made of the start of the target's name and a
//   hash of all of it. Only a complete, flushed temporary file is renamed over
//   the target; on every failure the temporary file is removed and the target
//   keeps its old content.
// - Concurrent writers of one target take turns: each holds an exclusive lock on
//   the temporary file from creating it to renaming it, and a writer that finds
//   the name taken by a finished or dead writer starts again on a fresh file. A
//   reader always sees a whole file, old or new, and the last completed write
//   wins. A temporary file left by a killed process is reused, not piled up.
// - A symbolic link is followed to the file it names, which is replaced; the
//   link stays a link. A target that exists keeps its permission bits, and its
//   owner and group where the process may set them. An existing target that is
//   not a regular file (directory, device, FIFO, socket) is refused with
//   errc::notRegularFile and left alone.
// - Every failure records its cause (utils::lastFileFailure): errc::diskFull for
//   no space, a quota or a file size limit; errc::fileIoError for a failed
//   flush or rename and other write errors; `openFailure` (see open) when the
//   temporary file cannot be created. A process that runs under a file size
//   limit should ignore SIGXFSZ, whose default action ends the process before
//   the error can be returned.
//
// Not copyable or movable; one object writes one file once.
class UTILS_API AtomicFile {
 public:
  AtomicFile() = default;
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  // Prepares to replace `target` with exactly `size` bytes and reserves their
  // space on the disk. `openFailure` is the code returned when the temporary
  // file cannot be created (a missing directory, no permission, a name too long).
  SdkError open(const path& target, std::uint64_t size, SdkError openFailure = errc::fileIoError);

  // Appends bytes; the total must not pass the size given to open.
  SdkError append(const void* bytes, std::size_t count);

  // Flushes the content to the disk, gives it the old file's attributes and
  // renames it over the target. Fails unless exactly `size` bytes were appended.
  SdkError commit();

  // Removes the temporary file and leaves the target as it is.
  void abandon();

  // The file that commit replaces (links resolved) and the temporary file.
  const path& target() const { return target_; }
  const path& temporary() const { return temporary_; }

 private:
  SdkError fail(SdkError code, const char* operation, const path& file, int osError);

  path target_;
  path temporary_;
  std::intptr_t handle_ = -1;  // descriptor (POSIX) or HANDLE (Windows)
  std::uint64_t size_ = 0;
  std::uint64_t written_ = 0;
  bool keepAttributes_ = false;
  unsigned mode_ = 0;
  unsigned owner_ = 0;
  unsigned group_ = 0;
};

}  // namespace utils
