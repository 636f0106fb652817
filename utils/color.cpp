#include <utils/color.h>

// Placeholder until colours land.
namespace utils {
const Color Color::Transparent{};
std::size_t Color::componentCount(std::uint8_t) { return 0; }
Color::Color(std::uint8_t, const std::uint8_t*, std::size_t) {}
}  // namespace utils
