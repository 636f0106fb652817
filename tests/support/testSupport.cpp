#include "testSupport.h"

#include <atomic>
#include <cstdlib>
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

std::string randomBytes(std::size_t count, unsigned seed) {
  std::mt19937 gen(seed);
  std::string bytes(count, '\0');
  for (char& c : bytes)
    c = static_cast<char>(gen());
  return bytes;
}

bool runCommand(const std::string& command) {
  return std::system((command + " 2>/dev/null").c_str()) == 0;
}

bool haveTool(const std::string& name) {
  return runCommand("command -v " + name + " >/dev/null");
}

param::SeriObject parsed(std::string_view text) {
  param::SeriObject o(utils::JsonLoad::instance);
  EXPECT_EQ(o.parser(text.data(), text.size()), 0u) << text;
  return o;
}

std::string edit(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at != std::string::npos) text.replace(at, from.size(), to);
  return text;
}

}  // namespace testing_support
