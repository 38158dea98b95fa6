#include "platform/render/detail/figures.h"

#include <array>
#include <cmath>
#include <numbers>

namespace vx::render {
namespace {
using ring = std::vector<Tvx_pnt_d2>;

/// Corners on circles of radius 0.5 and `inner`, in turn, the first one on top.
ring star(int corners, double inner)
{
    ring r;
    int const n = inner > 0 ? corners * 2 : corners;
    for (int i = 0; i < n; ++i) {
        double const angle = std::numbers::pi / 2 + 2 * std::numbers::pi * i / n;
        double const radius = inner > 0 && i % 2 ? inner : 0.5;
        r.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return r;
}

/// The box with its corners at (-x, -y) and (x, y).
ring box(double x, double y)
{
    return {{-x, -y}, {-x, y}, {x, y}, {x, -y}};
}

ring triangle()
{
    return {{-0.5, -0.433}, {0, 0.433}, {0.5, -0.433}};
}

ring upside_down(ring r)
{
    for (auto &p : r)
        p.y = -p.y;
    return r;
}

ring arrow()
{
    return {{0, 0.5}, {0.35, 0.05}, {0.12, 0.05}, {0.12, -0.5}, {-0.12, -0.5}, {-0.12, 0.05}, {-0.35, 0.05}};
}

ring broad_cross()
{
    constexpr double a = 0.2;
    constexpr double b = 0.5;
    return {{-a, b}, {a, b},   {a, a},   {b, a},   {b, -a}, {a, -a},
            {a, -b}, {-a, -b}, {-a, -a}, {-b, -a}, {-b, a}, {-a, a}};
}

std::array<figure, c_figure_count> make_figures()
{
    std::array<figure, c_figure_count> f;
    auto const pair = [&f](std::size_t number, ring const &r, figure_curve curve = figure_curve::none) {
        f[number] = {{r}, true, true, curve};
        f[number + 1] = {{r}, false, true, curve};
    };
    pair(0, box(0.5, 0.5), figure_curve::disc);
    pair(2, box(0.44, 0.44));
    pair(4, triangle());
    f[6] = {{{{-0.5, 0}, {0.5, 0}}, {{0, -0.5}, {0, 0.5}}}, false, false, figure_curve::none};
    pair(7, star(5, 0.2));
    pair(9, star(4, 0));
    pair(11, star(5, 0));
    pair(13, star(6, 0));
    pair(15, upside_down(triangle()));
    pair(17, box(0.5, 0.25), figure_curve::half_disc);
    pair(19, arrow());
    pair(21, broad_cross());
    pair(23, star(4, 0.16));
    f[25] = {{{{-0.4, -0.4}, {0.4, 0.4}}, {{-0.4, 0.4}, {0.4, -0.4}}}, false, false, figure_curve::none};
    return f;
}
} // namespace

figure const &get_figure(int number)
{
    static std::array<figure, c_figure_count> const figures = make_figures();
    return figures[number >= 0 && number < c_figure_count ? static_cast<std::size_t>(number) : 0];
}
} // namespace vx::render
