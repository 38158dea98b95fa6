// Draws a page of 20 layers at 300 dots to the inch, and the same layers into a picture of that size, and
// prints the ratio.

#include "platform/base/owned.h"
#include "platform/basic/vx_bundle.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_prj.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_layout_render.h"
#include "platform/render/vx_render_layer.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <string>

namespace {
constexpr double c_dpi = 300;
constexpr double c_mm_per_inch = 25.4;
constexpr Tvx_box_d2 c_sheet{0, 0, 210, 297};
constexpr int c_layers = 20;
constexpr int c_runs = 9;

template <class Draw>
double processor_ms(Draw draw)
{
    std::clock_t const start = std::clock();
    draw();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Layers of the example data again and again, in styles with hatches, dashes and symbols.
bool add_layers(Ivx_scn_2d *scene)
{
    char const *const files[] = {"nc.shp", "world.shp", "large_cities.shp", "naturalearth_cities.shp"};
    for (int i = 0; i < c_layers; ++i) {
        std::string const file = std::string(VX_EXAMPLE_DATA "/") + files[i % 4];
        Ivx_layer *const layer = vx_shp_lr2d_open(std::wstring(file.begin(), file.end()).c_str(), nullptr);
        if (!layer)
            return false;
        void *const prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer));
        if (void *const area = vx_stl_prm_get_pgn_style_ptr(prm, false)) {
            void *const fill = vx_pgn_style_get_bpgn_style_ptr(area);
            vx_bpgn_style_set_use_complex(fill, true);
            void *const hatch = vx_style_lrs_add_lr(
                vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(fill)), c_pgn_htch_style_lr);
            vx_pgn_htch_lr_set_delta(hatch, 1.5 + 0.1 * i);
            vx_pgn_htch_lr_set_angle(hatch, 15 * i);
        }
        vx_scn_2d_insert(scene, i, layer);
    }
    return true;
}

Ivx_layer *add(Ivx_scn_2d *layout, char const *key, Tvx_box_d2 const &box, wchar_t const *file)
{
    Ivx_layer *const element = vx_lr2d_create(key);
    vx_lr2d_set_wfilename(element, file);
    vx_layout_lr2d_set_box(element, box);
    vx_scn_2d_insert(layout, vx_scn_2d_get_count(layout), element);
    return element;
}
} // namespace

int main()
{
    vx_bundles_load();
    Ivx_scn_2d *const scene = vx_scns_2d_add(vx_prj_get_scns_2d_ptr(vx_prj_get_instance()), L"map");
    vx_scn_2d_set_unit(scene, true, 1);
    if (!add_layers(scene)) {
        std::printf("The example data cannot be read.\n");
        return 1;
    }
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> const layout(vx_scn_2d_create(L"page"));
    add(layout.get(), c_lr_key_layout_page, c_sheet, L"");
    // The frame is all of the sheet, so that both draw the same pixels.
    Ivx_layer *const frame = add(layout.get(), c_lr_key_layout_scene_frame, c_sheet, L"map");
    vx_lr2d_set_wcaption(frame, L"frame");
    vx_layout_scene_frame_lr2d_fit(frame, {-180, -60, 180, 84});
    add(layout.get(), c_lr_key_layout_legend, {10, 200, 100, 290}, L"frame");
    add(layout.get(), c_lr_key_layout_scale_bar, {110, 275, 200, 290}, L"frame");
    add(layout.get(), c_lr_key_layout_north_arrow, {180, 10, 200, 40}, L"frame");
    Ivx_layer *const text = add(layout.get(), c_lr_key_layout_text, {10, 5, 170, 20}, L"");
    vx_layout_text_lr2d_set_wtext(text, L"A page of twenty layers");

    int const width = static_cast<int>(std::lround(c_sheet.width() / c_mm_per_inch * c_dpi));
    int const height = static_cast<int>(std::lround(c_sheet.height() / c_mm_per_inch * c_dpi));
    vx::owned<void, &vx_bmp_dc_destroy> const dc(vx_bmp_dc_create());
    vx_bmp_dc_set_nxy(dc.get(), width, height);
    Tvx_map_view view;
    view.world = vx_layout_scene_frame_lr2d_get_world(frame);
    view.width = width;
    view.height = height;
    view.mm2px_x = view.mm2px_y = c_dpi / c_mm_per_inch;
    // In turn, so that whatever slows the machine down meets both alike; the best of each.
    double page = HUGE_VAL, layers = HUGE_VAL;
    bool ok = true;
    for (int run = 0; run < c_runs; ++run) {
        layers = std::min(layers, processor_ms([&] {
                              vx_bmp_dc_clear(dc.get(), vx_clr_init_rgb(255, 255, 255));
                              for (int i = 0; i < c_layers; ++i)
                                  ok = vx_render_layer(vx_scn_2d_get_layer(scene, i), view, dc.get()) && ok;
                          }));
        page = std::min(page, processor_ms([&] {
                            vx_bmp_dc_clear(dc.get(), vx_clr_init_rgb(255, 255, 255));
                            ok = vx_layout_render(layout.get(), c_sheet, dc.get()) && ok;
                        }));
    }
    std::printf("%d layers, %d by %d pixels: %8.1f ms\n", c_layers, width, height, layers);
    std::printf("the page with them:            %8.1f ms, %.2f times\n", page, page / layers);
    return ok ? 0 : 1;
}
