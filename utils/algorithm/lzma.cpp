#include <utils/algorithm/lzma.h>

// Placeholder until the codecs land.
namespace utils::algorithm::lzma {
SdkError compress(const void*, std::size_t, std::string&, std::uint32_t) { return errc::codecFailure; }
SdkError decompress(const void*, std::size_t, std::string&) { return errc::codecFailure; }
}  // namespace utils::algorithm::lzma
