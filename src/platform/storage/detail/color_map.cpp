#include "platform/storage/detail/color_map.h"

#include "platform/base/text_codec.h"

#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <vector>

namespace vx::storage {
namespace {
using namespace vx::styles;

constexpr double c_infinity = std::numeric_limits<double>::infinity();

void set_number(pugi::xml_node &node, char const *name, double value)
{
    std::array<char, 40> text{};
    std::to_chars(text.data(), text.data() + text.size() - 1, value);
    node.append_attribute(name).set_value(text.data());
}

void set_color(pugi::xml_node &node, Tvx_color color)
{
    set_number(node, "r", color.r / 255.0);
    set_number(node, "g", color.g / 255.0);
    set_number(node, "b", color.b / 255.0);
}

/// All bounds of the scale, ascending.
std::vector<double> bounds_of(rng_scale const &scale)
{
    std::vector<double> all{scale.min.value, scale.max.value};
    for (unsigned i = 0; i < scale.size(); ++i) {
        all.push_back(scale.at(i)->min);
        all.push_back(scale.at(i)->max);
    }
    std::erase_if(all, [](double b) { return !std::isfinite(b); });
    std::ranges::sort(all);
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

double opacity_at(opacity_curve const &curve, double position)
{
    auto const next = std::ranges::upper_bound(curve, position, {}, &opacity_pt::position);
    if (next == curve.begin())
        return curve.front().opacity;
    if (next == curve.end())
        return curve.back().opacity;
    auto const &low = *(next - 1);
    return std::lerp(low.opacity, next->opacity, (position - low.position) / (next->position - low.position));
}

class map_writer
{
public:
    map_writer(rng_scale const &scale, pugi::xml_node map) : f_scale(scale), f_map(map) {}

    void run(std::vector<double> const &bounds)
    {
        f_first = bounds.front();
        f_span = bounds.back() - bounds.front();
        point(f_first, f_scale.find(f_first));
        for (std::size_t i = 1; i < bounds.size(); ++i)
            step(bounds[i - 1], bounds[i]);
        double const above = std::nextafter(bounds.back(), c_infinity);
        if (std::isfinite(above))
            point(above, f_scale.find(above));
    }

private:
    /// One colour from just above `low` to `high`, with the supports of the opacity curve between them.
    void step(double low, double high)
    {
        unsigned const row = f_scale.find(high);
        double const begin = std::nextafter(low, c_infinity);
        if (begin < high)
            point(begin, row);
        for (opacity_pt const &support : f_scale.opacity) {
            double const x = f_first + support.position * f_span;
            if (x > begin && x < high)
                point(x, row);
        }
        point(high, row);
    }

    void point(double x, unsigned row)
    {
        scale_prm const *prm = f_scale.row(row);
        Tvx_color const color = prm->prm.read(variant_of_style::base).color();
        double const position = f_span > 0 ? std::clamp((x - f_first) / f_span, 0.0, 1.0) : 0;
        auto node = f_map.append_child("Point");
        set_number(node, "x", x);
        set_number(node, "o", prm->visible ? color.a / 255.0 * opacity_at(f_scale.opacity, position) : 0);
        set_color(node, color);
    }

    rng_scale const &f_scale;
    pugi::xml_node f_map;
    double f_first = 0;
    double f_span = 0;
};
} // namespace

std::string color_map_bytes(rng_scale const &scale, std::wstring_view name)
{
    auto const bounds = bounds_of(scale);
    if (bounds.empty())
        return {};
    pugi::xml_document doc;
    auto map = doc.append_child("ColorMaps").append_child("ColorMap");
    map.append_attribute("name").set_value(name.empty() ? "scale" : text::wide_to_utf8(name).c_str());
    map.append_attribute("space").set_value("RGB");
    map.append_attribute("indexedLookup").set_value("false");
    map_writer(scale, map).run(bounds);
    auto none = map.append_child("NaN");
    set_color(none, scale.other.prm.prm.read(variant_of_style::base).color());

    struct writer final : pugi::xml_writer
    {
        std::string bytes;
        void write(void const *data, size_t size) override
        {
            bytes.append(static_cast<char const *>(data), size);
        }
    };
    writer out;
    doc.save(out, " ", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8);
    return std::move(out.bytes);
}
} // namespace vx::storage
