#include <param/legacy/sriBase.h>

#include <stdexcept>
#include <string>

#include <param/legacy/sriFile.h>
#include <param/legacy/sriMemory.h>
#include <param/legacy/sriProxy.h>
#include <param/legacy/sriWchar.h>

namespace param {
namespace {

constexpr std::size_t emptyBuckets = 8;

void writeErr(SriFile* f, const char* prefix, const std::string& name) {
  f->WriteErr((prefix + name).c_str());
}

}  // namespace

SriBase::SriBase() = default;
SriBase::SriBase(const SriBase&) : SriBase() {}
SriBase& SriBase::operator=(const SriBase&) {
  return *this;
}
SriBase::~SriBase() {
  SetEmpty();
}

void SriBase::AddProps() {}

void SriBase::Read(SriFile* f) {
  if (props_.empty()) AddProps();
  if (!f) return;
  if (!f->IsOk()) {
    f->WriteErr("ReadStart err");
    return;
  }
  f->ReadStart();
  if (!f->IsOk()) {
    f->WriteErr("ReadStart err");
    return;
  }
  std::string name;
  for (;;) {
    if (!f->IsOk()) {
      writeErr(f, "ReadSplit after: ", name);
      return;
    }
    name = f->ReadString();
    if (!f->IsOk()) {
      writeErr(f, "strIndex: ", name);
      return;
    }
    const auto found = props_.find(name);
    if (found != props_.end()) {
      found->second->Read(f);
      if (!f->IsOk()) {
        writeErr(f, "Value: ", name);
        return;
      }
    } else {
      f->MoveToDataEnd();
      if (!f->IsOk()) {
        writeErr(f, "MoveToDataEnd: ", name);
        return;
      }
    }
    const int marker = f->ReadSplit();
    if (marker == 0) {
      f->WriteErr("ReadSplit error");
      return;
    }
    if (marker == 2 || !f->IsOk()) return;
  }
}

void SriBase::Register(const char* name, std::unique_ptr<SriBase> reader) {
  if (!name) throw std::invalid_argument("property name is null");
  if (!reader) throw std::invalid_argument("property reader is null");
  if (!props_.try_emplace(name, std::move(reader)).second) {
    throw std::logic_error("name already exists");
  }
}

void SriBase::AddProp(const char* name, bool* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, char* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, unsigned char* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, short* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, unsigned short* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, int* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, unsigned int* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, long* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, unsigned long* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, float* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, long long* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, unsigned long long* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, double* target) {
  Register(name, std::make_unique<SriMemory>(target, sizeof *target));
}
void SriBase::AddProp(const char* name, void* target, std::size_t n) {
  Register(name, std::make_unique<SriMemory>(target, n));
}
void SriBase::AddProp(const char* name, SriBase* target) {
  Register(name, std::make_unique<SriProxy>(target, false));
}
void SriBase::AddWchar(const char* name, wchar_t* target, std::size_t count) {
  Register(name, std::make_unique<SriWchar>(target, count));
}
void SriBase::AddWchar(const char* name, char16_t* target, std::size_t count) {
  Register(name, std::make_unique<SriWchar>(target, count));
}
void SriBase::AddPropEx(const char* name, SriBase* reader) {
  Register(name, std::unique_ptr<SriBase>(reader));
}

void SriBase::SetEmpty() {
  // Readers go first, then the table itself, which keeps a few buckets.
  for (auto& entry : props_)
    entry.second.reset();
  decltype(props_)().swap(props_);
  props_.rehash(emptyBuckets);
}

}  // namespace param
