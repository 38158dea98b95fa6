#include "platform/data/vx_tld_data.h"

#include "platform/base/detail/fields.h"
#include "platform/base/text_codec.h"
#include "platform/data/detail/textlr_info.h"
#include "platform/winapi/codepage.h"

#include <algorithm>

using namespace vx::fields;
using vx::tld::textlr_info;

namespace vx::tld {
textlr_info::textlr_info(int of_hint) : hint(of_hint)
{
    switch (hint) {
    case c_textlr_hint_polygons:
        break;
    case c_textlr_hint_lines:
        text_pos_y = 1;
        break;
    default:
        hint = c_textlr_hint_points;
        text_pos_x = text_pos_y = 1;
    }
}

void init_scale::unsettle()
{
    if (get() > 0)
        f_former = f_place;
    f_place = std::make_shared<double>(0);
}

void init_scale::restore()
{
    if (get() <= 0 && f_former)
        f_place = f_former;
}

void init_scale::set(double scale)
{
    f_place = std::make_shared<double>(scale > 0 ? scale : 0);
    f_former.reset();
}

double init_scale::settled_at(double scale) const
{
    if (get() <= 0 && scale > 0)
        *f_place = scale;
    return get();
}
} // namespace vx::tld

namespace {
constexpr unsigned c_cyrillic_page = 1251;
constexpr int c_last_of_three = 2;
constexpr int c_last_line_type = c_textlr_line_level;
constexpr int c_highest_priority = 9;

template <class T>
void set_in(void *info, T textlr_info::*field, std::type_identity_t<T> value, T least, T most)
{
    if (value >= least && value <= most)
        set(info, field, value);
}

/// The bytes that were read as Latin-1 to give the text; empty when it holds other characters, or none
/// beyond ASCII.
std::string latin1_bytes(std::wstring_view text)
{
    constexpr wchar_t c_first_beyond_ascii = 0x80;
    constexpr wchar_t c_last_latin1 = 0xFF;
    if (std::ranges::any_of(text, [](wchar_t c) { return c > c_last_latin1; }) ||
        std::ranges::none_of(text, [](wchar_t c) { return c >= c_first_beyond_ascii; }))
        return {};
    std::string bytes;
    bytes.reserve(text.size());
    for (wchar_t const c : text)
        bytes += static_cast<char>(c);
    return bytes;
}
} // namespace

void *vx_textlr_info_create(int hint)
{
    return new textlr_info(hint);
}

void *vx_textlr_info_clone(void const *info)
{
    return clone<textlr_info>(info);
}

void vx_textlr_info_destroy(void *info)
{
    destroy<textlr_info>(info);
}

void vx_textlr_info_assign(void *target, void const *source)
{
    int const hint = vx_textlr_info_get_hint(target);
    assign<textlr_info>(target, source);
    set(target, &textlr_info::hint, hint);
}

bool vx_textlr_info_equal(void const *a, void const *b)
{
    return equal<textlr_info>(a, b);
}

void vx_textlr_info_get_name(void const *info, Ivx_string_adp *name)
{
    feed_text(info, &textlr_info::name, name);
}

void vx_textlr_info_set_name(void *info, wchar_t const *name)
{
    set_text(info, &textlr_info::name, name);
}

void vx_textlr_info_get_property_name(void const *info, Ivx_string_adp *name)
{
    feed_text(info, &textlr_info::property_name, name);
}

int vx_textlr_info_get_property_index(void const *info)
{
    return info ? get(info, &textlr_info::property_index) : -1;
}

void vx_textlr_info_set_property(void *info, int index, wchar_t const *name)
{
    set(info, &textlr_info::property_index, std::max(index, -1));
    set_text(info, &textlr_info::property_name, name);
}

vx_fnt_type *vx_textlr_info_get_font_ptr(void *info)
{
    return part(info, &textlr_info::font);
}

void vx_textlr_info_set_font(void *info, vx_fnt_type const *font)
{
    vx_fnt_type_assign(vx_textlr_info_get_font_ptr(info), font);
}

double vx_textlr_info_get_size(void const *info)
{
    return get(info, &textlr_info::size);
}

