#pragma once

#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/layout_keys.h"
#include "platform/layers/vx_layout_lr2d.h"
#include "platform/layers/vx_prj.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_layout_render.h"
#include "platform/styles/vxk_styles.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>

/// A page of 100 by 80 millimetres, and a scene of the project in metres, named "scene", for its frames.
namespace vx_test {
struct layout_sheet
{
    static constexpr Tvx_box_d2 c_sheet{0, 0, 100, 80};

    memory_table table;
    memory_driver driver{L"sheet:", table};
    Ivx_scns_2d *scenes = vx_prj_get_scns_2d_ptr(vx_prj_get_instance());
    Ivx_scn_2d *scene = vx_scns_2d_add(scenes, L"scene");
    vx::owned<Ivx_scn_2d, &vx_scn_2d_destroy> layout{vx_scn_2d_create(L"Page")};
    vx::owned<void, &vx_bmp_dc_destroy> dc{vx_bmp_dc_create()};
    double px_per_mm = 4;
    Tvx_box_d2 shown = c_sheet;

    layout_sheet() { add(c_lr_key_layout_page, c_sheet); }
    layout_sheet(layout_sheet const &) = delete;
    layout_sheet &operator=(layout_sheet const &) = delete;
    ~layout_sheet() { vx_scns_2d_erase(scenes, vx_scns_2d_get_count(scenes) - 1); }

    Ivx_layer *add(char const *key, Tvx_box_d2 const &box, wchar_t const *file = L"") const
    {
        Ivx_layer *const element = vx_lr2d_create(key);
        vx_lr2d_set_wfilename(element, file);
        vx_layout_lr2d_set_box(element, box);
        vx_scn_2d_insert(layout.get(), vx_scn_2d_get_count(layout.get()), element);
        return element;
    }
    /// A frame of the scene, 1 : 1000, whose middle is that of the map.
    Ivx_layer *add_frame(Tvx_box_d2 const &box) const
    {
        Ivx_layer *const frame = add(c_lr_key_layout_scene_frame, box, L"scene");
        vx_lr2d_set_wcaption(frame, L"frame");
        vx_layout_scene_frame_lr2d_set_scale(frame, 1000, 1000);
        return frame;
    }
    /// A layer of one square of 200 metres round the middle of the map, without an outline.
    Ivx_layer *add_square(wchar_t const *caption, Tvx_color color)
    {
        if (table.features.empty())
            add_feature({{-100, -100}, {-100, 100}, {100, 100}, {100, -100}, {-100, -100}});
        Ivx_layer *const layer = add_layer(c_lr_key_shp_pgn, caption);
        void *const prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_lr2d_get_stl_mngr_ptr(layer));
        vx_pgn_style_set_pln_visible(vx_stl_prm_get_pgn_style_ptr(prm, false), false);
        vx_stl_prm_set_color(prm, false, color);
        return layer;
    }
    void add_feature(std::vector<Tvx_pnt_d2> const &part, int geom_type = 5)
    {
        table.geom_type = geom_type;
        table.features.push_back({{}, geom_type, {part}});
    }
    Ivx_layer *add_layer(char const *key, wchar_t const *caption) const
    {
        Ivx_layer *const layer = vx_shp_lr2d_create(key, L"sheet:");
        vx_lr2d_set_wcaption(layer, caption);
        vx_scn_2d_insert(scene, vx_scn_2d_get_count(scene), layer);
        return layer;
    }

    bool draw(closure<bool()> cancelled = {})
    {
        vx_bmp_dc_set_nxy(dc.get(), static_cast<int>(std::lround(shown.width() * px_per_mm)),
                          static_cast<int>(std::lround(shown.height() * px_per_mm)));
        return vx_layout_render(layout.get(), shown, dc.get(), cancelled);
    }
    /// The pixel at a place of the page.
    [[nodiscard]] Tvx_color at(double x, double y) const
    {
        return vx_bmp_dc_get_pixel(dc.get(), static_cast<int>((x - shown.min_x) * px_per_mm),
                                   static_cast<int>((y - shown.min_y) * px_per_mm));
    }
    [[nodiscard]] bool is_dark(double x, double y) const { return at(x, y).g < 100; }
    /// From the first to the last dark pixel of a row of the page, in millimetres.
    [[nodiscard]] std::pair<double, double> ink(double y, double from = 0, double to = 100) const
    {
        std::pair<double, double> found{to, from};
        for (double x = from + 0.5 / px_per_mm; x < to; x += 1 / px_per_mm)
            if (is_dark(x, y))
                found = {std::min(found.first, x), x};
        return {found.first - 0.5 / px_per_mm, found.second + 0.5 / px_per_mm};
    }
};
} // namespace vx_test
