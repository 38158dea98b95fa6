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

void point_mask::find_spans()
{
    f_spans.assign(static_cast<std::size_t>(height), {});
    for (int row = 0; row < height; ++row) {
        std::uint8_t const *cover = coverage.data() + static_cast<std::ptrdiff_t>(row) * width;
        span &s = f_spans[static_cast<std::size_t>(row)];
        auto const covered = [](std::uint8_t c) { return c != 0; };
        auto const is_full = [](std::uint8_t c) { return c == 255; };
        std::uint8_t const *const last = cover + width;
        std::uint8_t const *const begin = std::find_if(cover, last, covered);
        std::uint8_t const *end = last;
        while (end > begin && end[-1] == 0)
            --end;
        std::uint8_t const *const full = std::find_if(begin, end, is_full);
        std::uint8_t const *const full_end = std::find_if_not(full, end, is_full);
        s = {static_cast<int>(begin - cover), static_cast<int>(full - cover),
             static_cast<int>(full_end - cover), static_cast<int>(end - cover)};
    }
}

void point_mask::blend_pixels(surface const &target, int x, int y, Tvx_color color) const
{
    int const corner = x + left;
    int const y0 = std::max(0, y + top);
    int const y1 = std::min(target.height, y + top + height);
    if (corner >= target.width || corner + width <= 0)
        return;
    std::uint32_t const a = color.a;
    std::uint32_t const ink =
        a << 24 | byte_product(color.r, a) << 16 | byte_product(color.g, a) << 8 | byte_product(color.b, a);
    // Columns of the mask that lie on the surface.
    int const first = std::max(0, -corner);
    int const last = std::min(width, target.width - corner);
    for (int row = y0; row < y1; ++row) {
        span const &s = f_spans[static_cast<std::size_t>(row - y - top)];
        std::uint8_t const *const cover =
            coverage.data() + static_cast<std::ptrdiff_t>(row - y - top) * width;
        unsigned char *const pixels = target.pixels +
                                      static_cast<std::ptrdiff_t>(row) * target.bytes_per_line +
                                      static_cast<std::ptrdiff_t>(corner) * 4;
        auto const mix = [&](int from, int to) {
            for (int i = std::max(from, first); i < std::min(to, last); ++i) {
                std::uint32_t const part = cover[i] == 255 ? ink : scaled(ink, cover[i]);
                std::uint32_t under;
                std::memcpy(&under, pixels + i * 4, 4);
                under = part + scaled(under, 255 - (part >> 24));
                std::memcpy(pixels + i * 4, &under, 4);
            }
        };
        if (a < 255) {
            mix(s.begin, s.end);
            continue;
        }
        mix(s.begin, s.full_begin);
        for (int i = std::max(s.full_begin, first); i < std::min(s.full_end, last); ++i)
            std::memcpy(pixels + i * 4, &ink, 4);
        mix(s.full_end, s.end);
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
