#pragma once

#include "support/memory_source.h"

#include "platform/base/owned.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_bmp_dc.h"
#include "platform/render/vx_map_view.h"
#include "platform/styles/vxk_styles.h"

namespace vx_test {
using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

/// A polygon over a page that shows all of it, a pixel to the unit, 4 pixels to the millimetre, with layers
/// of a complex style.
struct patterned
{
    memory_table table;
    memory_driver driver{L"pattern:", table};
    owned_layer layer;
    vx::owned<void, &vx_bmp_dc_destroy> dc{vx_bmp_dc_create()};
    Tvx_map_view view;

    explicit patterned(int side)
    {
        double const s = side;
        table.geom_type = 5;
        table.features = {{{}, 5, {{{0, 0}, {0, s}, {s, s}, {s, 0}, {0, 0}}}}};
        layer.reset(vx_shp_lr2d_create(c_lr_key_shp_pgn, L"pattern:"));
        vx_bmp_dc_set_nxy(dc.get(), side, side);
        vx_bmp_dc_clear(dc.get(), vx_clr_init_rgb(255, 255, 255));
        view.world.add(0, 0);
        view.world.add(s, s);
        view.width = side;
        view.height = side;
        view.mm2px_x = 4;
        view.mm2px_y = 4;
    }
    void *add_layer(char const *key)
    {
        void *mngr = vx_shp_pgn_lr2d_get_stl_mngr_ptr(layer.get());
        void *pgn = vx_stl_prm_get_pgn_style_ptr(vx_stl_mngr_get_simple_sp_ptr(mngr), false);
        void *fill = vx_pgn_style_get_bpgn_style_ptr(pgn);
        vx_bpgn_style_set_use_complex(fill, true);
        return vx_style_lrs_add_lr(vx_cpx_style_get_style_lrs_ptr(vx_bpgn_style_get_complex_style(fill)),
                                   key);
    }
};
} // namespace vx_test
