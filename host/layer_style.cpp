#include "host/layer_style.h"

#include "exports/vxk_style_dialog_api.h"
#include "host/layer_labels.h"
#include "styles/preview/style_example.h"

#include "platform/base/string_adp.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/vx_layer_classes.h"
#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_txt_settings.h"
#include "platform/styles/vx_val_scale.h"
#include "platform/winapi/library.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace {
struct fill_colors
{
    Tvx_color fill;
    Tvx_color outline;
};

// Hues after Okabe and Ito, which stay apart for most kinds of colour vision; lightened for fills. The n-th
// layer takes the n-th colours of its geometry, and no two of one place in the tables are alike.
constexpr fill_colors c_fills[] = {
    {vx_clr_init_rgb(0xe9, 0xe4, 0xd4), vx_clr_init_rgb(0x8a, 0x7f, 0x66)},
    {vx_clr_init_rgb(0xf6, 0xdc, 0xc8), vx_clr_init_rgb(0xc2, 0x50, 0x00)},
    {vx_clr_init_rgb(0xcf, 0xe3, 0xf1), vx_clr_init_rgb(0x00, 0x72, 0xb2)},
    {vx_clr_init_rgb(0xcd, 0xe8, 0xdc), vx_clr_init_rgb(0x00, 0x8a, 0x63)},
    {vx_clr_init_rgb(0xf2, 0xd9, 0xe7), vx_clr_init_rgb(0xa8, 0x48, 0x80)},
    {vx_clr_init_rgb(0xf7, 0xe8, 0xb8), vx_clr_init_rgb(0xb0, 0x7d, 0x00)},
};
constexpr Tvx_color c_lines[] = {
    vx_clr_init_rgb(0x3d, 0x6a, 0x99), vx_clr_init_rgb(0x00, 0x72, 0xb2), vx_clr_init_rgb(0xc2, 0x50, 0x00),
    vx_clr_init_rgb(0xa8, 0x48, 0x80), vx_clr_init_rgb(0x00, 0x8a, 0x63), vx_clr_init_rgb(0x6b, 0x4c, 0x9a),
};
constexpr Tvx_color c_points[] = {
    vx_clr_init_rgb(0xc2, 0x50, 0x00), vx_clr_init_rgb(0xb3, 0x2b, 0x4e), vx_clr_init_rgb(0x00, 0x8a, 0x63),
    vx_clr_init_rgb(0x00, 0x72, 0xb2), vx_clr_init_rgb(0xb0, 0x7d, 0x00), vx_clr_init_rgb(0x6b, 0x4c, 0x9a),
};
constexpr Tvx_color c_clear{};
constexpr wchar_t const *c_style_module = L"vxk_scene2d_editor_bdl.dll";
constexpr double c_outline_mm = 0.15;
constexpr double c_line_mm = 0.4;
constexpr double c_point_mm = 1.8;

unsigned next_color = 0;

/// A channel whose band the raster has not stays as it is.
void copy_channels(Ivx_layer *layer, Ivx_layer *like)
{
    void *const to = vx_rtr_lr2d_get_rgb_channels_ptr(layer);
    void *const from = vx_rtr_lr2d_get_rgb_channels_ptr(like);
    for (auto const part : {&vx_rgb_channels_get_red, &vx_rgb_channels_get_green, &vx_rgb_channels_get_blue,
                            &vx_rgb_channels_get_gray}) {
        void *const channel = part(to);
        void const *const other = part(from);
        std::wstring band;
        vx_clr_channel_get_prop_name_w(other, Tvx_std_wstring_adapter(band));
        bool has_band = false;
        for (unsigned i = 0; !has_band && i < vx_rtr_lr2d_get_prop_count(layer); ++i)
            has_band = band == vx_rtr_lr2d_get_prop_name(layer, i);
        if (!has_band)
            continue;
        vx_clr_channel_set_prop_name_w(channel, band.c_str());
        vx_clr_channel_set_min(channel, vx_clr_channel_get_min(other));
        vx_clr_channel_set_max(channel, vx_clr_channel_get_max(other));
        vx_clr_channel_set_histogramm_default(channel, vx_clr_channel_get_histogramm_default(other));
        vx_clr_channel_set_histogramm_min(channel, vx_clr_channel_get_histogramm_min(other));
        vx_clr_channel_set_histogramm_max(channel, vx_clr_channel_get_histogramm_max(other));
    }
}

void *simple_prm(void *manager)
{
    return vx_stl_mngr_get_simple_sp_ptr(manager);
}

