#pragma once

#include <cstddef>

#include <param/export.h>
#include <param/legacy/sriBase.h>
#include <param/legacy/wcharAdapter.h>

namespace param {

// Reads a fixed array of 16-bit characters (2 x count bytes in the stream). Into
// a char16_t array, or a 16-bit wchar_t one, the units are copied as stored; into
// a 32-bit wchar_t array each unit is widened to one character.
class PARAM_API SriWchar : public SriBase {
 public:
  SriWchar() = default;
  SriWchar(wchar_t* target, std::size_t count)
      : target_(target), count_(count), widen_(sizeof(wchar_t) == 4) {}
  SriWchar(char16_t* target, std::size_t count) : target_(target), count_(count) {}
  ~SriWchar() override;

  void Read(SriFile* f) override;

 private:
  WcharAdapter adapter_;
  void* target_ = nullptr;
  std::size_t count_ = 0;
  bool widen_ = false;
};

}  // namespace param
