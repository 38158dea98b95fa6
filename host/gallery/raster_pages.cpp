#include "host/gallery/gallery_page.h"
#include "raster_property/raster/rtr_id_lr2d_edit.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_clr_channel.h"
#include "platform/layers/vx_rtr_lr2d.h"

// Pages of raster layers: the three bands of a satellite picture by channels, heights in gray, a picture as
// it is.

namespace {
constexpr int c_edge = 16;
constexpr int c_gap = 12;
constexpr int c_width = 266;
constexpr int c_height = 440;

using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

Ivx_layer *make_layer(wchar_t const *file, int draw_type)
{
    Ivx_layer *const layer = vx_rtr_lr2d_create(file);
    vx_rtr_lr2d_set_draw_type(layer, draw_type);
    return layer;
}

void stretch(void *channel, double low, double high)
{
    vx_clr_channel_set_min(channel, low);
    vx_clr_channel_set_max(channel, high);
}

void fill(TWinControl *page)
{
    // They live as long as the program.
    static owned_layer const bands(make_layer(L"" VX_EXAMPLE_DATA "/L7_ETMs.tif", c_rtr_draw_channels));
    static owned_layer const heights(
        make_layer(L"" VX_EXAMPLE_DATA "/olinda_dem_utm25s.tif", c_rtr_draw_gray));
    static owned_layer const plain(make_layer(L"" VX_EXAMPLE_DATA "/L7_ETMs.tif", c_rtr_draw_normal));
    stretch(vx_rgb_channels_get_red(vx_rtr_lr2d_get_rgb_channels_ptr(bands.get())), 60, 110);
    stretch(vx_rgb_channels_get_gray(vx_rtr_lr2d_get_rgb_channels_ptr(heights.get())), 0, 70);
    vx_rtr_lr2d_set_transparent_clr(plain.get(), vx_clr_init_rgb(20, 30, 60));
    vx_rtr_lr2d_set_opacity(plain.get(), 0.6);
    int left = c_edge;
    for (Ivx_layer *const layer : {bands.get(), heights.get(), plain.get()}) {
        auto *const edit = new Tvx_rtr_id_lr2d_edit(page);
        edit->SetParent(page);
        edit->SetBounds(left, c_edge, c_width, c_height);
        edit->create();
        edit->load_res();
        edit->set_lr2d(layer);
        edit->update_controls();
        left += c_width + c_gap;
    }
}

gallery_page const g_page(36, L"Raster layers", &fill);
} // namespace
