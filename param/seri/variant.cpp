#include <param/seri/variant.h>

#include <utils/keyPath.h>

#include <param/seri/errorStep.h>
#include <param/seri/recordIo.h>

namespace param {

Variant& Variant::operator=(const Variant& other) {
  if (this != &other) SeriObject::operator=(other.clone());
  return *this;
}

SdkError Variant::load(const SeriObject& parent) {
  utils::KeyPath& path = utils::KeyPath::current();
  utils::KeyPath::Scope at(path, "variant");
  const KeySource src{parent, "variant"};
  SeriObject stored(utils::JsonLoad::instance);
  if (SdkError e = src.getObject(stored)) {
    reportSkippedAs(path, e, src, [this](KeySink& sink) { return sink.putObject(clone()); });
    return errorStep(e);
  }
  SeriObject::operator=(stored.clone());
  return 0;
}

SdkError Variant::save(SeriObject& parent) const {
  return errorStep(parent.setSeriObject("variant", clone()));
}

}  // namespace param
