#pragma once

#include <cstdint>
#include <string>

#include <utils/version.h>

#include <param/export.h>
#include <param/seri/seriObject.h>

namespace param {

// The description of a document, stored in it under "__SERIALIZE__INFORMATION__"
// as {"ver", "os", "arch", "extension"}. Every node of a document's tree can see
// it through info(), so that a record knows which build wrote what it loads.
struct PARAM_API SeriInfo {
  utils::Version ver = utils::Version::g_sdkBuildVersion;
  std::string os = buildOs();             // "Windows", "Linux" or "macOS"
  std::uint8_t arch = sizeof(void*) * 8;  // pointer width of the writer
  std::string extension;                  // the document file's extension

  SeriInfo() = default;
  explicit SeriInfo(std::string ext) : extension(std::move(ext)) {}

  // Reads "ver", "os", "arch", "extension". "ver" goes on past an error unless
  // the handler aborts, and a text that is no version raises param::errc::badVersion
  // and keeps `ver`; the other three go on only when the handler answers Ignore.
  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

  // The operating system this library was built for.
  static const char* buildOs();
};

}  // namespace param
