#include "platform/basic/detail/vx_oklab.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vx::color {
namespace {
struct linear_rgb
{
    double r;
    double g;
    double b;
};

double decode(int v)
{
    double const c = v / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

int encode(double c)
{
    c = std::clamp(c, 0.0, 1.0);
    double const v = c <= 0.0031308 ? c * 12.92 : 1.055 * std::pow(c, 1 / 2.4) - 0.055;
    return static_cast<int>(std::lround(v * 255));
}

linear_rgb to_linear(oklab const &c)
{
    double l = c.l + 0.3963377774 * c.a + 0.2158037573 * c.b;
    double m = c.l - 0.1055613458 * c.a - 0.0638541728 * c.b;
    double s = c.l - 0.0894841775 * c.a - 1.2914855480 * c.b;
    l = l * l * l;
    m = m * m * m;
    s = s * s * s;
    return {4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s,
            -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s,
            -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s};
}

bool in_gamut(linear_rgb const &c)
{
    constexpr double slack = 1e-4;
    auto const inside = [](double v) { return v >= -slack && v <= 1 + slack; };
    return inside(c.r) && inside(c.g) && inside(c.b);
}
} // namespace

oklab to_oklab(Tvx_color color)
{
    double const r = decode(color.r);
    double const g = decode(color.g);
    double const b = decode(color.b);
    double const l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    double const m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    double const s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

Tvx_color from_oklab(oklab const &lab, unsigned char alpha)
{
    oklab c = lab;
    c.l = std::clamp(c.l, 0.0, 1.0);
    linear_rgb rgb = to_linear(c);
    if (!in_gamut(rgb)) {
        double low = 0;
        double high = 1;
        for (int i = 0; i < 20; ++i) {
            double const k = (low + high) / 2;
            if (in_gamut(to_linear({c.l, c.a * k, c.b * k})))
                low = k;
            else
                high = k;
        }
        rgb = to_linear({c.l, c.a * low, c.b * low});
    }
    return vx_clr_init_rgba(encode(rgb.r), encode(rgb.g), encode(rgb.b), alpha);
}

oklch to_oklch(oklab const &lab)
{
    return {lab.l, std::hypot(lab.a, lab.b), std::atan2(lab.b, lab.a)};
}

oklab to_oklab(oklch const &lch)
{
    return {lch.l, lch.chroma * std::cos(lch.hue), lch.chroma * std::sin(lch.hue)};
}

Tvx_color mix(Tvx_color a, Tvx_color b, double t)
{
    oklab const x = to_oklab(a);
    oklab const y = to_oklab(b);
    return from_oklab({std::lerp(x.l, y.l, t), std::lerp(x.a, y.a, t), std::lerp(x.b, y.b, t)}, a.a);
}

Tvx_color with_mixed_hue(Tvx_color color, Tvx_color a, Tvx_color b, double t)
{
    oklch own = to_oklch(to_oklab(color));
    oklch x = to_oklch(to_oklab(a));
    oklch y = to_oklch(to_oklab(b));
    bool const grey_x = x.chroma < c_grey_chroma;
    bool const grey_y = y.chroma < c_grey_chroma;
    if ((grey_x && grey_y) || own.chroma < c_grey_chroma)
        return color;
    if (grey_x)
        x.hue = y.hue;
    if (grey_y)
        y.hue = x.hue;
    double const arc = std::remainder(y.hue - x.hue, 2 * std::numbers::pi);
    own.hue = x.hue + arc * t;
    return from_oklab(to_oklab(own), color.a);
}
} // namespace vx::color
