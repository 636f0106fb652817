#include <param/seri/errorStep.h>

#include <utils/errorHandle.h>
#include <utils/keyPath.h>

#include "internal/quietErrorSteps.h"

namespace param {

namespace {
constexpr unsigned kAbortOrIgnore = static_cast<unsigned>(utils::ErrorResponseType::Abort) |
                                    static_cast<unsigned>(utils::ErrorResponseType::Ignore);

thread_local bool t_quiet = false;

// The walk goes on past the failure: the load path names live keys again.
SdkError goOn() {
  utils::KeyPath::current().resolve();
  return 0;
}
}  // namespace

namespace internal {
QuietErrorSteps::QuietErrorSteps() : outer_(t_quiet) {
  t_quiet = true;
}
QuietErrorSteps::~QuietErrorSteps() {
  t_quiet = outer_;
}
}  // namespace internal

SdkError errorStep(SdkError code) {
  if (code == 0) return 0;
  if (t_quiet) return code;
  auto answer = utils::ErrorHandle::instance()->raiseError(code, kAbortOrIgnore);
  return answer == utils::ErrorResponseType::Abort ? code : goOn();
}

SdkError strictErrorStep(SdkError code) {
  if (code == 0) return 0;
  if (t_quiet) return code;
  auto answer = utils::ErrorHandle::instance()->raiseError(code, kAbortOrIgnore);
  return answer == utils::ErrorResponseType::Ignore ? goOn() : code;
}

}  // namespace param
