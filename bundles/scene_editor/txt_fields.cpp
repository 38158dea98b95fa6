#include "txt_fields.h"

#include "captions/scene.h"

#include "platform/styles/vx_txt_style.h"

namespace vx::scene_editor {
namespace {
constexpr txt_number c_numbers[] = {
    {txt_field::size, c_scn_size, c_scn_mm, false, &vx_txt_style_get_font_size, &vx_txt_style_set_font_size},
    {txt_field::angle, c_scn_angle, c_scn_degree, true, &vx_txt_style_get_angle, &vx_txt_style_set_angle},
    {txt_field::delta_x, c_scn_delta_x, c_scn_mm, true, &vx_txt_style_get_delta_x, &vx_txt_style_set_delta_x},
    {txt_field::delta_y, c_scn_delta_y, c_scn_mm, true, &vx_txt_style_get_delta_y, &vx_txt_style_set_delta_y},
    {txt_field::outline_size, c_scn_outline_size, c_scn_mm, false, &vx_txt_style_get_outline_size,
     &vx_txt_style_set_outline_size},
    {txt_field::shadow_width, c_scn_shadow_width, c_scn_mm, false, &vx_txt_style_get_shadow_width,
     &vx_txt_style_set_shadow_width},
    {txt_field::shadow_gap_x, c_scn_shadow_gap_x, c_scn_mm, true, &vx_txt_style_get_shadow_gap_x,
     &vx_txt_style_set_shadow_gap_x},
    {txt_field::shadow_gap_y, c_scn_shadow_gap_y, c_scn_mm, true, &vx_txt_style_get_shadow_gap_y,
     &vx_txt_style_set_shadow_gap_y},
};

constexpr txt_color c_colors[] = {
    {txt_field::color, c_scn_color, &vx_txt_style_get_color, &vx_txt_style_set_color, nullptr, nullptr},
    {txt_field::outline, c_scn_outline, &vx_txt_style_get_outline_clr, &vx_txt_style_set_outline_clr,
     &vx_txt_style_get_outline, &vx_txt_style_set_outline},
    {txt_field::back, c_scn_back, &vx_txt_style_get_back_clr, &vx_txt_style_set_back_clr,
     &vx_txt_style_get_back, &vx_txt_style_set_back},
    {txt_field::shadow, c_scn_shadow, &vx_txt_style_get_shadow_clr, &vx_txt_style_set_shadow_clr,
     &vx_txt_style_get_shadow, &vx_txt_style_set_shadow},
};
} // namespace

std::span<txt_number const> txt_numbers()
{
    return c_numbers;
}

std::span<txt_color const> txt_colors()
{
    return c_colors;
}

void copy_txt_field(txt_field field, void *target, void *source)
{
    if (field == txt_field::font) {
        vx_txt_style_set_font(target, vx_txt_style_get_font_ptr(source));
        return;
    }
    if (field == txt_field::place) {
        vx_txt_style_set_pos_x(target, vx_txt_style_get_pos_x(source));
        vx_txt_style_set_pos_y(target, vx_txt_style_get_pos_y(source));
        return;
    }
    for (txt_number const &number : c_numbers)
        if (number.field == field)
            number.set(target, number.get(source));
    for (txt_color const &color : c_colors) {
        if (color.field != field)
            continue;
        color.set(target, color.get(source));
        if (color.get_on)
            color.set_on(target, color.get_on(source));
    }
}
} // namespace vx::scene_editor
