#pragma once

#include <cstddef>
#include <string>

#include <param/export.h>
#include <param/legacy/sriBase.h>

namespace param {

// A wide string of 16-bit characters (std::u16string) that can also be read as a
// property value: a signed 32-bit byte count, then that many bytes of 16-bit
// units; the text ends at the first zero unit.
class PARAM_API SeaWString : public SriBase {
 public:
  SeaWString() = default;
  // Up to the terminating zero; null gives an empty text.
  SeaWString(const char16_t* text);
  explicit SeaWString(char16_t ch) : text_(1, ch) {}
  ~SeaWString() override;

  void Read(SriFile* f) override;

  SeaWString& operator+=(const SeaWString& other) {
    text_ += other.text_;
    return *this;
  }

  // Unit by unit, then by length.
  bool operator==(const SeaWString& other) const { return text_ == other.text_; }
  bool operator!=(const SeaWString& other) const { return text_ != other.text_; }
  bool operator<(const SeaWString& other) const { return text_ < other.text_; }
  bool operator>(const SeaWString& other) const { return text_ > other.text_; }

  const char16_t* c_str() const { return text_.c_str(); }
  const std::u16string& str() const { return text_; }
  // In characters (16-bit units).
  std::size_t size() const { return text_.size(); }
  bool empty() const { return text_.empty(); }
  void clear() { text_.clear(); }

 private:
  std::u16string text_;
};

}  // namespace param