void *point_style(Ivx_layer *layer)
{
    return vx_stl_prm_get_pnt_style_ptr(simple_prm(vx_shp_pnt_lr2d_get_stl_mngr_ptr(layer)), false);
}
void *line_style(Ivx_layer *layer)
{
    return vx_stl_prm_get_pln_style_ptr(simple_prm(vx_shp_pln_lr2d_get_stl_mngr_ptr(layer)), false);
}
void *area_style(Ivx_layer *layer)
{
    return vx_stl_prm_get_pgn_style_ptr(simple_prm(vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer)), false);
}

/// The manager that a layer of a property file is drawn by; null for a grid by channels and for others.
void *only_manager(Ivx_layer *layer)
{
    return vx_lr2d_is_shp(layer) ? nullptr : vx_layer_classes_get_mngr_ptr(layer, 0);
}

void *main_manager(Ivx_layer *layer)
{
    return vx_lr2d_is_shp(layer) ? vx_shp_lr2d_get_stl_mngr_ptr(layer) : only_manager(layer);
}

/// One of all managers of a layer of a property file.
void *kept_manager(Ivx_layer *layer)
{
    void *const colors = vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer);
    return colors ? colors : only_manager(layer);
}

/// What a layer of a property file shows of its data.
std::wstring shown_data(Ivx_layer *layer)
{
    std::wstring height, x, y;
    vx_tos_grid_1d_lr2d_get_height_prp_name(layer, Tvx_std_wstring_adapter(height));
    vx_tos_2crd_lr2d_get_wprop_name_x(layer, Tvx_std_wstring_adapter(x));
    vx_tos_2crd_lr2d_get_wprop_name_y(layer, Tvx_std_wstring_adapter(y));
    return height + L'\n' + x + L'\n' + y + L'\n' + std::to_wstring(vx_tos_slice_lr2d_get_zslice(layer));
}

void copy_properties(Ivx_layer *layer, Ivx_layer *like)
{
    vx_stl_mngr_assign(kept_manager(layer), kept_manager(like));
    vx_txt_settings_assign(vx_tos_2crd_lr2d_get_txt_settings(layer), vx_tos_2crd_lr2d_get_txt_settings(like));
    vx_tos_grid_lr2d_set_draw_type(layer, vx_tos_grid_lr2d_get_draw_type(like));
    vx_tos_grid_lr2d_set_opacity(layer, vx_tos_grid_lr2d_get_opacity(like));
    vx_tos_grid_lr2d_set_interpolate(layer, vx_tos_grid_lr2d_get_interpolate(like));
    vx_rgb_channels_assign(vx_tos_grid_lr2d_get_rgb_channels_ptr(layer),
                           vx_tos_grid_lr2d_get_rgb_channels_ptr(like));
    vx_lr_set_own_selected_style_flag(layer, vx_lr_get_own_selected_style_flag(like));
}

bool have_equal_properties(Ivx_layer *layer, Ivx_layer *like)
{
    return vx_stl_mngr_equal(kept_manager(layer), kept_manager(like)) &&
           shown_data(layer) == shown_data(like) &&
           vx_tos_grid_lr2d_get_draw_type(layer) == vx_tos_grid_lr2d_get_draw_type(like) &&
           vx_tos_grid_lr2d_get_opacity(layer) == vx_tos_grid_lr2d_get_opacity(like) &&
           vx_tos_grid_lr2d_get_interpolate(layer) == vx_tos_grid_lr2d_get_interpolate(like) &&
           vx_rgb_channels_equal(vx_tos_grid_lr2d_get_rgb_channels_ptr(layer),
                                 vx_tos_grid_lr2d_get_rgb_channels_ptr(like));
}

void set_line(void *line, Tvx_color color, double width)
{
    vx_bpln_style_set_color(line, color);
    vx_bpln_style_set_width(line, width);
}
} // namespace

Tvx_layer_colors vx_layer_get_colors(Ivx_layer *layer)
{
    Tvx_layer_colors colors{c_clear, c_clear, c_clear};
    if (void *style = point_style(layer)) {
        if (vx_pnt_style_get_pnt_visible(style))
            colors.point = vx_bpnt_style_get_color(vx_pnt_style_get_bpnt_style_ptr(style));
    } else if (void *style = line_style(layer)) {
        if (vx_pln_style_get_pln_visible(style))
            colors.line = vx_bpln_style_get_color(vx_pln_style_get_bpln_style_ptr(style));
    } else if (void *style = area_style(layer)) {
        if (vx_pgn_style_get_pgn_visible(style))
            colors.fill = vx_bpgn_style_get_color(vx_pgn_style_get_bpgn_style_ptr(style));
        if (vx_pgn_style_get_pln_visible(style))
            colors.line = vx_bpln_style_get_color(vx_pgn_style_get_bpln_style_ptr(style));
    }
    return colors;
}

