#include <utils/algorithm/lzma.h>

#include <lzma.h>
#include <algorithm>
#include <cstdint>

#include <utils/algorithm/codec.h>

namespace utils::algorithm::lzma {

namespace {

// What the decoder may allocate for its dictionary and state. Every xz preset
// (9e included, 65 MiB) fits; a header asking for more is refused instead of
// letting it take gigabytes.
constexpr std::uint64_t kDecoderMemoryLimit = std::uint64_t(128) << 20;

// Output grows in steps from this size, up to just past the decode limit.
constexpr std::size_t kFirstChunk = std::size_t(64) << 10;

// Frees the coder's memory on every path.
struct Stream {
  lzma_stream s = LZMA_STREAM_INIT;
  Stream() = default;
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  ~Stream() { lzma_end(&s); }
};

SdkError decodeError(lzma_ret ret) {
  switch (ret) {
    case LZMA_MEMLIMIT_ERROR:
      return errc::payloadTooLarge;
    case LZMA_MEM_ERROR:
    case LZMA_PROG_ERROR:
      return errc::codecFailure;
    default:  // format, options, data, buffer (truncated) errors
      return errc::corruptLzma;
  }
}

SdkError decompressInto(const void* bytes, std::size_t count, std::string& out) {
  if (bytes == nullptr || count == 0) return errc::corruptLzma;

  Stream stream;
  // No LZMA_CONCATENATED: the decoder stops at the end of the first stream, and
  // anything after it is refused below.
  lzma_ret ret = lzma_stream_decoder(&stream.s, kDecoderMemoryLimit, 0);
  if (ret != LZMA_OK) return decodeError(ret);

  const std::size_t limit = decodeLimit();
  // The buffer never grows past limit + 1 bytes: one byte more than the limit is
  // enough to know that the payload is too large.
  const std::size_t cap = limit == SIZE_MAX ? limit : limit + 1;
  stream.s.next_in = static_cast<const std::uint8_t*>(bytes);
  stream.s.avail_in = count;
  std::size_t produced = 0;
  while (true) {
    if (produced == out.size()) {
      if (out.size() == cap) return errc::payloadTooLarge;
      const std::size_t grown = std::max(kFirstChunk, out.size() + out.size() / 2);
      out.resize(std::min(grown, cap));
    }
    stream.s.next_out = reinterpret_cast<std::uint8_t*>(out.data()) + produced;
    stream.s.avail_out = out.size() - produced;
    ret = lzma_code(&stream.s, LZMA_FINISH);
    produced = out.size() - stream.s.avail_out;
    if (ret == LZMA_STREAM_END) break;
    if (ret != LZMA_OK) return decodeError(ret);
  }
  if (produced > limit) return errc::payloadTooLarge;
  if (stream.s.avail_in != 0) return errc::corruptLzma;  // bytes after the stream
  out.resize(produced);
  return errc::ok;
}

}  // namespace

SdkError compress(const void* bytes, std::size_t count, std::string& out, std::uint32_t preset) {
  static const std::uint8_t nothing = 0;
  if (bytes == nullptr) {
    if (count != 0) return errc::codecFailure;
    bytes = &nothing;
  }
  std::string result(lzma_stream_buffer_bound(count), '\0');
  std::size_t written = 0;
  const lzma_ret ret = lzma_easy_buffer_encode(
      preset, LZMA_CHECK_CRC64, nullptr, static_cast<const std::uint8_t*>(bytes), count,
      reinterpret_cast<std::uint8_t*>(result.data()), &written, result.size());
  if (ret != LZMA_OK) {
    out.clear();
    return errc::codecFailure;
  }
  result.resize(written);
  out = std::move(result);
  return errc::ok;
}

struct Decompressor::State {
  Stream stream;
  lzma_ret init = LZMA_OK;
  bool last = false;   // the last input was handed over
  bool ended = false;  // the decoder saw the end of the stream
  std::size_t produced = 0;
};

Decompressor::Decompressor() : state_(new State) {
  // No LZMA_CONCATENATED: the decoder stops at the end of the first stream, and
  // anything after it is refused in drain().
  state_->init = lzma_stream_decoder(&state_->stream.s, kDecoderMemoryLimit, 0);
}

Decompressor::~Decompressor() {
  delete state_;
}

void Decompressor::feed(const void* bytes, std::size_t count, bool last) {
  state_->stream.s.next_in = static_cast<const std::uint8_t*>(bytes);
  state_->stream.s.avail_in = count;
  state_->last = last;
}

bool Decompressor::wantsInput() const {
  return state_->stream.s.avail_in == 0 && !state_->last;
}

bool Decompressor::finished() const {
  return state_->ended && state_->last && state_->stream.s.avail_in == 0;
}

SdkError Decompressor::drain(void* out, std::size_t capacity, std::size_t& produced) {
  produced = 0;
  State& st = *state_;
  if (st.init != LZMA_OK) return decodeError(st.init);
  lzma_stream& s = st.stream.s;
  if (st.ended) return s.avail_in != 0 ? errc::corruptLzma : errc::ok;  // bytes after the stream
  s.next_out = static_cast<std::uint8_t*>(out);
  s.avail_out = capacity;
  const lzma_ret ret = lzma_code(&s, st.last ? LZMA_FINISH : LZMA_RUN);
  produced = capacity - s.avail_out;
  st.produced += produced;
  if (st.produced > decodeLimit()) return errc::payloadTooLarge;
  if (ret == LZMA_STREAM_END) {
    st.ended = true;
    return s.avail_in != 0 ? errc::corruptLzma : errc::ok;
  }
  // Without the last input, no progress only means that more is needed.
  if (ret == LZMA_BUF_ERROR && !st.last) return errc::ok;
  // A stream cut short gives LZMA_BUF_ERROR once a call after the last input
  // makes no progress.
  return ret == LZMA_OK ? errc::ok : decodeError(ret);
}

SdkError decompress(const void* bytes, std::size_t count, std::string& out) {
  std::string result;
  const SdkError e = decompressInto(bytes, count, result);
  if (e != errc::ok) result = std::string();  // drops the buffer too
  out = std::move(result);
  return e;
}

}  // namespace utils::algorithm::lzma
