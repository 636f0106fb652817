#include <param/legacy/sriProxy.h>

#include <param/legacy/sriFile.h>

namespace param {

SriProxy::SriProxy(SriBase* target, bool owns)
    : target_(owns ? std::shared_ptr<SriBase>(target)
                   : std::shared_ptr<SriBase>(target, [](SriBase*) {})),
      owns_(owns) {}

SriProxy::~SriProxy() = default;

void SriProxy::Read(SriFile* f) {
  if (!f || !f->IsOk() || !target_) return;
  target_->Read(f);
}

}  // namespace param
