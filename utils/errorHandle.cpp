#include <utils/errorHandle.h>

namespace utils {

ErrorHandle* ErrorHandle::instance() {
  static ErrorHandle handle;
  return &handle;
}

ErrorResponseType ErrorHandle::raiseError(SdkError code, unsigned allowed) const {
  if (handler_) return handler_(code, allowed);
  return ErrorResponseType::Ignore;
}

ErrorHandle::Handler ErrorHandle::setHandler(Handler handler) {
  Handler previous = std::move(handler_);
  handler_ = std::move(handler);
  return previous;
}

ScopedErrorHandler::ScopedErrorHandler(ErrorHandle::Handler handler)
    : previous_(ErrorHandle::instance()->setHandler(std::move(handler))) {}

ScopedErrorHandler::ScopedErrorHandler(ErrorResponseType fixedAnswer)
    : ScopedErrorHandler([fixedAnswer](SdkError, unsigned) { return fixedAnswer; }) {}

ScopedErrorHandler::~ScopedErrorHandler() {
  ErrorHandle::instance()->setHandler(std::move(previous_));
}

}  // namespace utils
