#include <utils/keyPath.h>

#include <algorithm>
#include <charconv>

namespace utils {

struct KeyPathOfThread {
  // Trivially destructible and constant-initialised: reaching it costs no guard.
  static constinit thread_local KeyPath path;
};
constinit thread_local KeyPath KeyPathOfThread::path;

namespace {
// The failed member's path, formatted once when the failure is marked.
thread_local std::string t_failedPath;
}  // namespace

KeyPath& KeyPath::current() noexcept {
  return KeyPathOfThread::path;
}

std::string KeyPath::format() const {
  std::string out;
  const std::size_t stored = std::min(depth_, kStored);
  for (std::size_t i = 0; i < stored; ++i) {
    const Frame& f = frames_[i];
    if (f.key != nullptr) {
      if (!out.empty()) out += '.';
      out += f.key;
    } else {
      char digits[24];
      auto res = std::to_chars(digits, digits + sizeof digits, f.index);
      out += '[';
      out.append(digits, res.ptr);
      out += ']';
    }
  }
  if (depth_ > kStored) out += "...";
  return out;
}

std::string KeyPath::str() const {
  return failing_ ? t_failedPath : format();
}

void KeyPath::fail(SdkError code) {
  t_failedPath = format();
  failing_ = true;
  failedCode_ = code;
}

}  // namespace utils
