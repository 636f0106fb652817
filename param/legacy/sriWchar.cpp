#include <param/legacy/sriWchar.h>

#include <cstring>
#include <limits>

#include <param/legacy/sriFile.h>

namespace param {

SriWchar::~SriWchar() = default;

void SriWchar::Read(SriFile* f) {
  if (!f || !f->IsOk() || !target_ || count_ == 0) return;
  if (count_ > std::numeric_limits<std::size_t>::max() / 4) {
    // More bytes than any stream holds: let the read fail as too long.
    f->ReadSize(target_, std::numeric_limits<std::size_t>::max());
    return;
  }
  f->ReadSize(target_, count_ * 2);
  if (!widen_ || !f->IsOk()) return;
  // The units sit in the first half of the target; widen them through the
  // adapter's buffer, as source and destination overlap.
  const char* wide = adapter_.Win2Linux(target_, count_);
  if (wide) std::memcpy(target_, wide, count_ * 4);
}

}  // namespace param
