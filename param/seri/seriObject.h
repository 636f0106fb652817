#pragma once

#include <utils/json.h>

#include <param/export.h>

namespace param {

using utils::SdkError;

struct SeriInfo;
class SeriArray;

// A JSON object of a serialisation tree. Typed values are read and written with
// the inherited get and set; this class adds the child objects and arrays, and a
// borrowed pointer to the SeriInfo of the document the node belongs to.
//
// A child fetched with getSeriObject or getSeriArray is a view that shares the
// parent's storage (see utils::JsonObject); fetching never copies a subtree.
class PARAM_API SeriObject : public utils::JsonObject {
 public:
  explicit SeriObject(utils::JsonLoad tag) : utils::JsonObject(tag) {}
  explicit SeriObject(utils::JsonSave tag) : utils::JsonObject(tag) {}
  SeriObject(SeriObject&& other) noexcept = default;
  SeriObject& operator=(SeriObject&& other) noexcept = default;
  ~SeriObject() override = default;

  // A deep copy of the content with the same info.
  SeriObject clone() const;
  void swap(SeriObject& other) noexcept;

  // The document description this node belongs to; null for a free-standing node.
  const SeriInfo* info() const { return info_; }

  // Stores `child` under `key`; the child takes this node's info first.
  SdkError setSeriObject(const char* key, SeriObject&& child);
  // As setSeriObject for a key this object does not have yet (see
  // utils::JsonObject::add); addSeriArray likewise.
  SdkError addSeriObject(const char* key, SeriObject&& child);
  SdkError addSeriArray(const char* key, SeriArray&& child);
  // `out` takes this node's info, then becomes the object under `key`
  // (errc::keyMissing or errc::wrongType, content untouched, otherwise).
  [[nodiscard]] SdkError getSeriObject(const char* key, SeriObject& out) const;
  // Stores `child` under `key`; the child's own info is left as it is.
  SdkError setSeriArray(const char* key, SeriArray&& child);
  [[nodiscard]] SdkError getSeriArray(const char* key, SeriArray& out) const;
  // The same, looking at the expected position `cursor` first (see the
  // lookups with a cursor in utils::JsonObject).
  [[nodiscard]] SdkError getSeriObject(const char* key, SeriObject& out, std::size_t& cursor) const;
  [[nodiscard]] SdkError getSeriArray(const char* key, SeriArray& out, std::size_t& cursor) const;
  // `out` takes this node's info, then the object or array under `key` is moved
  // into it for editing in place (see utils::JsonObject::takeJsonObject); store
  // it back with setSeriObject or setSeriArray.
  SdkError takeSeriObject(const char* key, SeriObject& out);
  SdkError takeSeriArray(const char* key, SeriArray& out);

 protected:
  SeriObject(utils::JsonObject&& content, const SeriInfo* info)
      : utils::JsonObject(std::move(content)), info_(info) {}

  void setInfo(const SeriInfo* info) { info_ = info; }

 private:
  friend class SeriArray;
  const SeriInfo* info_ = nullptr;
};

}  // namespace param

#include <param/seri/seriArray.h>
