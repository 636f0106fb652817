#include <param/params/markContext.h>

namespace param {

void markContext::setMarkParams(const MarkCtrlData& params) {
  markParam = params;
}

void markContext::reset(const MarkCtrlData& params) {
  sentMarkCount_ = 0;
  actualMarkedCount_ = 0;
  markParam = params;
}

bool markContext::shouldContinueMark() const {
  return markParam.bContinuousMark || sentMarkCount_ < markParam.markCount;
}

}  // namespace param
