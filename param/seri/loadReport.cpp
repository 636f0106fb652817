#include <param/seri/loadReport.h>

#include <string_view>
#include <utility>

#include <utils/keyPath.h>
#include <utils/logger.h>

#include <param/errors.h>

namespace param {

namespace {

thread_local LoadReport* t_innermost = nullptr;

// Longer values are cut in log lines (the report keeps them whole).
constexpr std::size_t kLogTextLimit = 160;

// `text` as a log line shows it: "nothing" when empty, cut at a UTF-8
// character boundary when long.
std::string shown(const std::string& text) {
  if (text.empty()) return "nothing";
  if (text.size() <= kLogTextLimit) return text;
  std::size_t cut = kLogTextLimit;
  while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80)
    --cut;
  return text.substr(0, cut) + "...";
}

}  // namespace

LoadReport::LoadReport() : outer_(t_innermost) {
  t_innermost = this;
}

LoadReport::~LoadReport() {
  t_innermost = outer_;
}

void reportSkippedKey(SdkError code, std::string found, std::string kept) {
  utils::KeyPath& path = utils::KeyPath::current();
  path.fail(code);
  std::string where = path.str();
  const utils::LogLevel level =
      code == utils::errc::keyMissing ? utils::LogLevel::Info : utils::LogLevel::Warning;
  utils::Logger(level, "Param")
      .write(where)
      .write(": ")
      .write(errorText(code))
      .write("; found ")
      .write(shown(found))
      .write("; kept ")
      .write(shown(kept));
  LoadReport::deliver(SkippedKey{std::move(where), code, std::move(found), std::move(kept)});
}

void LoadReport::deliver(SkippedKey&& entry) {
  if (t_innermost != nullptr) t_innermost->entries_.push_back(std::move(entry));
}

}  // namespace param
