#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <utils/error.h>
#include <utils/export.h>

// LZMA2 in one .xz stream with a CRC64 check, as `xz -d` reads it.
namespace utils::algorithm::lzma {

// xz's fastest preset: a 256 KiB dictionary and about 3 MiB of encoder memory.
// JSON repeats itself at short range, so a larger preset makes documents only a
// few per cent smaller while costing more time and, above 16 MiB of encoder
// memory, fresh pages on every call.
inline constexpr std::uint32_t defaultPreset = 0;

// errc::codecFailure for a preset liblzma does not know (0-9, optionally with
// LZMA_PRESET_EXTREME).
[[nodiscard]] UTILS_API SdkError compress(const void* bytes, std::size_t count, std::string& out,
                                          std::uint32_t preset = defaultPreset);

// Exactly one stream: an empty, corrupt or truncated stream, or bytes after its
// end, give errc::corruptLzma; output beyond the decode limit, or a header that
// asks the decoder for more than 128 MiB of memory, errc::payloadTooLarge.
[[nodiscard]] UTILS_API SdkError decompress(const void* bytes, std::size_t count, std::string& out);

// Decompression a slice at a time, with decompress's checks and codes, for a
// stream too large to hold decoded at once. Input is handed over with feed();
// drain() decodes what it can into a buffer of the caller's. Usage:
//
//   while (!d.finished()) {
//     if (d.wantsInput()) d.feed(next, count, isLast);
//     if (SdkError e = d.drain(buffer, size, produced)) return e;
//     use(buffer, produced);
//   }
class UTILS_API Decompressor {
 public:
  Decompressor();
  ~Decompressor();
  Decompressor(const Decompressor&) = delete;
  Decompressor& operator=(const Decompressor&) = delete;

  // The next `count` bytes of the stream, which stay valid until they are
  // used up; `last` when no more follow.
  void feed(const void* bytes, std::size_t count, bool last);
  // Decodes into `out` (at most `capacity` bytes, `produced` of them written).
  [[nodiscard]] SdkError drain(void* out, std::size_t capacity, std::size_t& produced);
  // Whether the input handed over is used up while more is to come.
  bool wantsInput() const;
  // Whether the stream ended with the last input, everything drained.
  bool finished() const;

 private:
  struct State;
  State* state_;
};

}  // namespace utils::algorithm::lzma
