#pragma once

#include <utils/json.h>

#include <param/export.h>

namespace param {

using utils::SdkError;

struct SeriInfo;
class SeriObject;

// A JSON array of a serialisation tree: plain values through the inherited add
// and get, child objects and arrays through the operations below. Like
// SeriObject, it carries the info pointer of its document and hands it to the
// children it reads or adds.
class PARAM_API SeriArray : public utils::JsonArray {
 public:
  explicit SeriArray(utils::JsonLoad tag) : utils::JsonArray(tag) {}
  explicit SeriArray(utils::JsonSave tag) : utils::JsonArray(tag) {}
  SeriArray(SeriArray&& other) noexcept = default;
  SeriArray& operator=(SeriArray&& other) noexcept = default;
  ~SeriArray() override = default;

  SeriArray clone() const;
  void swap(SeriArray& other) noexcept;

  const SeriInfo* info() const { return info_; }

  // Each stamps the child (or `out`) with this array's info first.
  SdkError addSeriObject(SeriObject&& child);
  [[nodiscard]] SdkError getSeriObject(std::size_t index, SeriObject& out) const;
  SdkError addSeriArray(SeriArray&& child);
  [[nodiscard]] SdkError getSeriArray(std::size_t index, SeriArray& out) const;
  // Replace element `index` (index size() appends), stamping the child first.
  SdkError setSeriObject(std::size_t index, SeriObject&& child);
  SdkError setSeriArray(std::size_t index, SeriArray&& child);
  // Move element `index` out for editing in place, as SeriObject::takeSeriObject.
  SdkError takeSeriObject(std::size_t index, SeriObject& out);
  SdkError takeSeriArray(std::size_t index, SeriArray& out);

 protected:
  SeriArray(utils::JsonArray&& content, const SeriInfo* info)
      : utils::JsonArray(std::move(content)), info_(info) {}

 private:
  friend class SeriObject;
  friend class SeriDocument;
  const SeriInfo* info_ = nullptr;
};

}  // namespace param

#include <param/seri/seriObject.h>
