#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include <param/export.h>
#include <param/legacy/wcharAdapter.h>

namespace param {

// Reader of the older binary document format over a memory block the caller owns
// and keeps alive while reading.
//
// A stream is a 256-byte header (magic 0xd097adf2, then the signed 32-bit format
// version; the rest is not interpreted) and a body of marker-framed objects. The
// version picks the markers: from version 2 on "{:*j", "}!~p" and ",8^+" start an
// object, end it and separate its properties; below 2 "{", "}" and ",".
//
// Bad data never throws. The first failure puts the stream into a sticky error
// state (see the state constants), after which every read does nothing; nothing
// resets it. No read ever goes outside [data, data + size): a read that would run
// past the end fails instead. Positions handed to SetPos and GetPos count from the
// first body byte.
//
// Copies share the marker set and the buffers with their source.
class PARAM_API SriFile {
 public:
  static constexpr std::uint32_t magic = 0xd097adf2;
  static constexpr std::size_t headerSize = 256;

  static constexpr std::int32_t stateGood = 0;
  // Refused header, bad start marker, negative length, a position moved before
  // the body, or a block or value that runs past the end of the stream.
  static constexpr std::int32_t stateBadData = 2;
  // Neither separator nor end marker where one was required.
  static constexpr std::int32_t stateNoMarker = 4;
  // The end of a value being skipped was not found.
  static constexpr std::int32_t stateNoEnd = 5;

  SriFile();

  // Takes the block and checks its header. False (and the bad-data state) for a
  // block shorter than the header, a wrong magic, or a stream already in error.
  [[nodiscard]] bool readFromStream(const char* data, std::size_t size);

  std::size_t Size() const { return size_; }
  // Only in the good state: absolute places the position at `offset` bytes into
  // the body, otherwise moves it by `offset`. A position before the body (in
  // the header) is refused: the stream enters the bad-data state (logged) and
  // the position stays. A position past the end is taken; reading there fails.
  void SetPos(int offset, bool absolute);
  // Offset from the first body byte; all ones in an error state.
  std::size_t GetPos() const;
  // Moves the position by `offset`, whatever the state, with the bounds of
  // SetPos.
  void RCurSeek(long long offset);
  bool IsOk() const { return state_ == stateGood; }
  std::int32_t GetState() const { return state_; }

  // Reads and checks the start marker (bad-data state on a mismatch).
  void ReadStart();
  // Reads the marker after a property: 1 for the separator, 2 for the end
  // marker, 0 for anything else (no-marker state) or an earlier error.
  int ReadSplit();
  // 4 bytes as stored.
  void ReadInt(int& value);
  // `count` bytes as stored into `target`.
  void ReadSize(void* target, std::size_t count);
  // A block of a signed 32-bit byte count and that many bytes, returned with two
  // zero bytes after it so that it reads as narrow or as 16-bit text. The memory
  // is reused by the next call; an empty or failed read gives an empty text.
  const void* ReadSizeEx();
  // Byte count of the block the last ReadSizeEx returned (0 if empty or failed).
  std::size_t GetLastSize() const { return lastSize_; }
  const char* ReadString();
  // The block as wide text. Where wchar_t has 32 bits the 16-bit units are
  // widened (into memory reused by the next call); the text stops at the first
  // zero unit.
  const wchar_t* ReadWString();
  // Skips the rest of a value whose layout is unknown, stepping over nested
  // objects, and stops in front of the separator or end marker that closes it;
  // the no-end state when there is none.
  void MoveToDataEnd();
  // Makes the read buffer hold at least `need` bytes (twice that on growth; the
  // old content is not kept).
  void CheckSize(std::size_t need);
  std::uint64_t BufferCapacity() const { return bufferCapacity_; }

  // Appends `text` and "::" to the error text.
  void WriteErr(const char* text);
  const char* GetError() const { return error_.c_str(); }

 private:
  struct Markers {
    std::string start;
    std::string end;
    std::string split;
  };

  // Sets the position to `base` + `offset`, or refuses a position before the
  // body (see SetPos).
  void MoveBy(std::size_t base, long long offset);
  // Whether `count` bytes from the position lie inside the stream.
  bool Fits(std::size_t count) const { return pos_ <= size_ && count <= size_ - pos_; }
  // Whether `marker` lies at `at`, entirely inside the stream.
  bool MatchAt(std::size_t at, const std::string& marker) const;

  std::string error_;
  std::shared_ptr<Markers> markers_;
  WcharAdapter adapter_;
  std::int32_t state_ = stateGood;
  std::uint64_t bufferCapacity_ = 1024;
  std::shared_ptr<char[]> buffer_;
  std::size_t lastSize_ = 0;
  std::wstring wide_;
  std::size_t size_ = 0;
  const char* data_ = nullptr;
  std::size_t pos_ = 0;
};

}  // namespace param
