#include <utils/fileError.h>

#include <cerrno>
#include <cstring>

namespace utils {

namespace {

thread_local FileFailure t_failure;

}  // namespace

const char* FileFailure::reason() const {
  return osErrorText(osError);
}

std::string FileFailure::describe() const {
  if (code == 0) return {};
  std::string text = operation;
  if (!path.empty()) {
    text += ' ';
    text += path;
  }
  if (osError != 0) {
    text += ": ";
    text += reason();
  }
  return text;
}

const FileFailure& lastFileFailure() {
  return t_failure;
}

void clearFileFailure() {
  t_failure.code = 0;
  t_failure.operation = "";
  t_failure.path.clear();
  t_failure.osError = 0;
}

SdkError recordFileFailure(SdkError code, const char* operation, const path& file, int osError) {
  t_failure.code = code;
  t_failure.operation = operation ? operation : "";
  t_failure.path = file.string();
  t_failure.osError = osError;
  return code;
}

SdkError fileCodeFor(int osError, SdkError otherwise) {
  switch (osError) {
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
    case EFBIG:
      return errc::diskFull;
    default:
      return otherwise;
  }
}

const char* osErrorText(int osError) {
  switch (osError) {
    case 0:
      return "no error";
    case ENOSPC:
      return "no space left on device";
#ifdef EDQUOT
    case EDQUOT:
      return "disk quota exceeded";
#endif
    case EFBIG:
      return "file too large (file size limit reached)";
    case EACCES:
    case EPERM:
      return "permission denied";
    case ENOENT:
      return "not found";
    case EISDIR:
      return "is a directory";
    case ENOTDIR:
      return "a component of the path is not a directory";
    case ENAMETOOLONG:
      return "name too long";
    case EROFS:
      return "read-only file system";
    case EEXIST:
      return "already exists";
    case EBUSY:
      return "device or resource busy";
    case EXDEV:
      return "not on the same file system";
    case EIO:
      return "input/output error";
    case EMFILE:
    case ENFILE:
      return "too many open files";
    case ENOMEM:
      return "not enough memory";
    case ELOOP:
      return "too many levels of symbolic links";
    case EINVAL:
      return "invalid argument";
    case ETXTBSY:
      return "file busy";
    case ENODEV:
    case ENXIO:
      return "no such device";
    default:
      return std::strerror(osError);
  }
}

}  // namespace utils
