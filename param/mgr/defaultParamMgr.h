#pragma once

#include <memory>
#include <string>

#include <utils/path.h>

#include <param/errors.h>
#include <param/export.h>
#include <param/mgr/initParam.h>
#include <param/seri/seriDocument.h>

namespace param {

// The process-wide store of user defaults for parameter records: one document,
// read from the file named to param::load, whose top-level objects are stored
// records under their type's name ("struct FillLayerParam"). The default
// constructors of FillLayerParam, RectArrayParam, DataRecordParam and
// AnchorPoint load themselves from it on top of their built-in values.
//
// Writing a default stores it and at once saves the whole document back to the
// file it was loaded from.
class PARAM_API DefaultParamMgr : public SeriDocument {
 public:
  // The manager; empty (and "please call DefaultParamMgr::load() first" is
  // logged) before param::load or after param::unload.
  static std::shared_ptr<DefaultParamMgr> instance();

  // readFromFile / writeToFile with the all-zero option word.
  SdkError load(const utils::path& file);
  SdkError save(const utils::path& file) const;

  // Loads `value` from the object stored under `key`. Before param::load this
  // logs the line above and returns errc::notLoaded, leaving `value` as it is.
  template <class T>
  static SdkError loadDefault(const char* key, T& value) {
    SeriObject stored(utils::JsonLoad::instance);
    SdkError e = 0;
    if (std::shared_ptr<DefaultParamMgr> mgr = instance()) {
      e = mgr->getDefaultValue(key, stored);
    } else {
      e = errc::notLoaded;
    }
    return e == 0 ? value.load(stored) : e;
  }

  // Saves `value` as the default under `key` and writes the document file.
  // Returns the result of storing (the file write's own result is not reported).
  template <class T>
  [[nodiscard]] static SdkError storeDefault(const char* key, const T& value) {
    std::shared_ptr<DefaultParamMgr> mgr = instance();
    if (!mgr) return errc::notLoaded;
    SeriObject record(utils::JsonSave::instance);
    if (SdkError e = value.save(record)) return e;
    return mgr->setDefaultValue(key, std::move(record));
  }

 protected:
  explicit DefaultParamMgr(const std::string& extension = "");

  // The stored object `key`, as a view.
  [[nodiscard]] SdkError getDefaultValue(const char* key, SeriObject& value);
  // Stores `value` under `key`, then saves the document to the remembered file
  // on every way out of the call.
  SdkError setDefaultValue(const char* key, SeriObject&& value);

 private:
  friend SdkError param::load(InitParam);
  friend void param::unload();

  static SdkError load(InitParam init);
  static void unload();
};

}  // namespace param
