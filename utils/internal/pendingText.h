#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace utils::detail {

struct ScalarValue;

// The compact JSON text of an object's members or an array's elements, for a
// container that has only been added to (a record being saved). Written as it
// is built, it costs no tree: saving and then writing a document formats each
// value once. The text is held in chunks, so that it never moves as it grows
// and a large child is taken over without a copy.
//
// An object's keys are remembered by hash, so that a key set a second time is
// noticed (the owner then builds the tree and replaces the member there).
class PendingText {
 public:
  PendingText() = default;
  PendingText(const PendingText& other);
  ~PendingText();
  PendingText& operator=(const PendingText&) = delete;

  // Members or elements.
  std::size_t count() const { return count_; }
  // Bytes of text, without the brackets.
  std::size_t size() const;

  // The hash by which a key is remembered.
  static std::uint64_t hash(std::string_view key);
  // Whether the key of hash `h` may be a member already (false is certain;
  // after an unchecked member, every key may be).
  bool mayHave(std::uint64_t h) const;
  bool mayHave(std::string_view key) const { return mayHave(hash(key)); }
  // Whether the key of hash `h` is the member added last.
  bool isLast(std::uint64_t h) const { return count_ > 0 && lastHash_ == h; }
  // Drops the member or element added last (once).
  void dropLast();

  // Starts a member: the separator and "key":, `h` being the key's hash. The
  // value follows with one put.
  void beginMember(std::string_view key, std::uint64_t h);
  // The same for a key the caller knows is new, which is not remembered.
  void beginUncheckedMember(std::string_view key);
  void beginElement();
  void putScalar(const ScalarValue& value);
  void putString(std::string_view text);
  // The text of a child container, between `open` and `close`; the child is left empty.
  void putContainer(PendingText&& child, char open, char close);
  // JSON text that is already one formatted value.
  void putRaw(std::string_view json);

  // The text between `open` and `close`, in one string.
  std::string joined(char open, char close) const;
  // Calls `piece(data, size)` with the consecutive pieces of the text.
  template <class F>
  void forEachPiece(F&& piece) const {
    for (const Chunk& c : chunks_)
      piece(c.data.get(), c.used);
  }

 private:
  struct Chunk {
    std::unique_ptr<char[]> data;
    std::size_t used = 0;
    std::size_t capacity = 0;
  };

  // Room for `bytes` more characters at the end of the last chunk.
  char* room(std::size_t bytes) {
    if (!chunks_.empty()) {
      Chunk& c = chunks_.back();
      if (c.capacity - c.used >= bytes) return c.data.get() + c.used;
    }
    return newChunk(bytes);
  }
  char* newChunk(std::size_t bytes);
  void wrote(char* end) {
    chunks_.back().used = static_cast<std::size_t>(end - chunks_.back().data.get());
  }
  void remember(std::uint64_t h);
  void separator();
  void putKey(std::string_view key);

  std::vector<Chunk> chunks_;
  std::size_t count_ = 0;
  std::size_t nextCapacity_ = 512;
  // Where the last member or element starts: chunk and offset.
  std::size_t lastChunk_ = 0;
  std::size_t lastOffset_ = 0;
  std::uint64_t lastHash_ = 0;
  // Open addressing over key hashes: 0 empty, 1 removed.
  std::vector<std::uint64_t> keys_;
  std::size_t keysUsed_ = 0;
  bool unchecked_ = false;  // a member was added without its key remembered
};

}  // namespace utils::detail
