#pragma once

#include <memory>

#include <param/export.h>
#include <param/legacy/sriBase.h>

namespace param {

// Reads a property value by handing the stream to another object's Read. An
// owning proxy destroys its target; copies share the target (an owned one then
// lives until the last copy goes).
class PARAM_API SriProxy : public SriBase {
 public:
  SriProxy() = default;
  SriProxy(SriBase* target, bool owns);
  ~SriProxy() override;

  void Read(SriFile* f) override;

  SriBase* Target() const { return target_.get(); }
  bool OwnsTarget() const { return owns_; }

 private:
  std::shared_ptr<SriBase> target_;
  bool owns_ = false;
};

}  // namespace param
