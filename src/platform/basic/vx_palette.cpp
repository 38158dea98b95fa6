#include "platform/basic/vx_palette.h"

#include "platform/basic/detail/vx_oklab.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <numbers>
#include <span>
#include <string>
#include <vector>

namespace {
using colors_t = std::vector<Tvx_color>;

struct palette
{
    std::wstring caption;
    colors_t colors;
};

struct palettes
{
    std::vector<std::unique_ptr<palette>> items;
};

palette *palette_of(void *p)
{
    return static_cast<palette *>(p);
}
palette const *palette_of(void const *p)
{
    return static_cast<palette const *>(p);
}
palettes *list_of(void *p)
{
    return static_cast<palettes *>(p);
}
palettes const *list_of(void const *p)
{
    return static_cast<palettes const *>(p);
}

constexpr Tvx_color rgb(std::uint32_t hex)
{
    return vx_clr_init_rgb(static_cast<int>(hex >> 16 & 255), static_cast<int>(hex >> 8 & 255),
                           static_cast<int>(hex & 255));
}

struct built_in
{
    int number;
    std::vector<std::uint32_t> stops;
};

std::vector<built_in> const &built_ins()
{
    static std::vector<built_in> const all = {
        {c_palette_white_gray, {0xFFFFFF, 0x404040}},
        {c_palette_white_blue, {0xFFFFFF, 0x1040C0}},
        {c_palette_white_red, {0xFFFFFF, 0xC81818}},
        {c_palette_white_green, {0xFFFFFF, 0x108030}},
        {c_palette_white_yellow, {0xFFFFFF, 0xF0C000}},
        {c_palette_blue_white_red, {0x2050C8, 0xFFFFFF, 0xD02828}},
        {c_palette_red_white_blue, {0xD02828, 0xFFFFFF, 0x2050C8}},
        {c_palette_green_white_brown, {0x208040, 0xFFFFFF, 0x8C5A28}},
        {c_palette_rainbow, {0xE02020, 0xF08020, 0xF0E020, 0x30B040, 0x20B0E0, 0x2848D0, 0x8030C0}},
        {c_palette_gentle_rainbow, {0xF0A0A0, 0xF4C898, 0xF4F0A0, 0xA8DCA8, 0xA0D8F0, 0xA8B0EC, 0xD0A8E0}},
        {c_palette_blue, {0xDCE8FA, 0x5C90DC, 0x102C78}},
        {c_palette_green, {0xE0F4D8, 0x5CB460, 0x10501C}},
        {c_palette_fresh, {0x28B488, 0x98D848, 0xF8E858, 0xF8A848, 0xF06868}},
        {c_palette_height_light, {0x98CC90, 0xDCE8A0, 0xF8F0B8, 0xE8CC98, 0xD0B098, 0xF8F4F0}},
        {c_palette_height_dark, {0x186838, 0x80A040, 0xD8C060, 0xB07830, 0x704020, 0xE8E0D8}},
        {c_palette_height_depth, {0x08306C, 0x3880C0, 0xB8E0F4, 0x98CC90, 0xF0E8A8, 0xC89858, 0x805030}},
        {c_palette_turquoise, {0xD8F4F0, 0x48BCB4, 0x085C60}},
        {c_palette_calm, {0x7890A8, 0x98B4A8, 0xD0CCB0, 0xD0B0A0, 0xA88C98}},
        {c_palette_red, {0xFCE0DC, 0xE46050, 0x7C1018}},
        {c_palette_orange_yellow, {0xFCF4B8, 0xFCC840, 0xE07818}},
        {c_palette_violet, {0xECE0F8, 0xA070D0, 0x48207C}},
        {c_palette_red_black, {0xF03020, 0x801010, 0x000000}},
        {c_palette_height_depth_2,
         {0x000C40, 0x1050A8, 0x60B8E8, 0xE0F4F8, 0x50A058, 0xE8DC80, 0xA86C38, 0xFFFFFF}},
    };
    return all;
}

void along(std::span<Tvx_color const> stops, unsigned count, Tvx_color *colors)
{
    for (unsigned i = 0; i < count; ++i) {
        double const t = count > 1 ? static_cast<double>(i) / (count - 1) : 0.5;
        double const place = t * static_cast<double>(stops.size() - 1);
        auto const low = std::min(static_cast<std::size_t>(place), stops.size() - 1);
        std::size_t const high = std::min(low + 1, stops.size() - 1);
        double const share = place - static_cast<double>(low);
        // The stops themselves come out untouched.
        colors[i] = share == 0 ? stops[low] : vx::color::mix(stops[low], stops[high], share);
        colors[i].a = 255;
    }
}

/// Hues spread evenly round the circle, neighbours of different lightness.
void different(unsigned count, Tvx_color *colors)
{
    constexpr double lightness[] = {0.70, 0.52, 0.82, 0.61};
    for (unsigned i = 0; i < count; ++i) {
        double const hue = 2 * std::numbers::pi * (i + 0.08) / count;
        colors[i] = vx::color::from_oklab(vx::color::to_oklab(vx::color::oklch{lightness[i % 4], 0.15, hue}));
    }
}

/// Fisher and Yates, with a generator of its own: the same everywhere for a seed.
void shuffle(unsigned count, Tvx_color *colors, std::uint64_t seed)
{
    auto const next = [&seed] {
        seed += 0x9E3779B97F4A7C15u;
        std::uint64_t z = seed;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    };
    for (unsigned i = count; i > 1; --i)
        std::swap(colors[i - 1], colors[next() % i]);
}
} // namespace

