#include "platform/render/detail/point_mask.h"

#include <algorithm>
#include <cstring>

namespace vx::render {
namespace {
constexpr std::size_t c_max_masks = 16;

/// a * b / 255, rounded, for bytes.
constexpr std::uint32_t byte_product(std::uint32_t a, std::uint32_t b)
{
    std::uint32_t const t = a * b + 128;
    return (t + (t >> 8)) >> 8;
}

/// The same for the four bytes of a pixel at once.
constexpr std::uint32_t scaled(std::uint32_t pixel, std::uint32_t by)
{
    std::uint32_t even = (pixel & 0xFF00FF) * by;
    even = (even + ((even >> 8) & 0xFF00FF) + 0x800080) >> 8 & 0xFF00FF;
    std::uint32_t odd = (pixel >> 8 & 0xFF00FF) * by;
    odd = (odd + ((odd >> 8) & 0xFF00FF) + 0x800080) & 0xFF00FF00;
    return odd | even;
}
} // namespace

void point_mask::blend_pixels(surface const &target, int x, int y, Tvx_color color) const
{
    int const x0 = std::max(0, x + left);
    int const x1 = std::min(target.width, x + left + width);
    int const y0 = std::max(0, y + top);
    int const y1 = std::min(target.height, y + top + height);
    if (x0 >= x1)
        return;
    std::uint32_t const a = color.a;
    std::uint32_t const ink =
        a << 24 | byte_product(color.r, a) << 16 | byte_product(color.g, a) << 8 | byte_product(color.b, a);
    for (int row = y0; row < y1; ++row) {
        std::uint8_t const *cover =
            coverage.data() + static_cast<std::ptrdiff_t>(row - y - top) * width + (x0 - x - left);
        unsigned char *pixel =
            target.pixels + static_cast<std::ptrdiff_t>(row) * target.bytes_per_line + x0 * 4;
        for (int i = x0; i < x1; ++i, ++cover, pixel += 4) {
            if (!*cover)
                continue;
            std::uint32_t const part = *cover == 255 ? ink : scaled(ink, *cover);
            std::uint32_t under;
            std::memcpy(&under, pixel, 4);
            under = part + scaled(under, 255 - (part >> 24));
            std::memcpy(pixel, &under, 4);
        }
    }
}

std::shared_ptr<point_mask const> mask_cache::find(mask_key const &key) const
{
    auto const found = std::ranges::find(f_entries, key, &entry::key);
    return found != f_entries.end() ? found->mask : nullptr;
}

void mask_cache::add(mask_key key, std::shared_ptr<point_mask const> mask)
{
    if (f_entries.size() < c_max_masks)
        f_entries.push_back({std::move(key), std::move(mask)});
    else
        f_entries[f_next++ % c_max_masks] = {std::move(key), std::move(mask)};
}
} // namespace vx::render
