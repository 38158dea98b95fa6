#include "platform/storage/checksum.h"

#include <array>

namespace vx::storage {
namespace {
constexpr auto c_table = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t c = i;
        for (int k = 0; k < 8; ++k)
            c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        table[i] = c;
    }
    return table;
}();
} // namespace

std::uint32_t crc32(std::string_view bytes, std::uint32_t before)
{
    std::uint32_t c = ~before;
    for (char const byte : bytes)
        c = c_table[(c ^ static_cast<unsigned char>(byte)) & 255] ^ (c >> 8);
    return ~c;
}
} // namespace vx::storage