void vx_clr_arrays_generate(int number, unsigned count, Tvx_color *colors)
{
    if (!colors || count == 0)
        return;
    if (number == c_palette_different) {
        different(count, colors);
        return;
    }
    auto const found = std::ranges::find(built_ins(), number, &built_in::number);
    if (found == built_ins().end())
        return;
    colors_t stops;
    for (std::uint32_t const hex : found->stops)
        stops.push_back(rgb(hex));
    along(stops, count, colors);
}

void vx_clr_arrays_generate_ex(int number, unsigned count, Tvx_color *colors, bool random)
{
    vx_clr_arrays_generate(number, count, colors);
    bool const known = number == c_palette_different ||
                       std::ranges::find(built_ins(), number, &built_in::number) != built_ins().end();
    if (random && known && colors)
        shuffle(count, colors, static_cast<std::uint64_t>(number) << 32 | count);
}

void vx_clr_arrays_generate_palette_ex(void const *object, unsigned count, Tvx_color *colors, bool random)
{
    if (!object || !colors || palette_of(object)->colors.empty())
        return;
    along(palette_of(object)->colors, count, colors);
    if (random)
        shuffle(count, colors, count);
}

// ---- palette objects
void *vx_clr_palette_create()
{
    return new palette;
}

void vx_clr_palette_destroy(void *object)
{
    delete palette_of(object);
}

void vx_clr_palette_assign(void *target, void const *source)
{
    if (target && source)
        *palette_of(target) = *palette_of(source);
}

void vx_clr_palette_get_wcaption(void const *object, Ivx_string_adp *adp)
{
    vx_string_adp_feed(adp, object ? palette_of(object)->caption.c_str() : L"");
}

void vx_clr_palette_set_wcaption(void *object, wchar_t const *caption)
{
    if (object)
        palette_of(object)->caption = caption ? caption : L"";
}

unsigned vx_clr_palette_get_size(void const *object)
{
    return object ? static_cast<unsigned>(palette_of(object)->colors.size()) : 0;
}

void vx_clr_palette_set_size(void *object, unsigned size)
{
    if (object)
        palette_of(object)->colors.resize(size, vx_clr_init_rgb(255, 255, 255));
}

Tvx_color vx_clr_palette_get_color(void const *object, unsigned index)
{
    return index < vx_clr_palette_get_size(object) ? palette_of(object)->colors[index] : Tvx_color{};
}

void vx_clr_palette_set_color(void *object, unsigned index, Tvx_color color)
{
    if (index < vx_clr_palette_get_size(object))
        palette_of(object)->colors[index] = color;
}

// ---- lists
void *vx_clr_palettes_create()
{
    return new palettes;
}

void vx_clr_palettes_destroy(void *list)
{
    delete list_of(list);
}

void vx_clr_palettes_assign(void *target, void const *source)
{
    if (!target || !source || target == source)
        return;
    std::vector<std::unique_ptr<palette>> copies;
    for (auto const &item : list_of(source)->items)
        copies.push_back(std::make_unique<palette>(*item));
    list_of(target)->items = std::move(copies);
}

void vx_clr_palettes_clear(void *list)
{
    if (list)
        list_of(list)->items.clear();
}

unsigned vx_clr_palettes_get_size(void const *list)
{
    return list ? static_cast<unsigned>(list_of(list)->items.size()) : 0;
}

void *vx_clr_palettes_get_palette(void *list, unsigned index)
{
    return index < vx_clr_palettes_get_size(list) ? list_of(list)->items[index].get() : nullptr;
}

void *vx_clr_palettes_add(void *list)
{
    return list ? list_of(list)->items.emplace_back(std::make_unique<palette>()).get() : nullptr;
}

void vx_clr_palettes_del(void *list, unsigned index)
{
    if (index < vx_clr_palettes_get_size(list))
        list_of(list)->items.erase(list_of(list)->items.begin() + index);
}

void vx_clr_palettes_move(void *list, unsigned from, unsigned to)
{
    unsigned const size = vx_clr_palettes_get_size(list);
    if (from >= size || to >= size)
        return;
    auto &items = list_of(list)->items;
    auto item = std::move(items[from]);
    items.erase(items.begin() + from);
    items.insert(items.begin() + to, std::move(item));
}

// ---- the user's
namespace {
struct user_palettes
{
    palettes list;
    void (*loader)(void *) = nullptr;
    bool loaded = false;
};
user_palettes &users()
{
    static user_palettes u;
    return u;
}
} // namespace

void *vx_get_user_palettes()
{
    user_palettes &u = users();
    if (!u.loaded && u.loader) {
        u.loaded = true; // before the call: the loader may ask for the list
        u.loader(&u.list);
    }
    return &u.list;
}

void vx_user_palettes_set_loader(void (*loader)(void *palettes))
{
    users().loader = loader;
    users().loaded = false;
}