unsigned vx_layer_manager_count(Ivx_layer *layer)
{
    return vx_layer_classes_get_mngr_count(layer);
}

void *vx_layer_manager_at(Ivx_layer *layer, unsigned index)
{
    return vx_layer_classes_get_mngr_ptr(layer, index);
}

std::vector<Tvx_color> vx_layer_get_class_colors(Ivx_layer *layer, unsigned count)
{
    void *const manager = main_manager(layer);
    std::vector<Tvx_color> colors;
    auto const take = [&](void *scale, unsigned size, auto prm_of) {
        for (unsigned i = 0; i < std::min(count, size); ++i)
            colors.push_back(vx_stl_prm_get_color(vx_scale_prm_get_stl_prm_ptr(prm_of(scale, i)), false));
    };
    switch (vx_stl_mngr_get_mode(manager)) {
    case c_stl_mngr_mode_value:
    case c_stl_mngr_mode_rule: {
        void *const scale = vx_stl_mngr_get_mode(manager) == c_stl_mngr_mode_value
                                ? vx_stl_mngr_get_val_scale_ptr(manager)
                                : vx_stl_mngr_get_rule_scale_ptr(manager);
        take(scale, vx_val_scale_get_size(scale), &vx_val_scale_get_scale_prm_ptr);
        break;
    }
    case c_stl_mngr_mode_range: {
        void *const scale = vx_stl_mngr_get_rng_scale_ptr(manager);
        take(scale, vx_rng_scale_get_size(scale), &vx_rng_scale_get_scale_prm_ptr);
        break;
    }
    default:
        break;
    }
    return colors;
}

bool vx_layer_is_drawn_simple(Ivx_layer *layer)
{
    return vx_stl_mngr_get_mode(vx_shp_lr2d_get_stl_mngr_ptr(layer)) == c_stl_mngr_mode_simple;
}

void *vx_layer_simple_style(Ivx_layer *layer)
{
    void *const manager = main_manager(layer);
    return vx_stl_mngr_get_mode(manager) == c_stl_mngr_mode_simple ? simple_prm(manager) : nullptr;
}

bool vx_layer_draw_sample(Ivx_layer *layer, TBitmap *bitmap)
{
    void *const style = vx_layer_simple_style(layer);
    return style && vx_style_draw_sample(style, bitmap);
}

bool vx_style_draw_sample(void *prm, TBitmap *bitmap)
{
    if (void *style = vx_stl_prm_get_pnt_style_ptr(prm, false))
        vx_pnt_style_example_bmp(style, bitmap);
    else if (void *style = vx_stl_prm_get_pln_style_ptr(prm, false))
        vx_pln_style_example_bmp(style, bitmap);
    else if (void *style = vx_stl_prm_get_pgn_style_ptr(prm, false))
        vx_pgn_style_example_bmp(style, bitmap);
    else if (Tvx_color const *const color = vx_stl_prm_get_clr_style_ptr(prm, false))
        vx_clr_style_example_bmp(color, bitmap);
    else
        return false;
    return true;
}

bool vx_layer_style_fits(Ivx_layer *layer, Ivx_layer *like)
{
    if (!layer || !like)
        return false;
    if (vx_lr2d_is_tos(layer))
        return (vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer) &&
                vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(like)) ||
               vx_lr2d_get_lr_type(layer) == std::string_view(vx_lr2d_get_lr_type(like));
    if (!vx_lr2d_is_shp(layer))
        return vx_lr2d_get_lr_type(layer) == std::string_view(c_lr_key_rtr) &&
               vx_lr2d_get_lr_type(like) == std::string_view(c_lr_key_rtr);
    char const *const type = vx_stl_mngr_list_get_type(vx_shp_lr2d_get_style_mngr_list_ptr(like));
    return type &&
           type == std::string_view(vx_stl_mngr_list_get_type(vx_shp_lr2d_get_style_mngr_list_ptr(layer)));
}

