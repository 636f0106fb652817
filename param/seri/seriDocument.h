#pragma once

#include <string>

#include <utils/path.h>

#include <param/export.h>
#include <param/seri/seriInfo.h>
#include <param/seri/seriObject.h>
#include <param/seri/seriOption.h>

namespace param {

// The root of a saved parameter tree, and the only thing here that touches files.
//
// File layout: the 8-byte option word (little-endian, stored unchanged), then the
// document's JSON text encoded as the word's low four bits select:
//   0 base64 text   1 XOR with a stored key   2 one .xz stream   3 AES
// Before writing, the document stores its SeriInfo under the reserved key
// "__SERIALIZE__INFORMATION__"; after reading it loads it back from there.
//
//   param::SeriDocument doc(utils::JsonSave::instance, ".cfg");
//   param::SeriObject pens(utils::JsonSave::instance);
//   table.save(pens);
//   doc.setSeriObject("pens", std::move(pens));
//   doc.writeToFile("job.cfg", param::SeriOption(param::SeriOption::Lzma));
class PARAM_API SeriDocument : public SeriObject {
 public:
  static constexpr const char* kInfoKey = "__SERIALIZE__INFORMATION__";
  static constexpr std::size_t kHeaderSize = 8;

  // An empty document to read into; its info has the defaults of this build.
  explicit SeriDocument(utils::JsonLoad tag);
  // An empty document to write, whose info carries `extension`.
  SeriDocument(utils::JsonSave tag, const std::string& extension);
  SeriDocument(SeriDocument&& other) noexcept;
  SeriDocument& operator=(SeriDocument&& other) noexcept;
  ~SeriDocument() override = default;

  // A deep copy with its own info.
  SeriDocument clone() const;

  const SeriInfo* info() const { return &info_; }

  // As on SeriObject, but the child or `out` always takes this document's info.
  SdkError setSeriObject(const char* key, SeriObject&& child);
  [[nodiscard]] SdkError getSeriObject(const char* key, SeriObject& out) const;
  SdkError setSeriArray(const char* key, SeriArray&& child);
  [[nodiscard]] SdkError getSeriArray(const char* key, SeriArray& out) const;

  // Writes the document to `file` through a temporary file in the same
  // directory, which is flushed to disk and then renamed over `file`
  // (utils::AtomicFile: links are followed, the old file's permissions kept,
  // concurrent writers take turns). Only a complete file ever replaces the
  // target: on any failure the target keeps its old content and no temporary
  // file is left. An empty info extension takes the file's extension first, and
  // the information block is stored in the document. Codes:
  // errc::unknownEncodingOnWrite (nothing written) for an encoding above 3,
  // errc::mapFailed when the temporary file cannot be created,
  // utils::errc::diskFull for no space, utils::errc::notRegularFile when `file`
  // is a directory, device or FIFO, utils::errc::fileIoError for a failed
  // flush or rename, else the codec's code. The cause is logged and kept in
  // utils::lastFileFailure (param::errorText shows it).
  [[nodiscard]] SdkError writeToFile(const utils::path& file, SeriOption option) const;

  // Replaces the content by the document in `file` and loads its information
  // block. errc::mapFailed when the file cannot be opened,
  // utils::errc::fileTooShort below 8 bytes, errc::badFormat for an encoding
  // above 3, the codec's code for a damaged payload, utils::errc::parseError for
  // text that is not JSON, and the missing-key code when there is no
  // information block (the content is then already replaced).
  [[nodiscard]] SdkError readFromFile(const utils::path& file);

  // readFromFile on the bytes of a document file held in memory (the 8-byte
  // option word, then the payload), for documents that come from elsewhere
  // than a file: standard input, a network, an archive. The same codes.
  [[nodiscard]] SdkError readFromMemory(const void* bytes, std::size_t size);

  // Only the decoding step of reading: the JSON text of the document file
  // `bytes`, not parsed. The same codes as readFromMemory up to the codec's.
  [[nodiscard]] static SdkError decodeFromMemory(const void* bytes, std::size_t size,
                                                 std::string& text);

 protected:
  SeriDocument(SeriObject&& content, const SeriInfo* info);

 private:
  // Mutable because writing fills an empty extension, as the file format has
  // always done, through the const writeToFile.
  mutable SeriInfo info_;
};

}  // namespace param
