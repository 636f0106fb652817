#include <utils/algorithm/base64.h>

// Placeholder until the codecs land.
namespace utils::algorithm::base64 {
std::size_t encodedSize(std::size_t) { return 0; }
void encode(const void*, std::size_t, std::string& out) { out.clear(); }
void encodeTo(const void*, std::size_t, char*) {}
SdkError decode(const void*, std::size_t, std::string&) { return errc::codecFailure; }
}  // namespace utils::algorithm::base64
