#include "platform/styles/detail/lib_model.h"

#include "platform/basic/detail/vx_oklab.h"
#include "platform/basic/vx_options.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vx::styles {
namespace {
std::uint64_t key_of(int index, int version)
{
    return static_cast<std::uint64_t>(static_cast<unsigned>(index)) << 32 | static_cast<unsigned>(version);
}

/// Lightness that the two ends of a gradient reach at least. Twenty steps between them can be told apart.
constexpr double c_light_end = 0.92;
constexpr double c_dark_end = 0.45;
/// Below this one, steps cannot be told apart any more.
constexpr double c_darkest = 0.22;

/// The colour with more lightness, or less, on the way to white or black.
Tvx_color with_lightness(Tvx_color own, double lightness)
{
    double const l = color::to_oklab(own).l;
    return l < lightness ? color::mix(own, vx_clr_init_rgb(255, 255, 255), (lightness - l) / (1 - l))
                         : color::mix(own, vx_clr_init_rgb(0, 0, 0), (l - lightness) / l);
}

/// From a pale tint over the colour itself to a deep shade. The colour is an end of its own if it is light or
/// dark enough.
std::vector<Tvx_color> own_way(Tvx_color own)
{
    double const l = color::to_oklab(own).l;
    std::vector<Tvx_color> way;
    if (l < c_light_end)
        way.push_back(with_lightness(own, c_light_end));
    way.push_back(l < c_darkest ? with_lightness(own, c_darkest) : own);
    if (l > c_dark_end)
        way.push_back(with_lightness(own, c_dark_end));
    return way;
}

/// The colour at `t` of the whole way, where equal parts of it look equally long.
Tvx_color color_at(std::vector<Tvx_color> const &way, double t)
{
    auto const length = [&](std::size_t i) {
        auto const a = color::to_oklab(way[i]);
        auto const b = color::to_oklab(way[i + 1]);
        return std::hypot(a.l - b.l, a.a - b.a, a.b - b.b);
    };
    double all = 0;
    for (std::size_t i = 0; i + 1 < way.size(); ++i)
        all += length(i);
    double rest = t * all;
    for (std::size_t i = 0; i + 1 < way.size(); ++i) {
        double const part = length(i);
        if (rest <= part || i + 2 == way.size())
            return color::mix(way[i], way[i + 1], part > 0 ? std::min(rest / part, 1.0) : 0);
        rest -= part;
    }
    return way.front();
}
} // namespace

std::wstring const &spoken_text::spoken() const
{
    auto const found = others.empty() ? others.end() : others.find(vx_options_get_language());
    return found == others.end() ? text : found->second;
}

void style_gradient::apply(any_style &style, unsigned position, unsigned count) const
{
    if (count < 2)
        return;
    Tvx_color const from = of.value_or(style.color());
    Tvx_color const step = color_at(colors.size() > 1 ? colors : own_way(from),
                                    static_cast<double>(std::min(position, count - 1)) / (count - 1));
    style.replace_color(from, step);
}

idx_style &style_list::insert(int index, int version)
{
    auto const at = std::ranges::find_if(styles, [=](auto const &s) { return s->index > index; });
    auto &style = **styles.insert(at, std::make_unique<idx_style>(kind));
    style.index = index;
    style.version = version;
    f_places.clear();
    f_first.clear();
    f_known = 0;
    return style;
}

void style_list::look_up() const
{
    for (; f_known < styles.size(); ++f_known) {
        idx_style const &style = *styles[f_known];
        auto const place = static_cast<unsigned>(f_known);
        f_places.try_emplace(key_of(style.index, style.version), place);
        f_first.try_emplace(style.index, place);
    }
}

std::optional<unsigned> style_list::find(int index) const
{
    look_up();
    auto const found = f_first.find(index);
    return found == f_first.end() ? std::nullopt : std::optional(found->second);
}

std::optional<unsigned> style_list::find(int index, int version) const
{
    look_up();
    auto const found = f_places.find(key_of(index, version));
    return found == f_places.end() ? std::nullopt : std::optional(found->second);
}
} // namespace vx::styles
