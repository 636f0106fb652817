#include <param/seri/errorStep.h>

#include <utils/errorHandle.h>

namespace param {

namespace {
constexpr unsigned kAbortOrIgnore = static_cast<unsigned>(utils::ErrorResponseType::Abort) |
                                    static_cast<unsigned>(utils::ErrorResponseType::Ignore);
}

SdkError errorStep(SdkError code) {
  if (code == 0) return 0;
  auto answer = utils::ErrorHandle::instance()->raiseError(code, kAbortOrIgnore);
  return answer == utils::ErrorResponseType::Abort ? code : 0;
}

SdkError strictErrorStep(SdkError code) {
  if (code == 0) return 0;
  auto answer = utils::ErrorHandle::instance()->raiseError(code, kAbortOrIgnore);
  return answer == utils::ErrorResponseType::Ignore ? 0 : code;
}

}  // namespace param