bool vx_layer_copy_style(Ivx_layer *layer, Ivx_layer *like)
{
    if (!vx_layer_style_fits(layer, like))
        return false;
    if (vx_lr2d_is_shp(layer)) {
        vx_stl_mngr_list_assign(vx_shp_lr2d_get_style_mngr_list_ptr(layer),
                                vx_shp_lr2d_get_style_mngr_list_ptr(like));
        vx_layer_copy_labels(layer, like);
        vx_lr_set_own_selected_style_flag(layer, vx_lr_get_own_selected_style_flag(like));
    } else if (vx_lr2d_is_tos(layer)) {
        copy_properties(layer, like);
        vx_layer_copy_labels(layer, like);
    } else {
        vx_rtr_lr2d_set_draw_type(layer, vx_rtr_lr2d_get_draw_type(like));
        vx_rtr_lr2d_set_transparent_clr(layer, vx_rtr_lr2d_get_transparent_clr(like));
        vx_rtr_lr2d_set_opacity(layer, vx_rtr_lr2d_get_opacity(like));
        copy_channels(layer, like);
    }
    return true;
}

bool vx_layer_has_style_of(Ivx_layer *layer, Ivx_layer *like)
{
    if (vx_lr2d_is_tos(layer))
        return have_equal_properties(layer, like) && vx_layer_has_labels_of(layer, like);
    if (!vx_lr2d_is_shp(layer))
        return vx_rtr_lr2d_get_draw_type(layer) == vx_rtr_lr2d_get_draw_type(like) &&
               vx_rtr_lr2d_get_transparent_clr(layer) == vx_rtr_lr2d_get_transparent_clr(like) &&
               vx_rtr_lr2d_get_opacity(layer) == vx_rtr_lr2d_get_opacity(like) &&
               vx_rgb_channels_equal(vx_rtr_lr2d_get_rgb_channels_ptr(layer),
                                     vx_rtr_lr2d_get_rgb_channels_ptr(like));
    void *const own = vx_shp_lr2d_get_style_mngr_list_ptr(layer);
    void *const other = vx_shp_lr2d_get_style_mngr_list_ptr(like);
    unsigned const count = vx_stl_mngr_list_get_count(own);
    bool same = count == vx_stl_mngr_list_get_count(other) &&
                vx_lr_get_own_selected_style_flag(layer) == vx_lr_get_own_selected_style_flag(like) &&
                vx_layer_has_labels_of(layer, like);
    for (unsigned i = 0; same && i < count; ++i)
        same = vx_stl_mngr_equal(vx_stl_mngr_list_get_mngr(own, i), vx_stl_mngr_list_get_mngr(other, i));
    return same;
}

bool vx_layer_has_style_dialog(Ivx_layer *layer)
{
    return vx_lr2d_is_shp(layer) && vx_layer_is_drawn_simple(layer) &&
           (point_style(layer) || line_style(layer) || area_style(layer)) && GetModuleHandleW(c_style_module);
}

bool vx_layer_style_dialog(Ivx_layer *layer, int x, int y)
{
    if (!vx_layer_has_style_dialog(layer))
        return false;
    if (void *style = point_style(layer))
        return vx_pnt_style_dialog(x, y, style);
    if (void *style = line_style(layer))
        return vx_pln_style_dialog(x, y, style);
    return vx_pgn_style_dialog(x, y, area_style(layer));
}

void vx_layer_set_default_style(Ivx_layer *layer)
{
    if (!vx_lr2d_is_shp(layer))
        return;
    unsigned const turn = next_color++;
    if (void *style = point_style(layer)) {
        void *point = vx_pnt_style_get_bpnt_style_ptr(style);
        vx_bpnt_style_set_color(point, c_points[turn % std::size(c_points)]);
        vx_bpnt_style_set_size(point, c_point_mm);
        vx_pnt_style_set_pnt_visible(style, true);
    } else if (void *style = line_style(layer)) {
        set_line(vx_pln_style_get_bpln_style_ptr(style), c_lines[turn % std::size(c_lines)], c_line_mm);
        vx_pln_style_set_pln_visible(style, true);
    } else if (void *style = area_style(layer)) {
        fill_colors const &colors = c_fills[turn % std::size(c_fills)];
        vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(style), colors.fill);
        set_line(vx_pgn_style_get_bpln_style_ptr(style), colors.outline, c_outline_mm);
        vx_pgn_style_set_pgn_visible(style, true);
        vx_pgn_style_set_pln_visible(style, true);
    }
}

void vx_layer_restart_default_styles()
{
    next_color = 0;
}
