#include <param/legacy/seaWString.h>

#include <cstring>
#include <utility>

#include <param/legacy/sriFile.h>

namespace param {

SeaWString::SeaWString(const char16_t* text) {
  if (text) text_ = text;
}

SeaWString::~SeaWString() = default;

void SeaWString::Read(SriFile* f) {
  if (!f || !f->IsOk()) return;
  const auto* bytes = static_cast<const char*>(f->ReadSizeEx());
  if (!f->IsOk()) return;
  // An odd last byte makes a unit of its own with a zero high byte; the block is
  // followed by zero bytes, so that unit is complete.
  const std::size_t available = (f->GetLastSize() + 1) / 2;
  std::u16string text;
  for (std::size_t i = 0; i < available; ++i) {
    char16_t unit;
    std::memcpy(&unit, bytes + 2 * i, sizeof unit);
    if (unit == 0) break;
    text.push_back(unit);
  }
  text_ = std::move(text);
}

}  // namespace param
