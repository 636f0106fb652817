#include <param/seri/seriObject.h>

namespace param {

SeriObject SeriObject::clone() const {
  return SeriObject(utils::JsonObject::clone(), info_);
}

void SeriObject::swap(SeriObject& other) noexcept {
  utils::JsonObject::swap(other);
  std::swap(info_, other.info_);
}

SdkError SeriObject::setSeriObject(const char* key, SeriObject&& child) {
  child.info_ = info_;
  return setJsonObject(key, std::move(child));
}

SdkError SeriObject::addSeriObject(const char* key, SeriObject&& child) {
  child.info_ = info_;
  return addJsonObject(key, std::move(child));
}

SdkError SeriObject::addSeriArray(const char* key, SeriArray&& child) {
  return addJsonArray(key, std::move(child));
}

SdkError SeriObject::getSeriObject(const char* key, SeriObject& out) const {
  out.info_ = info_;
  return getJsonObject(key, out);
}

SdkError SeriObject::setSeriArray(const char* key, SeriArray&& child) {
  return setJsonArray(key, std::move(child));
}

SdkError SeriObject::getSeriArray(const char* key, SeriArray& out) const {
  out.info_ = info_;
  return getJsonArray(key, out);
}

SdkError SeriObject::getSeriObject(const char* key, SeriObject& out, std::size_t& cursor) const {
  out.info_ = info_;
  return getJsonObject(key, out, cursor);
}

SdkError SeriObject::getSeriArray(const char* key, SeriArray& out, std::size_t& cursor) const {
  out.info_ = info_;
  return getJsonArray(key, out, cursor);
}

SdkError SeriObject::takeSeriObject(const char* key, SeriObject& out) {
  out.info_ = info_;
  return takeJsonObject(key, out);
}

SdkError SeriObject::takeSeriArray(const char* key, SeriArray& out) {
  out.info_ = info_;
  return takeJsonArray(key, out);
}

SeriArray SeriArray::clone() const {
  return SeriArray(utils::JsonArray::clone(), info_);
}

void SeriArray::swap(SeriArray& other) noexcept {
  utils::JsonArray::swap(other);
  std::swap(info_, other.info_);
}

SdkError SeriArray::addSeriObject(SeriObject&& child) {
  child.info_ = info_;
  return addJsonObject(std::move(child));
}

SdkError SeriArray::getSeriObject(std::size_t index, SeriObject& out) const {
  out.info_ = info_;
  return getJsonObject(index, out);
}

SdkError SeriArray::addSeriArray(SeriArray&& child) {
  child.info_ = info_;
  return addJsonArray(std::move(child));
}

SdkError SeriArray::getSeriArray(std::size_t index, SeriArray& out) const {
  out.info_ = info_;
  return getJsonArray(index, out);
}

SdkError SeriArray::setSeriObject(std::size_t index, SeriObject&& child) {
  child.info_ = info_;
  return setJsonObject(index, std::move(child));
}

SdkError SeriArray::setSeriArray(std::size_t index, SeriArray&& child) {
  child.info_ = info_;
  return setJsonArray(index, std::move(child));
}

SdkError SeriArray::takeSeriObject(std::size_t index, SeriObject& out) {
  out.info_ = info_;
  return takeJsonObject(index, out);
}

SdkError SeriArray::takeSeriArray(std::size_t index, SeriArray& out) {
  out.info_ = info_;
  return takeJsonArray(index, out);
}

}  // namespace param
