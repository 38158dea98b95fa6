#include "host/map_identify.h"

#include "host/captions.h"
#include "host/layer_classes.h"
#include "host/layer_list.h"
#include "host/layer_style.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_options.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/render/vx_scale_rows.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
using owned_shapes = vx::owned<Ivx_shape_files, &vx_shape_files_close>;
using owned_table = vx::owned<Ivx_attr_files, &vx_attr_files_close>;
using owned_rows = vx::owned<Ivx_scale_rows, &vx_scale_rows_close>;

/// A hand misses by so many pixels.
constexpr double c_tolerance = 4;
/// Half of the largest symbol that is met by its edge.
constexpr double c_reach_mm = 15;

double distance_to_segment(Tvx_pnt_d2 p, Tvx_pnt_d2 a, Tvx_pnt_d2 b)
{
    double const dx = b.x - a.x;
    double const dy = b.y - a.y;
    double const length = dx * dx + dy * dy;
    double const t = length > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0) : 0;
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

/// Whether a ray from the point to the right crosses the segment.
bool is_crossed(Tvx_pnt_d2 p, Tvx_pnt_d2 a, Tvx_pnt_d2 b)
{
    return (a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x;
}

/// Distance in map units from the point to the shape; 0 inside an area.
double distance_to(Tvx_shape_view const &shape, Tvx_pnt_d2 p)
{
    double least = std::numeric_limits<double>::infinity();
    bool inside = false;
    for (int part = 0; part < shape.part_count; ++part) {
        unsigned const first = shape.part_starts[part];
        unsigned const last = shape.part_starts[part + 1];
        if (shape.kind == c_shape_point) {
            for (unsigned i = first; i < last; ++i)
                least = std::min(least, std::hypot(p.x - shape.points[i].x, p.y - shape.points[i].y));
            continue;
        }
        bool const is_ring = shape.kind == c_shape_polygon;
        for (unsigned i = first; i < last; ++i) {
            bool const closes = i + 1 == last;
            if (closes && !is_ring && last - first > 1)
                break;
            Tvx_pnt_d2 const a = shape.points[i];
            Tvx_pnt_d2 const b = shape.points[closes ? first : i + 1];
            least = std::min(least, distance_to_segment(p, a, b));
            if (is_ring && is_crossed(p, a, b))
                inside = !inside;
        }
    }
    return inside ? 0 : least;
}

/// What draws the objects of a layer.
class layer_rows
{
public:
    explicit layer_rows(Ivx_layer *layer) : f_layer(layer), f_list(vx_shp_lr2d_get_style_mngr_list_ptr(layer))
    {
        for (unsigned i = 0; i < vx_stl_mngr_list_get_count(f_list); ++i)
            f_rows.emplace_back(vx_scale_rows_open(vx_stl_mngr_list_get_mngr(f_list, i),
                                                   vx_shp_lr2d_get_attr_data_ptr(layer)));
    }

    struct drawn
    {
        bool is_drawn = false;
        int place = -1;  ///< of the class
        double size = 0; ///< of the symbol, or width of the line, in millimetres
    };
    /// The class that is drawn last of those that draw the object.
    [[nodiscard]] drawn find(unsigned record) const
    {
        for (auto i = static_cast<unsigned>(f_rows.size()); i-- > 0;) {
            unsigned const row = vx_scale_rows_find(f_rows[i].get(), record);
            int const place = vx_layer_class_of(f_layer, i, row);
            if (place >= 0 && !vx_layer_class_visible(f_layer, unsigned(place)).value_or(true))
                continue;
            void *const style = place >= 0
                                    ? vx_layer_class_style(f_layer, unsigned(place))
                                    : vx_stl_mngr_get_simple_sp_ptr(vx_stl_mngr_list_get_mngr(f_list, i));
            return {true, place, vx_stl_prm_get_size(style, false)};
        }
        return {};
    }

private:
    Ivx_layer *f_layer;
    void *f_list;
    std::vector<owned_rows> f_rows;
};

struct near_shape
{
    unsigned record;
    double pixels;
    bool is_area;
};

struct search
{
    Tvx_pnt_d2 at;
    double reach;
    double units_per_pixel;
    std::vector<near_shape> found;

    static bool visit(unsigned index, Tvx_shape_view const *shape, void *self)
    {
        auto &s = *static_cast<search *>(self);
        double const distance = distance_to(*shape, s.at);
        if (distance <= s.reach)
            s.found.push_back({index, distance / s.units_per_pixel, shape->kind == c_shape_polygon});
        return true;
    }
};

void identify_in(Tvx_layer_list const &layers, int row, search &s, std::size_t most,
                 std::vector<Tvx_found_object> &result)
{
    Ivx_layer *const layer = layers.layer_at(row);
    Ivx_attr_data *const data = vx_shp_lr2d_get_attr_data_ptr(layer);
    owned_shapes shapes(vx_shape_files_begin(data));
    if (!shapes || !vx_stl_mngr_list_get_visible(vx_shp_lr2d_get_style_mngr_list_ptr(layer)))
        return;
    Tvx_box_d2 box;
    box.add(s.at.x - s.reach, s.at.y - s.reach);
    box.add(s.at.x + s.reach, s.at.y + s.reach);
    s.found.clear();
    // While the file is still being read, its index finds what lies here.
    constexpr int c_slice_ms = 20;
    if (Ivx_shape_files *const near = vx_shape_files_begin_window(data, &box))
        shapes.reset(near);
    while (vx_shape_files_read_on(shapes.get(), c_slice_ms)) {
    }
    vx_shape_files_visit(shapes.get(), &box, &search::visit, &s);
    if (s.found.empty())
        return;
    layer_rows const rows(layer);
    double const half_px_per_mm = vx_options_get_mm2px_x() / 2;
    // Later records are drawn over earlier ones.
    for (auto i = s.found.rbegin(); i != s.found.rend() && result.size() < most; ++i) {
        auto const drawn = rows.find(i->record);
        double const edge = i->is_area ? 0 : drawn.size * half_px_per_mm;
        if (drawn.is_drawn && i->pixels <= c_tolerance + edge)
            result.push_back({layers.id_at(row), i->record, drawn.place});
    }
}
} // namespace

