#include <utils/algorithm/aes.h>

// Placeholder until the codecs land.
namespace utils::algorithm::aes {
SdkError encrypt(AESAlgorithm, const void*, std::size_t, const std::uint8_t*, std::size_t, std::string&) { return errc::codecFailure; }
SdkError decrypt(AESAlgorithm, const void*, std::size_t, const std::uint8_t*, std::size_t, std::string&) { return errc::codecFailure; }
}  // namespace utils::algorithm::aes
