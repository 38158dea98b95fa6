#include "host/map_unit.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>

namespace {
/// One degree of a great circle of the mean earth (radius 6371008.8 m).
constexpr double c_metres_per_degree = 111195.08;
/// The cosine of the latitude is not taken below this: a map whose middle is at a pole still has a scale.
constexpr double c_least_cosine = 0.01;

struct unit_name
{
    std::wstring_view name;
    double metres;
};
constexpr unit_name c_units[] = {
    {L"m", 1},
    {L"km", 1000},
    {L"dm", 0.1},
    {L"cm", 0.01},
    {L"mm", 0.001},
    {L"ft", 0.3048},
    {L"us-ft", 1200.0 / 3937},
    {L"in", 0.0254},
    {L"us-in", 100.0 / 3937},
    {L"yd", 0.9144},
    {L"us-yd", 3600.0 / 3937},
    {L"mi", 1609.344},
    {L"us-mi", 6336000.0 / 3937},
    {L"kmi", 1852},
    {L"fath", 1.8288},
    {L"ch", 20.1168},
    {L"link", 0.201168},
};

/// Value of the parameter `+name=value`; null text when it is not there.
std::wstring_view parameter(std::wstring_view text, std::wstring_view name)
{
    while (!text.empty()) {
        auto const end = std::min(text.find(L' '), text.size());
        std::wstring_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (word.starts_with(L'+'))
            word.remove_prefix(1);
        if (word.starts_with(name) && word.size() > name.size() && word[name.size()] == L'=')
            return word.substr(name.size() + 1);
    }
    return {};
}

double length_unit(std::wstring_view text)
{
    std::string factor;
    for (wchar_t const c : parameter(text, L"to_meter"))
        factor += c < 128 ? static_cast<char>(c) : '?';
    double value = 0;
    auto const read = std::from_chars(factor.data(), factor.data() + factor.size(), value);
    if (read.ec == std::errc() && std::isfinite(value) && value > 0)
        return value;
    std::wstring_view const units = parameter(text, L"units");
    for (unit_name const &unit : c_units)
        if (unit.name == units)
            return unit.metres;
    return 1;
}

double metres_per_unit(Tvx_canvas_view const &view, Tvx_map_unit unit)
{
    if (!unit.is_degree)
        return unit.metres;
    double const latitude = std::clamp(view.center().y, -90.0, 90.0) * std::numbers::pi / 180;
    return c_metres_per_degree * std::max(c_least_cosine, std::cos(latitude));
}
} // namespace

std::optional<Tvx_map_unit> vx_map_unit_from_proj4(std::wstring_view text)
{
    std::wstring_view const projection = parameter(text, L"proj");
    if (projection.empty())
        return {};
    for (std::wstring_view const name : {L"longlat", L"latlong", L"lonlat", L"latlon"})
        if (projection == name)
            return Tvx_map_unit{true, 1};
    return Tvx_map_unit{false, length_unit(text)};
}

Tvx_map_unit vx_map_unit_guess(Tvx_box_d2 const &box)
{
    bool const on_globe = !box.is_empty() && box.min_x >= -180.5 && box.max_x <= 360.5 &&
                          box.min_y >= -90.5 && box.max_y <= 90.5;
    return {on_globe, 1};
}

double vx_map_scale(Tvx_canvas_view const &view, Tvx_map_unit unit, double pixels_per_mm)
{
    return view.units_per_pixel() * metres_per_unit(view, unit) * 1000 * pixels_per_mm;
}

double vx_map_scale_to_units_per_pixel(double scale, Tvx_canvas_view const &view, Tvx_map_unit unit,
                                       double pixels_per_mm)
{
    return scale / (metres_per_unit(view, unit) * 1000 * pixels_per_mm);
}
