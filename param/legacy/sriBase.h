#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>

#include <param/export.h>

namespace param {

class SriFile;

// An object of the older binary format. A derived class registers, by name, where
// each of its properties lives (in AddProps, called on first Read, or anywhere
// before); Read then walks one object of the stream:
//
//   start marker, then entries separated by the separator and closed by the end
//   marker; an entry is a length-prefixed name and the value its reader takes.
//
// Values are copied byte for byte as stored (little-endian); properties the
// registry does not know are skipped. Bad data leaves the stream in its error
// state with a message appended to its error text ("::" after each, innermost
// failure first); the object keeps what it read before the failure.
//
//   struct Pen : SriBase {
//     int id = 0;
//     double power = 0;
//     SeaWString name;
//     void AddProps() override {
//       AddProp("id", &id);
//       AddProp("power", &power);
//       AddProp("name", &name);
//     }
//   };
//
// A copy starts with an empty registry: registrations point into their own
// object and are never taken over.
class PARAM_API SriBase {
 public:
  SriBase();
  SriBase(const SriBase&);
  SriBase& operator=(const SriBase&);
  virtual ~SriBase();

  virtual void Read(SriFile* f);
  // Where derived classes register their properties; called by Read while the
  // registry is empty.
  virtual void AddProps();

  // Registration. Each throws std::logic_error("name already exists") when the
  // name is registered already (nothing is registered then) and
  // std::invalid_argument for a null name. The value takes as many bytes as the
  // target type has.
  void AddProp(const char* name, bool* target);
  void AddProp(const char* name, char* target);
  void AddProp(const char* name, unsigned char* target);
  void AddProp(const char* name, short* target);
  void AddProp(const char* name, unsigned short* target);
  void AddProp(const char* name, int* target);
  void AddProp(const char* name, unsigned int* target);
  void AddProp(const char* name, long* target);
  void AddProp(const char* name, unsigned long* target);
  void AddProp(const char* name, float* target);
  void AddProp(const char* name, long long* target);
  void AddProp(const char* name, unsigned long long* target);
  void AddProp(const char* name, double* target);
  // A raw block of `n` bytes.
  void AddProp(const char* name, void* target, std::size_t n);
  // A nested object (or SeaWString) that stays owned by the caller.
  void AddProp(const char* name, SriBase* target);
  // `count` 16-bit units, widened where wchar_t has 32 bits.
  void AddWchar(const char* name, wchar_t* target, std::size_t count);
  // `count` 16-bit units as stored.
  void AddWchar(const char* name, char16_t* target, std::size_t count);
  // Registers `reader` itself, which the registry then owns (also when the call
  // throws: it is destroyed then). Throws std::invalid_argument for null.
  void AddPropEx(const char* name, SriBase* reader);

  bool IsPropMapEmpty() const { return props_.empty(); }
  // Destroys every registered reader and empties the registry.
  void SetEmpty();

 private:
  void Register(const char* name, std::unique_ptr<SriBase> reader);

  std::unordered_map<std::string, std::unique_ptr<SriBase>> props_;
};

}  // namespace param
