#include "platform/render/vx_map_view.h"

#include "platform/render/detail/grouped_digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

Tvx_map_view vx_map_view_fit(Tvx_box_d2 const &box, int width, int height, int margin_px)
{
    Tvx_map_view view;
    view.width = width;
    view.height = height;
    Tvx_box_d2 b = box;
    if (b.is_empty() || !std::isfinite(b.width()) || !std::isfinite(b.height())) {
        b = {};
        b.add(-0.5, -0.5);
        b.add(0.5, 0.5);
    }
    // A single point gets an extent that its coordinates can resolve.
    double const magnitude =
        std::max({std::abs(b.min_x), std::abs(b.max_x), std::abs(b.min_y), std::abs(b.max_y)});
    double const least = std::max(1e-9 * magnitude, 1e-12);
    double const inner_w = std::max(1, width - 2 * margin_px);
    double const inner_h = std::max(1, height - 2 * margin_px);
    double units = std::max(b.width() / inner_w, b.height() / inner_h);
    if (!(units * std::max(inner_w, inner_h) > least))
        units = (b.width() > 0 || b.height() > 0 ? least : std::max(least, 1.0)) / std::min(inner_w, inner_h);
    double const cx = b.min_x + b.width() / 2;
    double const cy = b.min_y + b.height() / 2;
    view.world = {};
    view.world.add(cx - units * width / 2, cy - units * height / 2);
    view.world.add(cx + units * width / 2, cy + units * height / 2);
    return view;
}

void vx_map_scale_get_text_w(double scale, Ivx_string_adp *text)
{
    constexpr double c_most = 1e12, c_with_decimals = 10;
    if (!std::isfinite(scale) || scale <= 0 || scale > c_most)
        return vx_string_adp_feed(text, L"");
    std::wstring number;
    if (scale < c_with_decimals) {
        char digits[16];
        auto const end = std::to_chars(digits, std::end(digits), scale, std::chars_format::fixed, 2);
        number.assign(digits, end.ptr);
    } else {
        number = vx::render::grouped_digits(std::llround(scale));
    }
    vx_string_adp_feed(text, (L"1 : " + number).c_str());
}
