#pragma once

#include <cstdint>

/// A colour in four bytes, passed by value: red, green, blue, alpha, in this order. Alpha 255 is opaque.
struct Tvx_color
{
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    std::uint8_t a = 0;

    friend constexpr bool operator==(Tvx_color const &, Tvx_color const &) = default;
};
static_assert(sizeof(Tvx_color) == 4);

/// An opaque colour.
[[nodiscard]] constexpr Tvx_color vx_clr_init_rgb(int r, int g, int b)
{
    return {static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(g), static_cast<std::uint8_t>(b), 255};
}

[[nodiscard]] constexpr Tvx_color vx_clr_init_rgba(int r, int g, int b, int a)
{
    return {static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(g), static_cast<std::uint8_t>(b),
            static_cast<std::uint8_t>(a)};
}

/// The opaque grey of level `v`, 0 to 255.
[[nodiscard]] constexpr Tvx_color vx_clr_init_grey(int v)
{
    return vx_clr_init_rgb(v, v, v);
}

/// From an integer with red in its low byte, green and blue above it; opaque.
[[nodiscard]] constexpr Tvx_color vx_clr_init_int(int rgb)
{
    return vx_clr_init_rgb(rgb & 255, rgb >> 8 & 255, rgb >> 16 & 255);
}
