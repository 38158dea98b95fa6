#include "platform/basic/vx_dib.h"

#include "platform/basic/detail/glyph_catalogue.h"

#include <charconv>
#include <exception>
#include <map>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

struct Ivx_dib
{
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bytes;

    [[nodiscard]] bool has(int x, int y) const { return x >= 0 && x < width && y >= 0 && y < height; }
    [[nodiscard]] std::size_t place(int x, int y) const
    {
        return (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) *
               4;
    }
};

namespace {
constexpr int c_glyph_size = 16;
constexpr int c_cursor_size = 32;
constexpr int c_max_scale = 16;
constexpr std::string_view c_hot_mark = "data-hot=\"";

vx::res::svg_painter g_painter = nullptr;

std::string_view find_drawing(int number)
{
    for (int i = 0; i < vx::glyphs::drawing_count; ++i)
        if (vx::glyphs::drawings[i].number == number)
            return vx::glyphs::drawings[i].svg;
    return {};
}

/// Drawn once for each number and size.
Ivx_dib const *get_drawn(int number, int size)
{
    static auto *const drawn = new std::map<std::pair<int, int>, std::unique_ptr<Ivx_dib>>;
    auto const known = drawn->find({number, size});
    if (known != drawn->end())
        return known->second.get();
    std::string_view const svg = find_drawing(number);
    if (svg.empty() || !g_painter)
        return nullptr;
    std::unique_ptr<Ivx_dib> dib(vx_dib_create(size, size));
    if (!g_painter(svg.data(), static_cast<int>(svg.size()), dib.get()))
        return nullptr;
    return drawn->emplace(std::pair(number, size), std::move(dib)).first->second.get();
}

/// The two whole numbers behind the mark; 0, 0 without it.
std::pair<int, int> read_hot_spot(std::string_view svg)
{
    auto const at = svg.find(c_hot_mark);
    if (at == std::string_view::npos)
        return {};
    char const *const end = svg.data() + svg.size();
    std::pair<int, int> spot;
    auto const first = std::from_chars(svg.data() + at + c_hot_mark.size(), end, spot.first);
    if (first.ec == std::errc() && first.ptr != end)
        std::from_chars(first.ptr + 1, end, spot.second);
    return spot;
}
} // namespace

Ivx_dib *vx_dib_create(int width, int height)
{
    auto *dib = new Ivx_dib;
    vx_dib_set_size(dib, width, height);
    return dib;
}

void vx_dib_destroy(Ivx_dib *dib)
{
    delete dib;
}

void vx_dib_assign(Ivx_dib *target, Ivx_dib const *source)
{
    if (target && source)
        *target = *source;
    else
        vx_dib_set_size(target, 0, 0);
}

void vx_dib_set_size(Ivx_dib *dib, int width, int height)
{
    if (!dib)
        return;
    dib->bytes.clear();
    dib->width = dib->height = 0;
    if (width < 1 || height < 1)
        return;
    try {
        dib->bytes.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    } catch (std::exception const &) {
        return;
    }
    dib->width = width;
    dib->height = height;
}

int vx_dib_get_width(Ivx_dib const *dib)
{
    return dib ? dib->width : 0;
}

int vx_dib_get_height(Ivx_dib const *dib)
{
    return dib ? dib->height : 0;
}

std::uint8_t *vx_dib_get_row(Ivx_dib *dib, int row)
{
    return dib && dib->has(0, row) ? dib->bytes.data() + dib->place(0, row) : nullptr;
}

std::uint8_t const *vx_dib_get_crow(Ivx_dib const *dib, int row)
{
    return dib && dib->has(0, row) ? dib->bytes.data() + dib->place(0, row) : nullptr;
}

Tvx_color vx_dib_get_pixel(Ivx_dib const *dib, int x, int y)
{
    if (!dib || !dib->has(x, y))
        return {};
    std::uint8_t const *const p = dib->bytes.data() + dib->place(x, y);
    return {p[0], p[1], p[2], p[3]};
}

void vx_dib_set_pixel(Ivx_dib *dib, int x, int y, Tvx_color color)
{
    if (!dib || !dib->has(x, y))
        return;
    std::uint8_t *const p = dib->bytes.data() + dib->place(x, y);
    p[0] = color.r;
    p[1] = color.g;
    p[2] = color.b;
    p[3] = color.a;
}

Ivx_dib const *vx_res_get_dib(int number, int scale)
{
    if (scale < 1 || scale > c_max_scale)
        return nullptr;
    return get_drawn(number, c_glyph_size * scale);
}

Ivx_dib const *vx_res_load_cursor(int number, int *hot_x, int *hot_y)
{
    auto const [x, y] = read_hot_spot(find_drawing(number));
    if (hot_x)
        *hot_x = x;
    if (hot_y)
        *hot_y = y;
    return get_drawn(number, c_cursor_size);
}

void vx::res::set_svg_painter(svg_painter painter)
{
    g_painter = painter;
}
