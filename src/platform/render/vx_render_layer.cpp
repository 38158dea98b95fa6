#include "platform/render/vx_render_layer.h"

#include "platform/base/owned.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/detail/cell_painter.h"
#include "platform/render/detail/mngr_painter.h"
#include "platform/render/detail/raster_painter.h"
#include "platform/render/detail/tos_painter.h"
#include "platform/render/detail/vector_picture.h"
#include "platform/styles/vx_stl_mngr_list.h"

#include <cmath>
#include <string_view>

using namespace vx::render;

namespace {
using vx::styles::variant_of_style;

/// Of reading, before who waits is asked.
constexpr int c_slice_ms = 10;

struct pass
{
    mngr_painter &painter;
    closure<bool(unsigned long long)> selected;
    work_meter &meter;

    [[nodiscard]] bool draw(unsigned index, Tvx_shape_view const &shape) const
    {
        if (!selected || selected(index))
            painter.draw(index, shape);
        return meter.go_on(cost::c_object);
    }
    static bool visit(unsigned index, Tvx_shape_view const *shape, void *self)
    {
        return static_cast<pass const *>(self)->draw(index, *shape);
    }
};

/// The part of the world whose objects may reach into the picture: symbols stand out of their objects' boxes.
Tvx_box_d2 search_box(Tvx_map_view const &view, surface const &s)
{
    constexpr double c_reach_mm = 30;
    double const dx = c_reach_mm * s.px_per_mm_x * view.world.width() / view.width;
    double const dy = c_reach_mm * s.px_per_mm_y * view.world.height() / view.height;
    Tvx_box_d2 box = view.world;
    box.min_x -= dx;
    box.max_x += dx;
    box.min_y -= dy;
    box.max_y += dy;
    return box;
}

/// The origin of the map; so far away that its place is not known to the pixel, the corner of the picture.
Tvx_pnt_d2 pattern_origin(Tvx_map_view const &view)
{
    constexpr double c_farthest = 1e15;
    Tvx_pnt_d2 const at = view.origin();
    bool const known = std::abs(at.x) < c_farthest && std::abs(at.y) < c_farthest;
    return known ? at : Tvx_pnt_d2{0, 0};
}

bool draw_layer(Ivx_layer *layer, Tvx_map_view const &view, void *dc, variant_of_style variant,
                closure<bool(unsigned long long)> selected, closure<bool()> cancelled)
{
    if (!layer || !dc || !view.is_valid())
        return false;
    bool const is_grid = vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer) != nullptr;
    bool const is_raster = vx_lr2d_get_lr_type(layer) == std::string_view(c_lr_key_rtr);
    bool const is_curve = vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer) != nullptr;
    bool const is_cloud = vx_tos_2crd_lr2d_get_stl_mngr(layer) != nullptr;
    if (!vx_lr2d_get_visible(layer) ||
        (!vx_lr2d_is_shp(layer) && !is_grid && !is_raster && !is_curve && !is_cloud))
        return true;
    surface target = static_cast<bmp_dc *>(dc)->get_surface();
    if (!target.painter)
        return false;
    work_meter meter(cancelled);
    target.meter = &meter;
    if (is_raster)
        return variant == variant_of_style::selected || draw_as_picture(&draw_raster, layer, view, target);
    if (is_grid)
        return variant == variant_of_style::selected || draw_as_picture(&draw_cells, layer, view, target);
    if (view.mm2px_x > 0)
        target.px_per_mm_x = view.mm2px_x;
    if (view.mm2px_y > 0)
        target.px_per_mm_y = view.mm2px_y;
    target.origin = pattern_origin(view);
    if (is_curve)
        return variant == variant_of_style::selected || draw_curve(layer, view, target);
    if (is_cloud)
        return draw_points(layer, view, target, search_box(view, target), variant, selected);
    Ivx_attr_data *data = vx_shp_lr2d_get_attr_data_ptr(layer);
    vx::owned<Ivx_shape_files, &vx_shape_files_close> shapes(vx_shape_files_begin(data));
    if (!shapes)
        return false;
    vx::owned<Ivx_attr_files, &vx_attr_files_close> files(vx_attr_files_open(data, 1, 0));
    attr_table table(files.get());
    Tvx_box_d2 const box = search_box(view, target);
    void *list = vx_shp_lr2d_get_style_mngr_list_ptr(layer);
    if (!vx_stl_mngr_list_get_visible(list))
        return true;
    if (!vx_shape_files_is_whole(shapes.get()))
        if (Ivx_shape_files *const window = vx_shape_files_begin_window(data, &box))
            shapes.reset(window);
    for (unsigned i = 0; i < vx_stl_mngr_list_get_count(list); ++i) {
        auto const &mngr = *static_cast<vx::styles::stl_mngr const *>(vx_stl_mngr_list_get_mngr(list, i));
        mngr_painter painter(target, view, mngr, table, variant);
        while (painter.read_on(c_slice_ms))
            if (!meter.go_on(c_slice_ms * 1e6))
                return false;
        pass p{painter, selected, meter};
        for (unsigned first = 0;;) {
            unsigned const end = vx_shape_files_get_count(shapes.get());
            vx_shape_files_visit_from(shapes.get(), &box, first, &pass::visit, &p);
            painter.finish();
            first = end;
            // What comes is drawn on the way.
            if (meter.stopped() || (!vx_shape_files_read_on(shapes.get(), c_slice_ms) &&
                                    first == vx_shape_files_get_count(shapes.get())))
                break;
            if (!meter.go_on(c_slice_ms * 1e6))
                break;
        }
        if (!meter.stopped())
            painter.draw_upper_levels();
        if (meter.stopped())
            return false;
    }
    return !vx_shape_files_is_damaged(shapes.get());
}
} // namespace

bool vx_render_layer(Ivx_layer *layer, Tvx_map_view const &view, void *dc, closure<bool()> cancelled)
{
    return draw_layer(layer, view, dc, variant_of_style::base, {}, cancelled);
}

bool vx_render_layer_selection(Ivx_layer *layer, Tvx_map_view const &view, void *dc,
                               closure<bool(unsigned long long)> selected, closure<bool()> cancelled)
{
    if (!selected)
        return true;
    return draw_layer(layer, view, dc, variant_of_style::selected, selected, cancelled);
}