void vx_textlr_info_set_size(void *info, double size)
{
    if (size >= 0)
        set(info, &textlr_info::size, size);
}

Tvx_color vx_textlr_info_get_color(void const *info)
{
    return get(info, &textlr_info::color);
}

void vx_textlr_info_set_color(void *info, Tvx_color color)
{
    set(info, &textlr_info::color, color);
}

double vx_textlr_info_get_angle(void const *info)
{
    return get(info, &textlr_info::angle);
}

void vx_textlr_info_set_angle(void *info, double angle)
{
    set(info, &textlr_info::angle, angle);
}

int vx_textlr_info_get_encoding(void const *info)
{
    return get(info, &textlr_info::encoding);
}

void vx_textlr_info_set_encoding(void *info, int encoding)
{
    set_in(info, &textlr_info::encoding, encoding, 0, c_last_of_three);
}

int vx_textlr_info_get_priority(void const *info)
{
    return get(info, &textlr_info::priority);
}

void vx_textlr_info_set_priority(void *info, int priority)
{
    set_in(info, &textlr_info::priority, priority, 0, c_highest_priority);
}

bool vx_textlr_info_is_place_overlap(void const *info)
{
    return get(info, &textlr_info::place_overlap);
}

void vx_textlr_info_set_place_overlap(void *info, bool overlap)
{
    set(info, &textlr_info::place_overlap, overlap);
}

bool vx_textlr_info_get_scale(void const *info)
{
    return get(info, &textlr_info::scale);
}

void vx_textlr_info_set_scale(void *info, bool scale)
{
    if (scale && !vx_textlr_info_get_scale(info))
        vx_textlr_info_set_scale_init(info, false);
    set(info, &textlr_info::scale, scale);
}

void vx_textlr_info_set_scale_init(void *info, bool settled)
{
    if (auto *const initial = part(info, &textlr_info::initial))
        settled ? initial->restore() : initial->unsettle();
}

double vx_textlr_info_get_init_scale(void const *info)
{
    return info ? static_cast<textlr_info const *>(info)->initial.get() : 0;
}

void vx_textlr_info_set_init_scale(void *info, double scale)
{
    if (auto *const initial = part(info, &textlr_info::initial); initial && is_valid(scale))
        initial->set(scale);
}

int vx_textlr_info_get_hint(void const *info)
{
    return get(info, &textlr_info::hint);
}

bool vx_textlr_info_is_back(void const *info)
{
    return get(info, &textlr_info::back);
}

Tvx_color vx_textlr_info_get_back_clr(void const *info)
{
    return get(info, &textlr_info::back_clr);
}

void vx_textlr_info_set_back(void *info, bool on, Tvx_color color)
{
    set(info, &textlr_info::back, on);
    set(info, &textlr_info::back_clr, color);
}

bool vx_textlr_info_get_outline(void const *info, Tvx_color *color, double *width)
{
    if (info && color)
        *color = get(info, &textlr_info::outline_clr);
    if (info && width)
        *width = get(info, &textlr_info::outline_width);
    return get(info, &textlr_info::outline);
}

void vx_textlr_info_set_outline(void *info, bool on, Tvx_color color, double width)
{
    set(info, &textlr_info::outline, on);
    set(info, &textlr_info::outline_clr, color);
    if (width >= 0)
        set(info, &textlr_info::outline_width, width);
}

bool vx_textlr_info_get_shadow(void const *info, Tvx_color *color, double *width, double *gap_x,
                               double *gap_y)
{
    if (info && color)
        *color = get(info, &textlr_info::shadow_clr);
    if (info && width)
        *width = get(info, &textlr_info::shadow_width);
    if (info && gap_x)
        *gap_x = get(info, &textlr_info::shadow_gap_x);
    if (info && gap_y)
        *gap_y = get(info, &textlr_info::shadow_gap_y);
    return get(info, &textlr_info::shadow);
}

