#include <param/legacy/sriMemory.h>

#include <param/legacy/sriFile.h>

namespace param {

SriMemory::~SriMemory() = default;

void SriMemory::Read(SriFile* f) {
  if (!f || !f->IsOk() || !target_ || count_ == 0) return;
  f->ReadSize(target_, count_);
}

}  // namespace param
