#pragma once

#include "platform/base/color.h"

#include <cmath>
#include <cstdint>
#include <cstring>

/// Pixels of a surface: 32 bits each, premultiplied, alpha on top.
namespace vx::render {
[[nodiscard]] inline std::uint32_t pixel_of(int a, int r, int g, int b)
{
    return static_cast<std::uint32_t>(a) << 24 | static_cast<std::uint32_t>(r) << 16 |
           static_cast<std::uint32_t>(g) << 8 | static_cast<std::uint32_t>(b);
}

/// A colour as a pixel; `opacity` is 0 to 1.
[[nodiscard]] inline std::uint32_t premultiplied(Tvx_color color, double opacity)
{
    double const alpha = color.a / 255.0 * opacity;
    auto const part = [&](double of) { return static_cast<int>(std::lround(of * alpha)); };
    return pixel_of(part(255), part(color.r), part(color.g), part(color.b));
}

/// All four parts times `by` of 255, rounded.
[[nodiscard]] inline std::uint32_t faded(std::uint32_t pixel, unsigned by)
{
    auto const part = [&](int shift) {
        std::uint32_t const t = (pixel >> shift & 255) * by + 128;
        return (t + (t >> 8)) >> 8 << shift;
    };
    return part(24) | part(16) | part(8) | part(0);
}

inline void put_over(unsigned char *at, std::uint32_t pixel)
{
    unsigned const alpha = pixel >> 24;
    if (alpha == 0)
        return;
    if (alpha < 255) {
        std::uint32_t below = 0;
        std::memcpy(&below, at, sizeof below);
        pixel += faded(below, 255 - alpha);
    }
    std::memcpy(at, &pixel, sizeof pixel);
}
} // namespace vx::render
