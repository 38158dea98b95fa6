#pragma once

#include <cstdint>
#include <string_view>

namespace vx {
/// CRC-32 as in ISO 3309, of the pieces that were fed in turn; start with 0.
[[nodiscard]] std::uint32_t crc32(std::string_view bytes, std::uint32_t before = 0);
} // namespace vx
