#pragma once

#include <memory>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// The base of record extensions: a record that another record (a pen, a marking
// job) carries without knowing its type. A subclass implements clone, and load
// and save for its own keys; the base load and save do nothing.
class PARAM_API ExtParam {
 public:
  virtual ~ExtParam() = default;
  // A new heap copy of the concrete record; the caller owns it.
  virtual ExtParam* clone() const = 0;
  [[nodiscard]] virtual SdkError load(const SeriObject& obj);
  [[nodiscard]] virtual SdkError save(SeriObject& obj) const;

 protected:
  ExtParam() = default;
  ExtParam(const ExtParam&) = default;
  ExtParam& operator=(const ExtParam&) = default;
};

// Owns at most one ExtParam. Copies clone the held extension, so two holders
// never share one; a move takes it over and leaves the source empty.
class PARAM_API ExtParamProxy {
 public:
  ExtParamProxy() = default;
  explicit ExtParamProxy(const ExtParam& ext) : ext_(ext.clone()) {}
  ExtParamProxy(const ExtParamProxy& other) : ext_(other.ext_ ? other.ext_->clone() : nullptr) {}
  ExtParamProxy(ExtParamProxy&& other) noexcept = default;
  // Assignment always copies (clones), also from an rvalue.
  ExtParamProxy& operator=(const ExtParamProxy& other);
  ~ExtParamProxy() = default;

  // Destroys the held extension and holds a clone of `ext`.
  void setExtParam(const ExtParam& ext) { ext_.reset(ext.clone()); }
  void clear() { ext_.reset(); }

  ExtParam* get() const { return ext_.get(); }
  bool empty() const { return !ext_; }

  // Forward to the held extension; 0 when there is none.
  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

 private:
  std::unique_ptr<ExtParam> ext_;
};

}  // namespace param
