#include <param/mgr/colorMgr.h>

#include <charconv>
#include <new>
#include <string>

#include <utils/logger.h>

#include <param/errors.h>
#include <param/seri/errorStep.h>

namespace param {

namespace {

std::shared_ptr<ColorMgr> g_instance;

constexpr std::uint8_t kSavedMode = 3;  // colours are written as RGBA
constexpr std::size_t kEmptyBuckets = 8;

utils::Logger paramLog(utils::LogLevel level) {
  return utils::Logger(level, "Param");
}

// A colour index as save writes it: an optional '-' and decimal digits, within
// the signed 32-bit range, and nothing else.
bool parseIndex(const std::string& key, std::int32_t& index) {
  if (key.empty() || key[0] == '+') return false;
  const char* end = key.data() + key.size();
  const auto [ptr, ec] = std::from_chars(key.data(), end, index);
  return ec == std::errc() && ptr == end;
}

void logSkipped(const std::string& key, const char* cause) {
  paramLog(utils::LogLevel::Warning) << "colour \"" << key << "\" skipped: " << cause;
}

}  // namespace

ColorMgr::ColorMgr() {
  colors_.max_load_factor(1.0f);
  colors_.rehash(kEmptyBuckets);
}

std::shared_ptr<ColorMgr> ColorMgr::instance() {
  if (!g_instance) paramLog(utils::LogLevel::Error) << "please call ColorMgr::load() first";
  return g_instance;
}

utils::Color& ColorMgr::at(std::size_t index) {
  return colors_.try_emplace(static_cast<std::int32_t>(index), utils::Color::Transparent)
      .first->second;
}

const utils::Color& ColorMgr::at(std::size_t index) const {
  return colors_.try_emplace(static_cast<std::int32_t>(index), utils::Color::Transparent)
      .first->second;
}

std::shared_ptr<ColorMgr> ColorMgr::clone() const {
  return std::make_shared<ColorMgr>(*this);
}

void ColorMgr::reset() {
  colors_.clear();
  colors_.rehash(kEmptyBuckets);
}

SdkError ColorMgr::load(const SeriObject& obj) {
  const std::uint8_t mode = obj.load("mode", kSavedMode);
  SeriObject table(utils::JsonLoad::instance);
  if (SdkError e = obj.getSeriObject("color", table)) return errorStep(e);

  const std::size_t count = utils::Color::componentCount(mode);
  if (count == 0) {
    paramLog(utils::LogLevel::Warning) << "error color mode: " << mode;
    return errc::badFormat;
  }
  std::unordered_map<std::int32_t, utils::Color> decoded;
  for (const std::string& key : table.keys()) {
    std::int32_t index = 0;
    if (!parseIndex(key, index)) {
      logSkipped(key, "not a 32-bit decimal index");
      continue;
    }
    SeriArray entry(utils::JsonLoad::instance);
    if (table.getSeriArray(key.c_str(), entry) != 0) {
      logSkipped(key, "not an array");
      continue;
    }
    std::uint8_t components[4] = {};
    const std::size_t n = std::min(count, entry.size());
    bool ok = true;
    for (std::size_t i = 0; i < n && ok; ++i)
      ok = entry.get(i, components[i]) == 0;
    if (!ok) {
      logSkipped(key, "a component is not a number from 0 to 255");
      continue;
    }
    decoded[index] = utils::Color(mode, components, n);
  }
  // The decoded table only proves the form; the live table stays as it is.
  return 0;
}

SdkError ColorMgr::save(SeriObject& obj) const {
  SeriObject table(utils::JsonSave::instance);
  for (const auto& [index, color] : colors_) {
    SeriArray rgba(utils::JsonSave::instance);
    for (std::uint8_t component : color.rgbaValue())
      rgba.add(component);
    table.setSeriArray(std::to_string(index).c_str(), std::move(rgba));
  }
  if (SdkError e = errorStep(obj.setSeriObject("color", std::move(table)))) return e;
  if (SdkError e = errorStep(obj.set("mode", kSavedMode))) return e;
  return 0;
}

SdkError ColorMgr::load(InitParam) {
  if (!g_instance) {
    g_instance.reset(new (std::nothrow) ColorMgr());
    if (!g_instance) {
      paramLog(utils::LogLevel::Error) << "not enough memory to initialize colorMgr";
      return errc::outOfMemory;
    }
  }
  paramLog(utils::LogLevel::Verbose) << "colorMgr loaded.";
  return 0;
}

void ColorMgr::unload() {
  std::shared_ptr<ColorMgr> dropped = std::move(g_instance);
  g_instance.reset();
  dropped.reset();
  paramLog(utils::LogLevel::Verbose) << "colorMgr unloaded.";
}

}  // namespace param
