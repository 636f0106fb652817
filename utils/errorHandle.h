#pragma once

#include <functional>

#include <utils/error.h>
#include <utils/export.h>

namespace utils {

// What a caller does after an error: stop the operation, or keep going.
enum class ErrorResponseType : unsigned {
  Abort = 1,   // stop and return the error
  Ignore = 2,  // keep the current value and go on
};

// The process-wide error handler. Loaders report each failed key through
// raiseError and let the answer decide whether the whole load stops. The
// default handler answers Ignore, so that a document written by an older or
// newer build loads with defaults for what it lacks.
class UTILS_API ErrorHandle {
 public:
  // `allowed` is a bit set of the ErrorResponseType values the caller offers.
  using Handler = std::function<ErrorResponseType(SdkError code, unsigned allowed)>;

  static ErrorHandle* instance();

  ErrorResponseType raiseError(SdkError code, unsigned allowed) const;

  // Installs `handler` (an empty one restores the default) and returns the previous one.
  Handler setHandler(Handler handler);

 private:
  ErrorHandle() = default;
  Handler handler_;
};

// Installs a handler for the lifetime of the object, then puts the previous one back.
class UTILS_API ScopedErrorHandler {
 public:
  explicit ScopedErrorHandler(ErrorHandle::Handler handler);
  explicit ScopedErrorHandler(ErrorResponseType fixedAnswer);
  ~ScopedErrorHandler();
  ScopedErrorHandler(const ScopedErrorHandler&) = delete;
  ScopedErrorHandler& operator=(const ScopedErrorHandler&) = delete;

 private:
  ErrorHandle::Handler previous_;
};

}  // namespace utils
