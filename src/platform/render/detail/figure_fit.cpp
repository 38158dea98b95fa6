#include "platform/render/detail/figure_fit.h"

#include <algorithm>
#include <cmath>

namespace vx::render {
namespace {
constexpr double c_same = 1e-9;
/// Inner edges of figures narrower than this would fall together.
constexpr double c_least_inner_px = 3;
constexpr double c_least_outlined_px = 4;

/// Half up for the lower half of a figure, mirrored for the upper one: symmetric figures stay so.
double snapped(double along, double extent)
{
    auto const round_down = [](double v) { return std::ceil(v - 0.5); };
    return along <= extent / 2 ? round_down(along) : extent - round_down(extent - along);
}

/// Places on one axis before and after fitting.
class axis_fit
{
public:
    /// `edges` are the places of edges across the axis, `low` and `high` the ends of the figure, which may
    /// grow to `size`.
    axis_fit(std::vector<double> edges, double low, double high, double size, double pen, bool closed)
    {
        double const least = closed && pen > 0 ? std::min(2 * pen + 1, std::floor(size)) : 1; // leaves a hole
        double width = std::max({1.0, least, std::round(high - low)});
        if (!closed && std::fmod(width - pen, 2) != 0) // the strokes cross in the middle, which is to fit too
            width = std::max(pen, high - low > width ? width + 1 : width - 1);
        f_shift = std::fmod(width, 2) != 0 ? 0.5 : 0;
        double const first = std::round((low + high) / 2 + f_shift - width / 2);
        double const inset = closed ? pen / 2 : 0;
        double const inner = std::max(0.0, width - 2 * inset);
        f_knots.push_back({low, first + inset});
        std::sort(edges.begin(), edges.end());
        if (closed && inner >= (pen > 0 ? c_least_outlined_px : c_least_inner_px))
            for (double const edge : edges)
                if (edge > f_knots.back().from + c_same && edge < high - c_same)
                    f_knots.push_back(
                        {edge, first + inset + snapped((edge - low) / (high - low) * inner, inner)});
        f_knots.push_back({high, first + inset + inner});
    }

    [[nodiscard]] double operator()(double v) const
    {
        std::size_t i = 1;
        while (i + 1 < f_knots.size() && v > f_knots[i].from)
            ++i;
        knot const &a = f_knots[i - 1];
        knot const &b = f_knots[i];
        return std::lerp(a.to, b.to, (v - a.from) / (b.from - a.from));
    }
    [[nodiscard]] double shift() const { return f_shift; }

private:
    struct knot
    {
        double from;
        double to;
    };
    std::vector<knot> f_knots;
    double f_shift = 0;
};

/// Calls `f` on the two ends of each stroke.
template <class F>
void for_each_stroke(figure const &shape, F f)
{
    for (auto const &part : shape.parts)
        for (std::size_t i = shape.closed ? 0 : 1; i < part.size(); ++i)
            f(part[i ? i - 1 : part.size() - 1], part[i]);
}

Tvx_box_d2 shape_box(figure const &shape)
{
    Tvx_box_d2 box;
    for (auto const &part : shape.parts)
        box.add(box_of(part));
    return box;
}

template <class X, class Y>
placed_figure placed(figure const &shape, X x, Y y)
{
    placed_figure out;
    out.parts.reserve(shape.parts.size());
    for (auto const &part : shape.parts) {
        px_line &line = out.parts.emplace_back();
        line.reserve(part.size());
        for (Tvx_pnt_d2 const &p : part)
            line.push_back({x(p.x), y(p.y)});
        out.box.add(box_of(line));
    }
    return out;
}
} // namespace

placed_figure scale_figure(figure const &shape, double size_x, double size_y, double pen)
{
    double const kx = std::max(0.0, size_x - pen);
    double const ky = std::max(0.0, size_y - pen);
    return placed(
        shape, [kx](double x) { return x * kx; }, [ky](double y) { return -y * ky; });
}

placed_figure fit_figure(figure const &shape, double size_x, double size_y, double pen)
{
    Tvx_box_d2 const box = shape_box(shape);
    std::vector<double> upright;
    std::vector<double> level;
    for_each_stroke(shape, [&](Tvx_pnt_d2 a, Tvx_pnt_d2 b) {
        if (std::abs(a.x - b.x) < c_same)
            upright.push_back(a.x * size_x);
        if (std::abs(a.y - b.y) < c_same)
            level.push_back(-a.y * size_y);
    });
    axis_fit const x(std::move(upright), box.min_x * size_x, box.max_x * size_x, size_x, pen, shape.closed);
    axis_fit const y(std::move(level), -box.max_y * size_y, -box.min_y * size_y, size_y, pen, shape.closed);
    placed_figure out = placed(
        shape, [&](double v) { return x(v * size_x); }, [&](double v) { return y(-v * size_y); });
    out.shift = {x.shift(), y.shift()};
    return out;
}
} // namespace vx::render
