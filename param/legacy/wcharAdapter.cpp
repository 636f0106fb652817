#include <param/legacy/wcharAdapter.h>

#include <cstring>
#include <limits>
#include <new>

namespace param {
namespace {

constexpr std::size_t maxSize = std::numeric_limits<std::size_t>::max();

// Unit i of a 32-bit source keeps its bytes 4i and 4i+1; the 16-bit output is
// exactly those bytes, whatever the host's byte order.
void narrowUnits(const unsigned char* src, std::size_t count, unsigned char* dst) {
  for (std::size_t i = 0; i < count; ++i) {
    dst[2 * i] = src[4 * i];
    dst[2 * i + 1] = src[4 * i + 1];
  }
}

void widenUnits(const unsigned char* src, std::size_t count, unsigned char* dst) {
  for (std::size_t i = 0; i < count; ++i) {
    dst[4 * i] = src[2 * i];
    dst[4 * i + 1] = src[2 * i + 1];
    dst[4 * i + 2] = 0;
    dst[4 * i + 3] = 0;
  }
}

}  // namespace

WcharAdapter::WcharAdapter() : buffer_(std::make_shared<char[]>(capacity_)) {}

char* WcharAdapter::GetBuffer(std::size_t need) {
  if (need > capacity_ || !buffer_) {
    buffer_.reset();
    std::uint64_t capacity = capacity_ == 0 ? 1 : capacity_;
    while (need > capacity) {
      capacity = capacity > maxSize / 2 ? need : capacity * 2;
    }
    try {
      buffer_ = std::make_shared_for_overwrite<char[]>(capacity);
    } catch (const std::bad_alloc&) {
      return nullptr;
    }
    capacity_ = capacity;
  }
  std::memset(buffer_.get(), 0, capacity_);
  return buffer_.get();
}

const char* WcharAdapter::Linux2Win(const void* src, std::size_t count) {
  if (!src || count > maxSize / 4) return nullptr;
  char* out = GetBuffer(count * 2);
  if (!out) return nullptr;
  narrowUnits(static_cast<const unsigned char*>(src), count, reinterpret_cast<unsigned char*>(out));
  return out;
}

const char* WcharAdapter::Win2Linux(const void* src, std::size_t count) {
  if (!src || count > maxSize / 4) return nullptr;
  char* out = GetBuffer(count * 4);
  if (!out) return nullptr;
  widenUnits(static_cast<const unsigned char*>(src), count, reinterpret_cast<unsigned char*>(out));
  return out;
}

std::size_t WcharAdapter::Linux2Win(const void* src, std::size_t count, void* dst,
                                    std::size_t dstSize) {
  if (!src || !dst || count > dstSize / 2) return failed;
  narrowUnits(static_cast<const unsigned char*>(src), count, static_cast<unsigned char*>(dst));
  return count * 2;
}

std::size_t WcharAdapter::Win2Linux(const void* src, std::size_t count, void* dst,
                                    std::size_t dstSize) {
  if (!src || !dst || count > dstSize / 4) return failed;
  widenUnits(static_cast<const unsigned char*>(src), count, static_cast<unsigned char*>(dst));
  return count * 4;
}

}  // namespace param
