#include "platform/styles/vx_txt_style.h"

#include "platform/styles/detail/fields.h"
#include "platform/styles/detail/style_model.h"

using namespace vx::styles;

VX_LIFE(vx_txt_style, txt_style)
VX_FIELD(vx_txt_style, txt_style, color, Tvx_color)
VX_FIELD(vx_txt_style, txt_style, angle, double)
VX_FIELD(vx_txt_style, txt_style, font_size, double)
VX_FIELD(vx_txt_style, txt_style, outline, bool)
VX_FIELD(vx_txt_style, txt_style, outline_clr, Tvx_color)
VX_FIELD(vx_txt_style, txt_style, outline_size, double)
VX_FIELD(vx_txt_style, txt_style, back, bool)
VX_FIELD(vx_txt_style, txt_style, back_clr, Tvx_color)
VX_FIELD(vx_txt_style, txt_style, shadow, bool)
VX_FIELD(vx_txt_style, txt_style, shadow_clr, Tvx_color)
VX_FIELD(vx_txt_style, txt_style, shadow_width, double)
VX_FIELD(vx_txt_style, txt_style, shadow_gap_x, double)
VX_FIELD(vx_txt_style, txt_style, shadow_gap_y, double)
VX_FIELD(vx_txt_style, txt_style, delta_x, double)
VX_FIELD(vx_txt_style, txt_style, delta_y, double)

int vx_txt_style_get_pos_x(void const *style)
{
    return style ? static_cast<txt_style const *>(style)->pos_x : 0;
}

void vx_txt_style_set_pos_x(void *style, int value)
{
    if (style && value >= -1 && value <= 1)
        static_cast<txt_style *>(style)->pos_x = value;
}

int vx_txt_style_get_pos_y(void const *style)
{
    return style ? static_cast<txt_style const *>(style)->pos_y : 0;
}

void vx_txt_style_set_pos_y(void *style, int value)
{
    if (style && value >= -1 && value <= 1)
        static_cast<txt_style *>(style)->pos_y = value;
}

vx_fnt_type *vx_txt_style_get_font_ptr(void *style)
{
    return style ? &static_cast<txt_style *>(style)->font : nullptr;
}

void vx_txt_style_set_font(void *style, vx_fnt_type const *font)
{
    vx_fnt_type_assign(vx_txt_style_get_font_ptr(style), font);
}

void *vx_txt_style_get_txt_stl_line(void *style)
{
    return style ? &static_cast<txt_style *>(style)->lines : nullptr;
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
