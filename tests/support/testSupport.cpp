#include "testSupport.h"

#include <atomic>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

#include <unistd.h>

namespace testing_support {

TempDir::TempDir() {
  static std::atomic<unsigned> counter{0};
  std::random_device rd;
  path_ = std::filesystem::temp_directory_path() /
          ("param-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++) + "-" +
           std::to_string(rd()));
  std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
  std::error_code ec;
  std::filesystem::remove_all(path_, ec);
}

std::string readFile(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeFile(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace testing_support
