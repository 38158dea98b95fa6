#include "platform/base/detail/checksum.h"

#include <array>

namespace vx {
namespace {
constexpr std::size_t c_step = 8;
using crc_table = std::array<std::uint32_t, 256>;

/// Table k gives the effect of a byte that k more bytes follow, so that eight bytes are folded at a time.
constexpr auto c_tables = [] {
    std::array<crc_table, c_step> tables{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t c = i;
        for (int k = 0; k < 8; ++k)
            c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        tables[0][i] = c;
    }
    for (std::size_t k = 1; k < c_step; ++k)
        for (std::size_t i = 0; i < 256; ++i)
            tables[k][i] = tables[k - 1][i] >> 8 ^ tables[0][tables[k - 1][i] & 255];
    return tables;
}();
} // namespace

std::uint32_t crc32(std::string_view bytes, std::uint32_t before)
{
    std::uint32_t c = ~before;
    auto const byte = [&](std::size_t i) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i]));
    };
    for (; bytes.size() >= c_step; bytes.remove_prefix(c_step)) {
        c ^= byte(0) | byte(1) << 8 | byte(2) << 16 | byte(3) << 24;
        c = c_tables[7][c & 255] ^ c_tables[6][c >> 8 & 255] ^ c_tables[5][c >> 16 & 255] ^
            c_tables[4][c >> 24] ^ c_tables[3][byte(4)] ^ c_tables[2][byte(5)] ^ c_tables[1][byte(6)] ^
            c_tables[0][byte(7)];
    }
    for (std::size_t i = 0; i < bytes.size(); ++i)
        c = c_tables[0][(c ^ byte(i)) & 255] ^ c >> 8;
    return ~c;
}
} // namespace vx
