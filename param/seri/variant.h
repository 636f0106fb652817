#pragma once

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// A free-form JSON object that a host's record carries through load and save
// unchanged, stored under the key "variant". Copies are deep.
class PARAM_API Variant : public SeriObject {
 public:
  Variant() : SeriObject(utils::JsonSave::instance) {}
  Variant(const Variant& other) : SeriObject(other.clone()) {}
  Variant& operator=(const Variant& other);
  Variant(Variant&& other) noexcept = default;
  Variant& operator=(Variant&& other) noexcept = default;
  ~Variant() override = default;

  // Becomes a deep copy of parent["variant"]. When that is missing the
  // error-response step decides; on going on the content stays as it was.
  [[nodiscard]] SdkError load(const SeriObject& parent);
  // Stores a deep copy under parent["variant"].
  [[nodiscard]] SdkError save(SeriObject& parent) const;
};

}  // namespace param
