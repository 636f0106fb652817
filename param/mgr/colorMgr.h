#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>

#include <utils/color.h>

#include <param/export.h>
#include <param/mgr/initParam.h>
#include <param/seri/seriObject.h>

namespace param {

// The process-wide table of display colours by index (a pen number, say).
// There are no built-in colours: a missing entry reads as transparent and is
// added on first access.
//
// JSON form: {"color": {"<index>": [r, g, b, a], ...}, "mode": 3}.
class PARAM_API ColorMgr {
 public:
  ColorMgr();
  ColorMgr(const ColorMgr&) = default;
  ColorMgr(ColorMgr&&) noexcept = default;
  ColorMgr& operator=(const ColorMgr&) = default;
  ColorMgr& operator=(ColorMgr&&) noexcept = default;

  // The manager; empty (and "please call ColorMgr::load() first" is logged)
  // before param::load or after param::unload.
  static std::shared_ptr<ColorMgr> instance();

  // Checks that `obj` holds a colour table this build can decode: "mode" (3 when
  // absent, 1 to 7 accepted) and the object "color" of index arrays. Malformed
  // entries are skipped with a warning naming the key: a key that is not a
  // decimal index within the signed 32-bit range ("99999999999", "12a"), a
  // value that is not an array, a component that is not a number from 0 to
  // 255. The live table is left as it is: loading validates.
  // A missing "color" goes through the error-response step; an unknown mode is
  // errc::badFormat, logged as "error color mode: <mode>".
  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

  std::shared_ptr<ColorMgr> clone() const;
  // Removes every entry.
  void reset();
  std::size_t size() const { return colors_.size(); }

  // The colour of `index` (truncated to 32 bits), added as transparent when missing.
  utils::Color& operator[](std::size_t index) { return at(index); }
  const utils::Color& operator[](std::size_t index) const { return at(index); }
  utils::Color& at(std::size_t index);
  const utils::Color& at(std::size_t index) const;

 private:
  friend SdkError param::load(InitParam);
  friend void param::unload();

  static SdkError load(InitParam init);
  static void unload();

  // Mutable because even the const accessors add a missing entry.
  mutable std::unordered_map<std::int32_t, utils::Color> colors_;
};

}  // namespace param
