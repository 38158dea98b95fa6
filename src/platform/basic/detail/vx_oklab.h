#pragma once

#include "platform/base/color.h"

/// Colours in the OKLab space (B. Ottosson, "A perceptual color space for image processing", 2020): equal
/// steps look equal. `l` runs from 0, black, to 1, white.
namespace vx::color {
struct oklab
{
    double l = 0;
    double a = 0;
    double b = 0;
};
/// The same in polar form; `hue` in radians.
struct oklch
{
    double l = 0;
    double chroma = 0;
    double hue = 0;
};

[[nodiscard]] oklab to_oklab(Tvx_color color);
/// A colour outside sRGB is brought in by lowering its chroma, with its lightness and hue kept. Opacity
/// `alpha`.
[[nodiscard]] Tvx_color from_oklab(oklab const &lab, unsigned char alpha = 255);
[[nodiscard]] oklch to_oklch(oklab const &lab);
[[nodiscard]] oklab to_oklab(oklch const &lch);
/// Below this chroma a colour counts as a grey, whose hue means nothing.
inline constexpr double c_grey_chroma = 0.01;

/// The colour at `t` from 0 to 1 on the straight way from `a` to `b`; the opacity of `a`.
[[nodiscard]] Tvx_color mix(Tvx_color a, Tvx_color b, double t);
/// `color` with the hue at `t` on the shorter arc from that of `a` to that of `b`, its lightness, chroma and
/// opacity kept. A grey end takes the hue of the other; between two greys, and for a grey `color`, nothing
/// changes.
[[nodiscard]] Tvx_color with_mixed_hue(Tvx_color color, Tvx_color a, Tvx_color b, double t);
} // namespace vx::color
