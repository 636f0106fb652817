#pragma once

// Helpers shared by the utils tests: a scratch directory, files, random bytes.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include <stdlib.h>

namespace utils_test {

namespace fs = std::filesystem;

// A fresh directory under the system temporary directory, removed afterwards.
struct ScratchDir {
  fs::path dir;
  ScratchDir() {
    std::string pattern = (fs::temp_directory_path() / "utils_test_XXXXXX").string();
    if (mkdtemp(pattern.data()) != nullptr) dir = pattern;
  }
  ~ScratchDir() {
    std::error_code ec;
    if (!dir.empty()) fs::remove_all(dir, ec);
  }
  std::string operator/(const std::string& name) const { return (dir / name).string(); }
};

inline void writeFile(const fs::path& p, const std::string& bytes) {
  std::ofstream(p, std::ios::binary) << bytes;
}

inline std::string readFile(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline std::string randomBytes(std::size_t count, unsigned seed) {
  std::mt19937 gen(seed);
  std::string bytes(count, '\0');
  for (char& c : bytes)
    c = static_cast<char>(gen());
  return bytes;
}

// Runs a shell command line quietly; true when it exits with 0.
inline bool run(const std::string& command) {
  return std::system((command + " 2>/dev/null").c_str()) == 0;
}

}  // namespace utils_test
