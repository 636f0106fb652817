#include "documentFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>

#include <utils/algorithm/aes.h>
#include <utils/algorithm/base64.h>
#include <utils/algorithm/lzma.h>
#include <utils/algorithm/xor.h>

// The library's document keys, compiled into this program from the library's
// own source (see bench/CMakeLists.txt).
#include <param/seri/internal/documentKeys.h>

namespace peers {
namespace {

namespace alg = utils::algorithm;

constexpr alg::AESAlgorithm kAes[4] = {alg::AESAlgorithm::GCM, alg::AESAlgorithm::CFB,
                                       alg::AESAlgorithm::CBC, alg::AESAlgorithm::CTR};

bool writeAll(int fd, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t n = ::write(fd, data, size);
    if (n <= 0) return false;
    data += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

}  // namespace

bool readDocument(const std::string& file, std::string& text) {
  std::string bytes;
  {
    const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    struct stat st {};
    bool ok = ::fstat(fd, &st) == 0;
    if (ok) bytes.resize(static_cast<std::size_t>(st.st_size));
    for (std::size_t at = 0; ok && at < bytes.size();) {
      const ssize_t n = ::read(fd, bytes.data() + at, bytes.size() - at);
      ok = n > 0;
      at += ok ? static_cast<std::size_t>(n) : 0;
    }
    ::close(fd);
    if (!ok || bytes.size() < 8) return false;
  }
  std::uint64_t word = 0;
  for (int i = 0; i < 8; ++i)
    word |= static_cast<std::uint64_t>(static_cast<std::uint8_t>(bytes[i])) << (8 * i);
  const param::SeriOption option(word);
  const char* payload = bytes.data() + 8;
  const std::size_t size = bytes.size() - 8;
  const std::uint8_t* key = param::documentKey(option.keyIndex());
  switch (option.encoding()) {
    case param::SeriOption::Base64:
      return alg::base64::decode(payload, size, text) == 0;
    case param::SeriOption::Xor:
      alg::XOR::decode(payload, size, key, 16, text);
      return true;
    case param::SeriOption::Lzma:
      return alg::lzma::decompress(payload, size, text) == 0;
    case param::SeriOption::Aes:
      return alg::aes::decrypt(kAes[option.aesAlgorithm()], payload, size, key, 16, text) == 0;
    default:
      return false;
  }
}

bool writeDocument(const std::string& file, param::SeriOption option, std::string_view text) {
  std::string payload;
  const std::uint8_t* key = param::documentKey(option.keyIndex());
  switch (option.encoding()) {
    case param::SeriOption::Base64:
      alg::base64::encode(text.data(), text.size(), payload);
      break;
    case param::SeriOption::Xor:
      alg::XOR::encode(text.data(), text.size(), key, 16, payload);
      break;
    case param::SeriOption::Lzma:
      if (alg::lzma::compress(text.data(), text.size(), payload) != 0) return false;
      break;
    case param::SeriOption::Aes:
      if (alg::aes::encrypt(kAes[option.aesAlgorithm()], text.data(), text.size(), key, 16,
                            payload) != 0) {
        return false;
      }
      break;
    default:
      return false;
  }
  char header[8];
  for (int i = 0; i < 8; ++i)
    header[i] = static_cast<char>(option.word >> (8 * i));

  const std::string temporary = file + ".tmp";
  const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (fd < 0) return false;
  bool ok = writeAll(fd, header, sizeof header) && writeAll(fd, payload.data(), payload.size()) &&
            ::fsync(fd) == 0;
  ok = ::close(fd) == 0 && ok;
  ok = ok && std::rename(temporary.c_str(), file.c_str()) == 0;
  if (!ok) {
    ::unlink(temporary.c_str());
    return false;
  }
  const std::string folder = std::filesystem::path(file).parent_path().string();
  const int dir = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir < 0) return false;
  ok = ::fsync(dir) == 0;
  ::close(dir);
  return ok;
}

}  // namespace peers