std::vector<Tvx_found_object> vx_map_identify(Tvx_layer_list const &layers, Tvx_canvas_view const &view,
                                              Tvx_screen_point at, std::size_t most)
{
    std::vector<Tvx_found_object> result;
    search s{view.to_map(at),
             (c_tolerance + c_reach_mm * vx_options_get_mm2px_x()) * view.units_per_pixel(),
             view.units_per_pixel(),
             {}};
    for (int row = 0; row < layers.count() && result.size() < most; ++row)
        if (layers.is_visible(row) && vx_lr2d_is_shp(layers.layer_at(row)))
            identify_in(layers, row, s, most, result);
    return result;
}

Tvx_object_info vx_map_object_info(Tvx_layer_list const &layers, Tvx_found_object const &object)
{
    Tvx_object_info info;
    int const row = layers.row_of(object.layer_id);
    Ivx_layer *const layer = layers.layer_at(row);
    if (!layer)
        return info;
    info.layer = layers.name_at(row);
    info.title = vx_map_caption(c_map_record_number).arg(object.record + 1);
    if (object.class_place >= 0) {
        info.drawn_by = vx_layer_class_caption(layer, unsigned(object.class_place));
        info.symbol = vx_layer_class_symbol(layer, unsigned(object.class_place));
    } else {
        info.drawn_by = vx_host_caption(c_cap_draw_by_one_style).remove('&');
        info.symbol = vx_layer_symbol(layer);
    }
    owned_table const table(vx_attr_files_open(vx_shp_lr2d_get_attr_data_ptr(layer), 1, 0));
    bool is_titled = false;
    for (unsigned field = 0; field < vx_attr_files_get_np(table.get()); ++field) {
        int const type = vx_attr_files_get_field_type(table.get(), field);
        if (type == c_attr_unknown || type > c_attr_bigint)
            continue;
        bool has = false;
        QString const value =
            QString::fromWCharArray(vx_attr_files_peek_wstr(table.get(), field, object.record, &has));
        info.attributes.emplace_back(
            QString::fromWCharArray(vx_attr_files_get_field_name_w(table.get(), field)),
            has ? value : QString());
        if (!is_titled && type == c_attr_string && !value.trimmed().isEmpty()) {
            info.title = value.simplified();
            is_titled = true;
        }
    }
    return info;
}

Tvx_box_d2 vx_map_object_box(Tvx_layer_list const &layers, int layer_id, unsigned record)
{
    Ivx_layer *const layer = layers.layer_at(layers.row_of(layer_id));
    owned_shapes const shapes(vx_shape_files_open(vx_shp_lr2d_get_attr_data_ptr(layer)));
    Tvx_shape_view shape;
    return vx_shape_files_get(shapes.get(), record, &shape) && shape.kind != c_shape_none ? shape.box
                                                                                          : Tvx_box_d2{};
}
