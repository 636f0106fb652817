#include <param/seri/variant.h>

#include <param/seri/errorStep.h>

namespace param {

Variant& Variant::operator=(const Variant& other) {
  if (this != &other) SeriObject::operator=(other.clone());
  return *this;
}

SdkError Variant::load(const SeriObject& parent) {
  SeriObject stored(utils::JsonLoad::instance);
  if (SdkError e = parent.getSeriObject("variant", stored)) return errorStep(e);
  SeriObject::operator=(stored.clone());
  return 0;
}

SdkError Variant::save(SeriObject& parent) const {
  return errorStep(parent.setSeriObject("variant", clone()));
}

}  // namespace param
