#pragma once

#include <cstddef>

#include <param/export.h>
#include <param/legacy/sriBase.h>

namespace param {

// Reads a property value of a fixed number of bytes into memory, as stored.
class PARAM_API SriMemory : public SriBase {
 public:
  SriMemory() = default;
  SriMemory(void* target, std::size_t count) : target_(target), count_(count) {}
  ~SriMemory() override;

  void Read(SriFile* f) override;

 private:
  void* target_ = nullptr;
  std::size_t count_ = 0;
};

}  // namespace param