void vx_textlr_info_set_shadow(void *info, bool on, Tvx_color color, double width, double gap_x, double gap_y)
{
    set(info, &textlr_info::shadow, on);
    set(info, &textlr_info::shadow_clr, color);
    if (width >= 0)
        set(info, &textlr_info::shadow_width, width);
    set(info, &textlr_info::shadow_gap_x, gap_x);
    set(info, &textlr_info::shadow_gap_y, gap_y);
}

int vx_textlr_info_get_range(void const *info)
{
    return get(info, &textlr_info::range);
}

void vx_textlr_info_set_range(void *info, int range)
{
    set_in(info, &textlr_info::range, range, 0, c_last_of_three);
}

int vx_textlr_info_get_duplicates(void const *info)
{
    return get(info, &textlr_info::duplicates);
}

void vx_textlr_info_set_duplicates(void *info, int duplicates)
{
    set_in(info, &textlr_info::duplicates, duplicates, 0, c_last_of_three);
}

signed char vx_textlr_info_get_text_pos_x(void const *info)
{
    return get(info, &textlr_info::text_pos_x);
}

void vx_textlr_info_set_text_pos_x(void *info, signed char pos)
{
    set_in<signed char>(info, &textlr_info::text_pos_x, pos, -1, 1);
}

signed char vx_textlr_info_get_text_pos_y(void const *info)
{
    return get(info, &textlr_info::text_pos_y);
}

void vx_textlr_info_set_text_pos_y(void *info, signed char pos)
{
    set_in<signed char>(info, &textlr_info::text_pos_y, pos, -1, 1);
}

int vx_textlr_info_get_line_type(void const *info)
{
    return get(info, &textlr_info::line_type);
}

void vx_textlr_info_set_line_type(void *info, int line_type)
{
    set_in(info, &textlr_info::line_type, line_type, 0, c_last_line_type);
}

bool vx_textlr_info_is_line_direction(void const *info)
{
    return get(info, &textlr_info::line_direction);
}

void vx_textlr_info_set_line_direction(void *info, bool by_line)
{
    set(info, &textlr_info::line_direction, by_line);
}

double vx_textlr_info_get_delta_x(void const *info)
{
    return get(info, &textlr_info::delta_x);
}

void vx_textlr_info_set_delta_x(void *info, double delta)
{
    set(info, &textlr_info::delta_x, delta);
}

double vx_textlr_info_get_delta_y(void const *info)
{
    return get(info, &textlr_info::delta_y);
}

void vx_textlr_info_set_delta_y(void *info, double delta)
{
    set(info, &textlr_info::delta_y, delta);
}

bool vx_textlr_info_use_min_scale(void const *info)
{
    return get(info, &textlr_info::use_min_scale);
}

void vx_textlr_info_set_use_min_scale(void *info, bool on)
{
    set(info, &textlr_info::use_min_scale, on);
}

double vx_textlr_info_get_min_scale(void const *info)
{
    return get(info, &textlr_info::min_scale);
}

void vx_textlr_info_set_min_scale(void *info, double scale)
{
    if (scale >= 0)
        set(info, &textlr_info::min_scale, scale);
}

bool vx_textlr_info_use_max_scale(void const *info)
{
    return get(info, &textlr_info::use_max_scale);
}

void vx_textlr_info_set_use_max_scale(void *info, bool on)
{
    set(info, &textlr_info::use_max_scale, on);
}

double vx_textlr_info_get_max_scale(void const *info)
{
    return get(info, &textlr_info::max_scale);
}

void vx_textlr_info_set_max_scale(void *info, double scale)
{
    if (scale >= 0)
        set(info, &textlr_info::max_scale, scale);
}

std::wstring vx_textlr_decode(std::wstring_view text, int encoding)
{
    std::string const bytes = encoding == c_textlr_encoding_plain ? std::string() : latin1_bytes(text);
    if (bytes.empty())
        return std::wstring(text);
    if (encoding == c_textlr_encoding_morvel)
        return vx_bytes_to_wide(bytes, c_cyrillic_page);
    std::wstring decoded = vx_bytes_to_wide(bytes, CP_UTF8);
    constexpr wchar_t c_no_character = 0xFFFD;
    return decoded.find(c_no_character) == std::wstring::npos ? decoded : std::wstring(text);
}
