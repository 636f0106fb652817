#include <param/legacy/sriFile.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>

#include <utils/logger.h>

namespace param {
namespace {

static_assert(sizeof(int) == 4, "ReadInt reads 4 bytes into an int");

// Returned for empty and failed blocks; zero as narrow and as 16-bit text.
alignas(8) constexpr char emptyBlock[8] = {};

std::uint32_t littleEndian32(const char* p) {
  const auto* b = reinterpret_cast<const unsigned char*>(p);
  return static_cast<std::uint32_t>(b[0]) | static_cast<std::uint32_t>(b[1]) << 8 |
         static_cast<std::uint32_t>(b[2]) << 16 | static_cast<std::uint32_t>(b[3]) << 24;
}

// The next position at or after some start where one byte value occurs (or the
// end of the stream). MoveToDataEnd keeps one per marker and searches again only
// once the scan has passed it, so each stretch of plain bytes is searched once
// per marker with memchr instead of being looked at byte by byte.
struct NextByte {
  unsigned char value;
  std::size_t at = 0;
  bool known = false;

  void refresh(const char* data, std::size_t size, std::size_t pos) {
    if (known && at >= pos) return;
    known = true;
    // Close candidates (dense text) are found faster by looking than by a call.
    const std::size_t near = std::min(size, pos + 16);
    for (at = pos; at < near; ++at) {
      if (static_cast<unsigned char>(data[at]) == value) return;
    }
    const void* hit = near < size ? std::memchr(data + near, value, size - near) : nullptr;
    at = hit ? static_cast<std::size_t>(static_cast<const char*>(hit) - data) : size;
  }
};

}  // namespace

SriFile::SriFile()
    : markers_(std::make_shared<Markers>()), buffer_(std::make_shared<char[]>(bufferCapacity_)) {}

bool SriFile::readFromStream(const char* data, std::size_t size) {
  size_ = size;
  data_ = data;
  pos_ = 0;
  char header[headerSize] = {};
  if (state_ == stateGood) {
    if (!data || size < headerSize) {
      utils::Logger(utils::LogLevel::Error, "Param")
          << "legacy stream refused: " << size << " bytes, shorter than its 256-byte header";
      state_ = stateBadData;
      return false;
    }
    std::memcpy(header, data, headerSize);
    pos_ = headerSize;
  }
  if (littleEndian32(header) != magic) {
    if (state_ == stateGood) {
      utils::Logger(utils::LogLevel::Error, "Param") << "legacy stream refused: bad magic";
    }
    state_ = stateBadData;
    return false;
  }
  const auto version = static_cast<std::int32_t>(littleEndian32(header + 4));
  if (version >= 2) {
    markers_ = std::make_shared<Markers>(Markers{"{:*j", "}!~p", ",8^+"});
  } else {
    markers_ = std::make_shared<Markers>(Markers{"{", "}", ","});
  }
  return true;
}

void SriFile::SetPos(int offset, bool absolute) {
  if (state_ != stateGood) return;
  MoveBy(absolute ? headerSize : pos_, offset);
}

std::size_t SriFile::GetPos() const {
  if (state_ != stateGood || pos_ < headerSize) return static_cast<std::size_t>(-1);
  return pos_ - headerSize;
}

void SriFile::RCurSeek(long long offset) {
  MoveBy(pos_, offset);
}

void SriFile::MoveBy(std::size_t base, long long offset) {
  // The new position, unless it lies before the body (in the header or before
  // the block) or beyond what a position can hold. A position past the end is
  // taken: the next read there fails.
  std::size_t target = 0;
  bool ok = false;
  if (offset >= 0) {
    const auto forward = static_cast<std::size_t>(offset);
    ok = forward <= std::numeric_limits<std::size_t>::max() - base;
    target = base + forward;
  } else {
    const std::size_t back = static_cast<std::size_t>(-(offset + 1)) + 1;
    ok = back <= base && base - back >= headerSize;
    target = base - back;
  }
  if (ok) {
    pos_ = target;
    return;
  }
  if (state_ == stateGood) {
    utils::Logger(utils::LogLevel::Error, "Param")
        << "legacy stream: moving by " << offset << " from body offset "
        << static_cast<long long>(base) - static_cast<long long>(headerSize)
        << " leaves the body; refused";
    state_ = stateBadData;
  }
}

bool SriFile::MatchAt(std::size_t at, const std::string& marker) const {
  return at <= size_ && marker.size() <= size_ - at && !marker.empty() &&
         std::memcmp(data_ + at, marker.data(), marker.size()) == 0;
}

void SriFile::ReadStart() {
  const std::string& start = markers_->start;
  if (state_ != stateGood || start.empty()) return;
  if (!MatchAt(pos_, start)) {
    state_ = stateBadData;
    return;
  }
  pos_ += start.size();
}

int SriFile::ReadSplit() {
  if (state_ != stateGood) return 0;
  const std::string& split = markers_->split;
  const std::string& end = markers_->end;
  if (split.empty()) return 1;  // no header taken yet: nothing to compare
  if (Fits(split.size())) {
    const char* at = data_ + pos_;
    pos_ += split.size();
    if (std::memcmp(at, split.data(), split.size()) == 0) return 1;
    if (end.size() == split.size() && std::memcmp(at, end.data(), end.size()) == 0) return 2;
  }
  state_ = stateNoMarker;
  return 0;
}

void SriFile::ReadInt(int& value) {
  if (state_ != stateGood) return;
  if (!Fits(sizeof value)) {
    state_ = stateBadData;
    return;
  }
  std::memcpy(&value, data_ + pos_, sizeof value);
  pos_ += sizeof value;
}

void SriFile::ReadSize(void* target, std::size_t count) {
  if (state_ != stateGood || !target || count == 0) return;
  if (!Fits(count)) {
    state_ = stateBadData;
    return;
  }
  std::memcpy(target, data_ + pos_, count);
  pos_ += count;
}

const void* SriFile::ReadSizeEx() {
  lastSize_ = 0;
  if (state_ != stateGood) return emptyBlock;
  if (!Fits(4)) {
    state_ = stateBadData;
    return emptyBlock;
  }
  const auto length = static_cast<std::int32_t>(littleEndian32(data_ + pos_));
  pos_ += 4;
  if (length < 0 || !Fits(static_cast<std::size_t>(length))) {
    state_ = stateBadData;
    return emptyBlock;
  }
  if (length == 0) return emptyBlock;
  const auto count = static_cast<std::size_t>(length);
  CheckSize(count + 2);
  char* out = buffer_.get();
  std::memcpy(out, data_ + pos_, count);
  // At least two zero bytes; after an odd count a third (the capacity is even, so
  // there is room), so that the 16-bit reading, whose last unit is then the odd
  // byte, is terminated as well.
  std::memset(out + count, 0, std::min<std::uint64_t>(4, bufferCapacity_ - count));
  pos_ += count;
  lastSize_ = count;
  return out;
}

const char* SriFile::ReadString() {
  return static_cast<const char*>(ReadSizeEx());
}

const wchar_t* SriFile::ReadWString() {
  const void* block = ReadSizeEx();
  if constexpr (sizeof(wchar_t) == 2) {
    return static_cast<const wchar_t*>(block);
  } else {
    const auto* bytes = static_cast<const unsigned char*>(block);
    std::size_t units = 0;
    while (units < (lastSize_ + 1) / 2 && (bytes[2 * units] | bytes[2 * units + 1]) != 0) {
      ++units;
    }
    wide_.assign(units, L'\0');
    adapter_.Win2Linux(bytes, units, wide_.data(), units * sizeof(wchar_t));
    return wide_.c_str();
  }
}

void SriFile::MoveToDataEnd() {
  if (state_ != stateGood) return;
  // Counts down one per byte looked at and three more per nested marker,
  // whatever the markers' length: with one-byte markers the search thus gives up
  // to three bytes per nested marker before the true end of the stream.
  long long remaining = pos_ <= size_ ? static_cast<long long>(size_ - pos_) : -1;
  if (remaining <= 0) {
    state_ = stateNoEnd;
    return;
  }
  const Markers& m = *markers_;
  if (m.start.empty() || m.end.empty() || m.split.empty()) {
    throw std::out_of_range("invalid string position");
  }
  NextByte start{static_cast<unsigned char>(m.start[0])};
  NextByte end{static_cast<unsigned char>(m.end[0])};
  NextByte split{static_cast<unsigned char>(m.split[0])};
  int depth = 0;
  for (;;) {
    // Bytes before the next marker's first byte only count down `remaining`.
    start.refresh(data_, size_, pos_);
    end.refresh(data_, size_, pos_);
    std::size_t next = std::min(start.at, end.at);
    if (depth == 0) {
      split.refresh(data_, size_, pos_);
      next = std::min(next, split.at);
    }
    const std::size_t plain = next - pos_;
    if (next >= size_ || remaining <= static_cast<long long>(plain)) {
      pos_ += static_cast<std::size_t>(std::min<long long>(remaining, plain));
      state_ = stateNoEnd;
      return;
    }
    remaining -= static_cast<long long>(plain) + 1;
    pos_ = next;
    const auto c = static_cast<unsigned char>(data_[pos_]);
    const std::string* found = nullptr;
    if (c == start.value) {
      if (MatchAt(pos_, m.start)) {
        ++depth;
        remaining -= 3;
        pos_ += m.start.size();
      } else {
        ++pos_;
      }
    } else if (c == end.value) {
      if (!MatchAt(pos_, m.end)) {
        ++pos_;
      } else if (depth == 0) {
        found = &m.end;
      } else {
        --depth;
        remaining -= 3;
        pos_ += m.end.size();
      }
    } else if (depth == 0 && c == split.value && MatchAt(pos_, m.split)) {
      found = &m.split;
    } else {
      ++pos_;
    }
    // The position stays in front of the marker found, for ReadSplit to read.
    if (found) return;
    if (remaining < 1) {
      state_ = stateNoEnd;
      return;
    }
  }
}

void SriFile::CheckSize(std::size_t need) {
  if (need <= bufferCapacity_) return;
  bufferCapacity_ = need * 2;
  buffer_ = std::make_shared_for_overwrite<char[]>(bufferCapacity_);
}

void SriFile::WriteErr(const char* text) {
  if (text) error_ += text;
  error_ += "::";
}

}  // namespace param
