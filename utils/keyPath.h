#pragma once

#include <cstddef>
#include <string>

#include <utils/error.h>
#include <utils/export.h>

namespace utils {

// The path of the JSON member that this thread is reading, from the outermost
// object the walk started at: "params[3].laserPower", "axParArray[1].setting.axisId".
//
// Whoever walks a tree pushes each key or index it enters and pops it when it
// is done (Scope does both). Keys are kept as the pointers given, so keeping the
// path costs a store per member and nothing is formatted until str() is asked;
// a key must stay valid while it is on the path.
//
// When a member cannot be read, the walker marks it with fail(). While that
// error travels up through the enclosing walkers, str() goes on naming the
// member that failed (not the enclosing one being unwound), and unwinding(code)
// tells an enclosing walker that the failure was already reported. The next
// push, or resolve() once someone decides to go on, ends that state.
//
// An error handler that wants to tell the operator which value was dropped
// asks utils::KeyPath::current().str() while it is being called.
class UTILS_API KeyPath {
 public:
  // This thread's path.
  static KeyPath& current() noexcept;

  void push(const char* key) noexcept { place(key, 0); }
  void push(std::size_t index) noexcept { place(nullptr, index); }
  // Back at the outermost level, a failure is over too.
  void pop() noexcept {
    if (--depth_ == 0) failing_ = false;
  }
  std::size_t depth() const noexcept { return depth_; }

  // The path as text: keys joined by dots, indexes in brackets. While a
  // failure unwinds, the failed member's path; empty outside any walk.
  std::string str() const;

  // Marks the member at the top of the path as failed with `code`.
  void fail(SdkError code);
  // Whether a failure with `code` marked deeper down is travelling up.
  bool unwinding(SdkError code) const noexcept { return failing_ && failedCode_ == code; }
  // Ends the failure state: the error was dealt with and the walk goes on.
  void resolve() noexcept { failing_ = false; }

  // Pushes a key or an index for as long as it lives.
  class Scope {
   public:
    Scope(KeyPath& path, const char* key) noexcept : path_(path) { path.push(key); }
    Scope(KeyPath& path, std::size_t index) noexcept : path_(path) { path.push(index); }
    ~Scope() { path_.pop(); }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    KeyPath& path_;
  };

  KeyPath(const KeyPath&) = delete;
  KeyPath& operator=(const KeyPath&) = delete;

 private:
  friend struct KeyPathOfThread;
  constexpr KeyPath() = default;

  // Deeper levels are counted but not stored; str() marks them with "...".
  static constexpr std::size_t kStored = 64;

  struct Frame {
    const char* key = nullptr;  // null: an array index
    std::size_t index = 0;
  };

  void place(const char* key, std::size_t index) noexcept {
    if (depth_ < kStored) frames_[depth_] = Frame{key, index};
    ++depth_;
    failing_ = false;
  }
  std::string format() const;

  Frame frames_[kStored]{};
  std::size_t depth_ = 0;
  bool failing_ = false;
  SdkError failedCode_ = 0;
};

}  // namespace utils
