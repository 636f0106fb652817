#include <param/params/extParam.h>

namespace param {

SdkError ExtParam::load(const SeriObject&) {
  return 0;
}
SdkError ExtParam::save(SeriObject&) const {
  return 0;
}

ExtParamProxy& ExtParamProxy::operator=(const ExtParamProxy& other) {
  if (this != &other) ext_.reset(other.ext_ ? other.ext_->clone() : nullptr);
  return *this;
}

SdkError ExtParamProxy::load(const SeriObject& obj) {
  return ext_ ? ext_->load(obj) : 0;
}
SdkError ExtParamProxy::save(SeriObject& obj) const {
  return ext_ ? ext_->save(obj) : 0;
}

}  // namespace param
