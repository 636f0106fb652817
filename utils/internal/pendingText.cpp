#include "pendingText.h"

#include <algorithm>
#include <cstring>

#include <utils/json.h>

#include "jsonText.h"

namespace utils::detail {

namespace {

// Chunks grow from a size that suits a small record to one that suits a file.
constexpr std::size_t kLargestChunk = 64 * 1024;
// A child this small is copied into the parent's chunk rather than taken over.
constexpr std::size_t kCopiedChild = 4096;

// Largest chunks freed on this thread, for the next text built here: a host
// that saves and writes documents over and over reuses warm memory instead of
// faulting fresh pages in. At most 2 MiB a thread is kept.
struct ChunkCache {
  static constexpr std::size_t kKept = 32;
  std::vector<std::unique_ptr<char[]>> free;
};
thread_local ChunkCache chunkCache;

}  // namespace

PendingText::PendingText(const PendingText& other)
    : count_(other.count_),
      lastHash_(other.lastHash_),
      keys_(other.keys_),
      keysUsed_(other.keysUsed_),
      unchecked_(other.unchecked_) {
  // One chunk holding the whole text; the last member's place moves with it.
  const std::size_t bytes = other.size();
  Chunk c;
  c.capacity = std::max<std::size_t>(bytes, 1);
  c.data = std::make_unique<char[]>(c.capacity);
  for (std::size_t i = 0; i < other.chunks_.size(); ++i) {
    if (i == other.lastChunk_) lastOffset_ = c.used + other.lastOffset_;
    std::memcpy(c.data.get() + c.used, other.chunks_[i].data.get(), other.chunks_[i].used);
    c.used += other.chunks_[i].used;
  }
  chunks_.push_back(std::move(c));
}

PendingText::~PendingText() {
  for (Chunk& c : chunks_) {
    if (c.capacity != kLargestChunk || chunkCache.free.size() >= ChunkCache::kKept) continue;
    chunkCache.free.push_back(std::move(c.data));
  }
}

std::size_t PendingText::size() const {
  std::size_t n = 0;
  for (const Chunk& c : chunks_)
    n += c.used;
  return n;
}

std::uint64_t PendingText::hash(std::string_view key) {
  // Eight bytes a step, the last step overlapping the one before: keys are
  // short and hashed once per member saved.
  const char* p = key.data();
  const std::size_t n = key.size();
  std::uint64_t h = n * 0x9e3779b97f4a7c15ull;
  const auto mix = [&h](std::uint64_t w) {
    h = (h ^ w) * 0xbf58476d1ce4e5b9ull;
    h ^= h >> 31;
  };
  if (n >= 8) {
    std::uint64_t w;
    for (std::size_t at = 0; at + 8 < n; at += 8) {
      std::memcpy(&w, p + at, 8);
      mix(w);
    }
    std::memcpy(&w, p + n - 8, 8);
    mix(w);
  } else if (n >= 4) {
    std::uint32_t a, b;
    std::memcpy(&a, p, 4);
    std::memcpy(&b, p + n - 4, 4);
    mix(a | static_cast<std::uint64_t>(b) << 32);
  } else if (n > 0) {
    const auto byte = [p](std::size_t i) {
      return static_cast<std::uint64_t>(static_cast<unsigned char>(p[i]));
    };
    mix(byte(0) | byte(n / 2) << 8 | byte(n - 1) << 16);
  }
  return h | 2;  // never 0 (empty slot) or 1 (removed slot)
}

bool PendingText::mayHave(std::uint64_t h) const {
  if (unchecked_) return true;
  if (keys_.empty()) return false;
  const std::size_t mask = keys_.size() - 1;
  for (std::size_t i = h & mask; keys_[i] != 0; i = (i + 1) & mask) {
    if (keys_[i] == h) return true;
  }
  return false;
}

void PendingText::remember(std::uint64_t h) {
  if ((keysUsed_ + 1) * 2 > keys_.size()) {
    std::vector<std::uint64_t> old(std::max<std::size_t>(keys_.size() * 2, 64), 0);
    old.swap(keys_);
    keysUsed_ = 0;
    for (std::uint64_t k : old) {
      if (k > 1) remember(k);
    }
  }
  const std::size_t mask = keys_.size() - 1;
  std::size_t i = h & mask;
  while (keys_[i] != 0)
    i = (i + 1) & mask;
  keys_[i] = h;
  ++keysUsed_;
}

void PendingText::dropLast() {
  if (count_ == 0) return;
  if (!keys_.empty() && lastHash_ != 0) {
    const std::size_t mask = keys_.size() - 1;
    for (std::size_t i = lastHash_ & mask; keys_[i] != 0; i = (i + 1) & mask) {
      if (keys_[i] == lastHash_) {
        keys_[i] = 1;
        break;
      }
    }
  }
  chunks_.resize(std::min(chunks_.size(), lastChunk_ + 1));
  if (!chunks_.empty()) chunks_.back().used = lastOffset_;
  --count_;
  lastHash_ = 0;
}

char* PendingText::newChunk(std::size_t bytes) {
  Chunk c;
  c.capacity = std::max(bytes, nextCapacity_);
  if (c.capacity == kLargestChunk && !chunkCache.free.empty()) {
    c.data = std::move(chunkCache.free.back());
    chunkCache.free.pop_back();
  } else {
    // Not value-initialised: every byte is written before it is counted.
    c.data.reset(new char[c.capacity]);
  }
  nextCapacity_ = std::min(nextCapacity_ * 4, kLargestChunk);
  chunks_.push_back(std::move(c));
  return chunks_.back().data.get();
}

void PendingText::separator() {
  lastChunk_ = chunks_.empty() ? 0 : chunks_.size() - 1;
  lastOffset_ = chunks_.empty() ? 0 : chunks_.back().used;
  if (count_++ > 0) {
    char* p = room(1);
    *p = ',';
    wrote(p + 1);
  }
}

void PendingText::beginMember(std::string_view key, std::uint64_t h) {
  separator();
  lastHash_ = h;
  remember(lastHash_);
  putKey(key);
}

void PendingText::beginUncheckedMember(std::string_view key) {
  separator();
  lastHash_ = 0;
  unchecked_ = true;
  putKey(key);
}

void PendingText::putKey(std::string_view key) {
  char* p = room(maxStringText(key.size()) + 1);
  p = putJsonString(p, key);
  *p++ = ':';
  wrote(p);
}

void PendingText::beginElement() {
  separator();
  lastHash_ = 0;
}

void PendingText::putScalar(const ScalarValue& value) {
  char* p = room(maxStringText(9));
  switch (value.kind) {
    case ScalarValue::Bool:
      std::memcpy(p, value.b ? "true" : "false", value.b ? 4 : 5);
      p += value.b ? 4 : 5;
      break;
    case ScalarValue::Signed:
      p = putJsonNumber(p, value.i);
      break;
    case ScalarValue::Unsigned:
      p = putJsonNumber(p, value.u);
      break;
    case ScalarValue::Double:
      p = putJsonNumber(p, value.d);
      break;
    case ScalarValue::Float:
      p = putJsonNumber(p, value.f);
      break;
  }
  wrote(p);
}

void PendingText::putString(std::string_view text) {
  char* p = room(maxStringText(text.size()));
  wrote(putJsonString(p, text));
}

void PendingText::putRaw(std::string_view json) {
  char* p = room(json.size());
  std::memcpy(p, json.data(), json.size());
  wrote(p + json.size());
}

void PendingText::putContainer(PendingText&& child, char open, char close) {
  const std::size_t bytes = child.size();
  if (bytes <= kCopiedChild) {
    char* p = room(bytes + 2);
    *p++ = open;
    for (const Chunk& c : child.chunks_) {
      std::memcpy(p, c.data.get(), c.used);
      p += c.used;
    }
    *p++ = close;
    wrote(p);
  } else {
    char* p = room(1);
    *p = open;
    wrote(p + 1);
    for (Chunk& c : child.chunks_) {
      if (c.used > 0) chunks_.push_back(std::move(c));
    }
    p = room(1);
    *p = close;
    wrote(p + 1);
  }
  child.chunks_.clear();
  child.keys_.clear();
  child.count_ = child.keysUsed_ = 0;
  child.lastHash_ = 0;
  child.unchecked_ = false;
}

std::string PendingText::joined(char open, char close) const {
  std::string out;
  out.reserve(size() + 2);
  out += open;
  for (const Chunk& c : chunks_)
    out.append(c.data.get(), c.used);
  out += close;
  return out;
}

}  // namespace utils::detail
