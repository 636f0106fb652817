#include <utils/mmfile.h>

// Placeholder until the mappings land.
namespace utils {
ro_mmfile::ro_mmfile(const path&, std::size_t, std::uint64_t, unsigned) {}
ro_mmfile::~ro_mmfile() = default;
void ro_mmfile::close() {}
wo_mmfile::wo_mmfile(const path&, std::size_t) {}
wo_mmfile::~wo_mmfile() = default;
SdkError wo_mmfile::write(std::size_t, const void*, std::size_t) { return errc::fileIoError; }
SdkError wo_mmfile::flush() { return errc::fileIoError; }
void wo_mmfile::close() {}
}  // namespace utils
