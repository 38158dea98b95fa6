#include "platform/styles/vx_txt_style.h"

#include "platform/base/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::fields;
using namespace vx::styles;

void *vx_txt_style_create()
{
    return new txt_style;
}

void *vx_txt_style_clone(void const *style)
{
    return clone<txt_style>(style);
}

void vx_txt_style_destroy(void *style)
{
    destroy<txt_style>(style);
}

void vx_txt_style_assign(void *target, void const *source)
{
    assign<txt_style>(target, source);
}

bool vx_txt_style_equal(void const *a, void const *b)
{
    return equal<txt_style>(a, b);
}

Tvx_color vx_txt_style_get_color(void const *style)
{
    return get(style, &txt_style::color);
}

void vx_txt_style_set_color(void *style, Tvx_color value)
{
    set(style, &txt_style::color, value);
}

double vx_txt_style_get_angle(void const *style)
{
    return get(style, &txt_style::angle);
}

void vx_txt_style_set_angle(void *style, double value)
{
    set(style, &txt_style::angle, value);
}

double vx_txt_style_get_font_size(void const *style)
{
    return get(style, &txt_style::font_size);
}

void vx_txt_style_set_font_size(void *style, double value)
{
    set(style, &txt_style::font_size, value);
}

bool vx_txt_style_get_outline(void const *style)
{
    return get(style, &txt_style::outline);
}

void vx_txt_style_set_outline(void *style, bool value)
{
    set(style, &txt_style::outline, value);
}

Tvx_color vx_txt_style_get_outline_clr(void const *style)
{
    return get(style, &txt_style::outline_clr);
}

void vx_txt_style_set_outline_clr(void *style, Tvx_color value)
{
    set(style, &txt_style::outline_clr, value);
}

double vx_txt_style_get_outline_size(void const *style)
{
    return get(style, &txt_style::outline_size);
}

void vx_txt_style_set_outline_size(void *style, double value)
{
    set(style, &txt_style::outline_size, value);
}

bool vx_txt_style_get_back(void const *style)
{
    return get(style, &txt_style::back);
}

void vx_txt_style_set_back(void *style, bool value)
{
    set(style, &txt_style::back, value);
}

Tvx_color vx_txt_style_get_back_clr(void const *style)
{
    return get(style, &txt_style::back_clr);
}

void vx_txt_style_set_back_clr(void *style, Tvx_color value)
{
    set(style, &txt_style::back_clr, value);
}

bool vx_txt_style_get_shadow(void const *style)
{
    return get(style, &txt_style::shadow);
}

void vx_txt_style_set_shadow(void *style, bool value)
{
    set(style, &txt_style::shadow, value);
}

Tvx_color vx_txt_style_get_shadow_clr(void const *style)
{
    return get(style, &txt_style::shadow_clr);
}

void vx_txt_style_set_shadow_clr(void *style, Tvx_color value)
{
    set(style, &txt_style::shadow_clr, value);
}

double vx_txt_style_get_shadow_width(void const *style)
{
    return get(style, &txt_style::shadow_width);
}

void vx_txt_style_set_shadow_width(void *style, double value)
{
    set(style, &txt_style::shadow_width, value);
}

double vx_txt_style_get_shadow_gap_x(void const *style)
{
    return get(style, &txt_style::shadow_gap_x);
}

void vx_txt_style_set_shadow_gap_x(void *style, double value)
{
    set(style, &txt_style::shadow_gap_x, value);
}

double vx_txt_style_get_shadow_gap_y(void const *style)
{
    return get(style, &txt_style::shadow_gap_y);
}

void vx_txt_style_set_shadow_gap_y(void *style, double value)
{
    set(style, &txt_style::shadow_gap_y, value);
}

double vx_txt_style_get_delta_x(void const *style)
{
    return get(style, &txt_style::delta_x);
}

void vx_txt_style_set_delta_x(void *style, double value)
{
    set(style, &txt_style::delta_x, value);
}

double vx_txt_style_get_delta_y(void const *style)
{
    return get(style, &txt_style::delta_y);
}

void vx_txt_style_set_delta_y(void *style, double value)
{
    set(style, &txt_style::delta_y, value);
}

int vx_txt_style_get_pos_x(void const *style)
{
    return get(style, &txt_style::pos_x);
}

void vx_txt_style_set_pos_x(void *style, int value)
{
    if (value >= -1 && value <= 1)
        set(style, &txt_style::pos_x, value);
}

int vx_txt_style_get_pos_y(void const *style)
{
    return get(style, &txt_style::pos_y);
}

void vx_txt_style_set_pos_y(void *style, int value)
{
    if (value >= -1 && value <= 1)
        set(style, &txt_style::pos_y, value);
}

vx_fnt_type *vx_txt_style_get_font_ptr(void *style)
{
    return part(style, &txt_style::font);
}

void vx_txt_style_set_font(void *style, vx_fnt_type const *font)
{
    vx_fnt_type_assign(vx_txt_style_get_font_ptr(style), font);
}

void *vx_txt_style_get_txt_stl_line(void *style)
{
    return part(style, &txt_style::lines);
}

unsigned vx_txt_stl_line_count(void const *line)
{
    return line ? static_cast<unsigned>(static_cast<txt_stl_line const *>(line)->lines.size()) : 0;
}

void vx_txt_stl_line_add(void *line, unsigned count)
{
    if (line)
        static_cast<txt_stl_line *>(line)->lines.resize(vx_txt_stl_line_count(line) + count);
}

void vx_txt_stl_line_del(void *line, unsigned index)
{
    if (index >= vx_txt_stl_line_count(line))
        return;
    auto &lines = static_cast<txt_stl_line *>(line)->lines;
    lines.erase(lines.begin() + index);
}

void vx_txt_stl_line_clear(void *line)
{
    if (line)
        static_cast<txt_stl_line *>(line)->lines.clear();
}

void vx_txt_stl_line_set_str(void *line, wchar_t const *text, unsigned index)
{
    if (index < vx_txt_stl_line_count(line))
        static_cast<txt_stl_line *>(line)->lines[index] = text ? text : L"";
}

void vx_txt_stl_line_get_str(void const *line, Ivx_string_adp *adp, unsigned index)
{
    bool const there = index < vx_txt_stl_line_count(line);
    vx_string_adp_feed(adp, there ? static_cast<txt_stl_line const *>(line)->lines[index].c_str() : L"");
}
