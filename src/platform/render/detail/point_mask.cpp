#include "platform/render/detail/point_mask.h"

#include <algorithm>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

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

/// The ink through a coverage over what is there.
void mix_one(std::uint32_t ink, std::uint8_t cover, unsigned char *pixel)
{
    std::uint32_t const part = scaled(ink, cover);
    std::uint32_t under;
    std::memcpy(&under, pixel, 4);
    under = part + scaled(under, 255 - (part >> 24));
    std::memcpy(pixel, &under, 4);
}

#ifdef __SSE2__
/// a * b / 255, rounded, in each 16 bits; both are bytes.
__m128i byte_products(__m128i a, __m128i b)
{
    __m128i const t = _mm_add_epi16(_mm_mullo_epi16(a, b), _mm_set1_epi16(128));
    return _mm_srli_epi16(_mm_add_epi16(t, _mm_srli_epi16(t, 8)), 8);
}

/// The ink through a coverage in each channel, over what is there; two pixels.
__m128i mixed(__m128i ink, __m128i cover, __m128i under)
{
    __m128i const part = byte_products(ink, cover);
    constexpr int c_alpha = 0xFF; // the last channel, to all four
    __m128i const alpha = _mm_shufflehi_epi16(_mm_shufflelo_epi16(part, c_alpha), c_alpha);
    return _mm_add_epi16(part, byte_products(under, _mm_sub_epi16(_mm_set1_epi16(255), alpha)));
}
#endif

/// Four pixels.
void mix_four(std::uint32_t ink, std::uint8_t const *cover, unsigned char *pixels)
{
#ifdef __SSE2__
    __m128i const zero = _mm_setzero_si128();
    __m128i const inks = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(ink)), zero);
    std::int32_t four;
    std::memcpy(&four, cover, 4);
    __m128i covers = _mm_cvtsi32_si128(four);
    covers = _mm_unpacklo_epi8(covers, covers);
    covers = _mm_unpacklo_epi16(covers, covers); // each byte four times
    __m128i const under = _mm_loadu_si128(reinterpret_cast<__m128i const *>(pixels));
    __m128i const low = mixed(inks, _mm_unpacklo_epi8(covers, zero), _mm_unpacklo_epi8(under, zero));
    __m128i const high = mixed(inks, _mm_unpackhi_epi8(covers, zero), _mm_unpackhi_epi8(under, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i *>(pixels), _mm_packus_epi16(low, high));
#else
    for (int i = 0; i < 4; ++i)
        mix_one(ink, cover[i], pixels + 4 * i);
#endif
}
} // namespace

void point_mask::blend(surface const &target, pixel_place at, Tvx_color color) const
{
    std::uint32_t const a = color.a;
    std::uint32_t const ink =
        a << 24 | byte_product(color.r, a) << 16 | byte_product(color.g, a) << 8 | byte_product(color.b, a);
    int const corner = at.x + left;
    int const upper = at.y + top;
    if (corner < 0 || upper < 0 || corner + stride > target.width || upper + height > target.height)
        return blend_part(target, at, ink);
    constexpr std::uint32_t c_all = 0xFFFFFFFF;
    std::uint8_t const *cover = coverage.data();
    unsigned char *row = target.pixels + static_cast<std::ptrdiff_t>(upper) * target.bytes_per_line +
                         static_cast<std::ptrdiff_t>(corner) * 4;
    for (int r = 0; r < height; ++r, row += target.bytes_per_line)
        for (int i = 0; i < stride; i += 4, cover += 4) {
            std::uint32_t four;
            std::memcpy(&four, cover, 4);
            if (four == 0)
                continue;
            unsigned char *const pixels = row + i * 4;
            if (four == c_all && a == 255)
                for (int k = 0; k < 4; ++k)
                    std::memcpy(pixels + 4 * k, &ink, 4);
            else
                mix_four(ink, cover, pixels);
        }
}

void point_mask::fetch(surface const &target, pixel_place at) const
{
    constexpr int c_most_rows = 24; // larger symbols take their time in any case
    int const corner = at.x + left;
    int const upper = at.y + top;
    if (corner < 0 || upper < 0 || corner + stride > target.width || upper + height > target.height)
        return;
    unsigned char const *row = target.pixels + static_cast<std::ptrdiff_t>(upper) * target.bytes_per_line +
                               static_cast<std::ptrdiff_t>(corner) * 4;
    for (int r = 0; r < std::min(height, c_most_rows); ++r, row += target.bytes_per_line) {
        __builtin_prefetch(row, 1);
        __builtin_prefetch(row + static_cast<std::ptrdiff_t>(stride) * 4 - 1, 1);
    }
}

void point_mask::blend_part(surface const &target, pixel_place at, std::uint32_t ink) const
{
    int const corner = at.x + left;
    int const upper = at.y + top;
    int const first = std::max(0, -corner);
    int const last = std::min(width, target.width - corner);
    for (int r = std::max(0, -upper); r < std::min(height, target.height - upper); ++r) {
        std::uint8_t const *const cover = coverage.data() + static_cast<std::ptrdiff_t>(r) * stride;
        unsigned char *const row = target.pixels +
                                   static_cast<std::ptrdiff_t>(upper + r) * target.bytes_per_line +
                                   static_cast<std::ptrdiff_t>(corner) * 4;
        for (int i = first; i < last; ++i)
            mix_one(ink, cover[i], row + static_cast<std::ptrdiff_t>(i) * 4);
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
