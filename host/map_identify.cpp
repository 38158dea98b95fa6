#include "host/map_identify.h"

#include "host/captions.h"
#include "host/layer_classes.h"
#include "host/layer_list.h"
#include "host/layer_style.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/basic/vx_options.h"
#include "platform/data/vx_attr_data.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/vx_rtr_lr2d.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/render/vx_scale_rows.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace {
using owned_shapes = vx::owned<Ivx_shape_files, &vx_shape_files_close>;
using owned_table = vx::owned<Ivx_attr_files, &vx_attr_files_close>;
using owned_rows = vx::owned<Ivx_scale_rows, &vx_scale_rows_close>;
using prop_ptr = vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close>;

/// A hand misses by so many pixels.
constexpr double c_tolerance = 4;
/// Half of the largest symbol that is met by its edge.
constexpr double c_reach_mm = 15;

/// A raster's cell as one number, and back: sizes of rasters are those of 32-bit numbers.
unsigned long long raster_cell(int column, int row)
{
    return static_cast<unsigned long long>(row) << 32 | static_cast<unsigned>(column);
}
std::pair<int, int> raster_place(unsigned long long cell)
{
    return {int(cell & 0xffffffff), int(cell >> 32)};
}

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

std::wstring file_of(Ivx_layer *layer)
{
    std::wstring name;
    vx_lr2d_get_wfilename(layer, Tvx_std_wstring_adapter(name));
    return name;
}

/// What draws the objects of a layer.
class layer_rows
{
public:
    explicit layer_rows(Ivx_layer *layer) : f_layer(layer)
    {
        for (unsigned i = 0; i < vx_layer_manager_count(layer); ++i)
            f_rows.emplace_back(open(i));
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
            void *const style = place >= 0 ? vx_layer_class_style(f_layer, unsigned(place))
                                           : vx_stl_mngr_get_simple_sp_ptr(vx_layer_manager_at(f_layer, i));
            return {true, place, vx_stl_prm_get_size(style, false)};
        }
        return {};
    }

private:
    [[nodiscard]] Ivx_scale_rows *open(unsigned i) const
    {
        void *const mngr = vx_layer_manager_at(f_layer, i);
        return vx_lr2d_is_tos(f_layer) ? vx_scale_rows_open_file_w(mngr, file_of(f_layer).c_str())
                                       : vx_scale_rows_open(mngr, vx_shp_lr2d_get_attr_data_ptr(f_layer));
    }

    Ivx_layer *f_layer;
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
            result.push_back({layers.id_at(row), true, i->record, 0, drawn.place});
    }
}

// ---- rasters and property files

/// An open property file with one value after the other.
class property_values
{
public:
    explicit property_values(Ivx_layer *layer) : f_file(vx_tos4_file_open_w(file_of(layer).c_str(), true)) {}
    [[nodiscard]] unsigned count() const { return vx_tos4_get_prop_count(f_file.get()); }
    [[nodiscard]] unsigned long long objects() const { return vx_tos4_get_object_count_64(f_file.get()); }
    [[nodiscard]] Tvx_tos4_grid grid() const
    {
        Tvx_tos4_grid grid;
        vx_tos4_get_grid(f_file.get(), &grid);
        return grid;
    }
    [[nodiscard]] QString caption(unsigned prop) const
    {
        std::wstring text;
        vx_tos4_get_prop_caption_w(f_file.get(), prop, Tvx_std_wstring_adapter(text));
        return QString::fromStdWString(text);
    }
    [[nodiscard]] prop_ptr open(std::wstring const &name) const
    {
        int const index = vx_tos4_find_prop_w(f_file.get(), name.c_str());
        return prop_ptr(index < 0 ? nullptr : vx_tos4_prop_open(f_file.get(), unsigned(index)));
    }
    [[nodiscard]] std::optional<double> value(unsigned prop, unsigned long long object) const
    {
        prop_ptr const values(vx_tos4_prop_open(f_file.get(), prop));
        double value = 0;
        return vx_tos4_prop_get_value_double(values.get(), object, &value) ? std::optional(value)
                                                                           : std::nullopt;
    }
    /// One of the properties has a value there.
    [[nodiscard]] bool has_any(unsigned long long object) const
    {
        for (unsigned prop = 0; prop < count(); ++prop)
            if (value(prop, object))
                return true;
        return false;
    }

private:
    vx::owned<Ivx_tos4_file, &vx_tos4_file_close> f_file;
};

Tvx_found_object found_cell(int layer_id, unsigned long long cell, int class_place = -1)
{
    return {layer_id, false, 0, cell, class_place};
}

void identify_raster(Tvx_layer_list const &layers, int row, Tvx_pnt_d2 at,
                     std::vector<Tvx_found_object> &result)
{
    Ivx_layer *const layer = layers.layer_at(row);
    int column = 0, line = 0;
    if (!vx_rtr_lr2d_find_cell(layer, at, &column, &line))
        return;
    for (unsigned band = 0; band < vx_rtr_lr2d_get_prop_count(layer); ++band)
        if (vx_rtr_lr2d_get_cell(layer, band, column, line, nullptr)) {
            result.push_back(found_cell(layers.id_at(row), raster_cell(column, line)));
            return;
        }
}

/// The class of an object of a property file; nothing when its class is not drawn.
std::optional<int> class_of(Ivx_layer *layer, unsigned long long object)
{
    auto const drawn = layer_rows(layer).find(unsigned(object));
    return drawn.is_drawn || vx_layer_manager_count(layer) == 0 ? std::optional(drawn.place) : std::nullopt;
}

void identify_grid(Tvx_layer_list const &layers, int row, Tvx_pnt_d2 at,
                   std::vector<Tvx_found_object> &result)
{
    Ivx_layer *const layer = layers.layer_at(row);
    unsigned long long object = 0;
    if (!vx_tos_lr2d_find_cell(layer, at, &object) || !property_values(layer).has_any(object))
        return;
    if (auto const place = class_of(layer, object))
        result.push_back(found_cell(layers.id_at(row), object, *place));
}

/// The value of a curve that is next along it, if the curve runs near the point there.
void identify_curve(Tvx_layer_list const &layers, int row, search const &s,
                    std::vector<Tvx_found_object> &result)
{
    Ivx_layer *const layer = layers.layer_at(row);
    property_values const file(layer);
    std::wstring name;
    vx_tos_grid_1d_lr2d_get_height_prp_name(layer, Tvx_std_wstring_adapter(name));
    prop_ptr const heights = file.open(name);
    Tvx_tos4_grid const grid = file.grid();
    double const place = std::round((s.at.x - grid.origin[0]) / grid.spacing[0]);
    if (!heights || !(place >= 0 && place < double(file.objects())))
        return;
    auto const object = static_cast<unsigned long long>(place);
    auto const vertex = [&](unsigned long long i) -> std::optional<Tvx_pnt_d2> {
        double height = 0;
        if (i >= file.objects() || !vx_tos4_prop_get_value_double(heights.get(), i, &height))
            return std::nullopt;
        return Tvx_pnt_d2{grid.origin[0] + double(i) * grid.spacing[0], height};
    };
    auto const here = vertex(object);
    if (!here)
        return;
    double distance = std::hypot(s.at.x - here->x, s.at.y - here->y);
    for (auto const next : {object - 1, object + 1})
        if (auto const other = vertex(next))
            distance = std::min(distance, distance_to_segment(s.at, *here, *other));
    if (distance <= c_tolerance * s.units_per_pixel)
        result.push_back(found_cell(layers.id_at(row), object));
}

void identify_points(Tvx_layer_list const &layers, int row, search const &s, std::size_t most,
                     std::vector<Tvx_found_object> &result)
{
    Ivx_layer *const layer = layers.layer_at(row);
    property_values const file(layer);
    std::wstring name_x, name_y;
    vx_tos_2crd_lr2d_get_wprop_name_x(layer, Tvx_std_wstring_adapter(name_x));
    vx_tos_2crd_lr2d_get_wprop_name_y(layer, Tvx_std_wstring_adapter(name_y));
    prop_ptr const xs = file.open(name_x), ys = file.open(name_y);
    constexpr unsigned long long c_chunk = 4096;
    std::vector<double> x(c_chunk), y(c_chunk);
    std::vector<std::pair<unsigned, double>> near; // with its distance in pixels
    for (unsigned long long first = 0; xs && ys && first < file.objects(); first += c_chunk) {
        auto const count = std::min(vx_tos4_prop_get_values(xs.get(), first, c_chunk, x.data()),
                                    vx_tos4_prop_get_values(ys.get(), first, c_chunk, y.data()));
        for (std::size_t i = 0; i < count; ++i)
            if (std::fabs(x[i] - s.at.x) <= s.reach && std::fabs(y[i] - s.at.y) <= s.reach)
                near.emplace_back(unsigned(first + i),
                                  std::hypot(x[i] - s.at.x, y[i] - s.at.y) / s.units_per_pixel);
    }
    if (near.empty())
        return;
    layer_rows const rows(layer);
    // Later objects are drawn over earlier ones.
    for (auto i = near.rbegin(); i != near.rend() && result.size() < most; ++i) {
        auto const drawn = rows.find(i->first);
        if (drawn.is_drawn && i->second <= c_tolerance + drawn.size * vx_options_get_mm2px_x() / 2)
            result.push_back(found_cell(layers.id_at(row), i->first, drawn.place));
    }
}

void identify_any(Tvx_layer_list const &layers, int row, search &s, std::size_t most,
                  std::vector<Tvx_found_object> &result)
{
    Ivx_layer *const layer = layers.layer_at(row);
    if (vx_lr2d_is_shp(layer))
        identify_in(layers, row, s, most, result);
    else if (vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer))
        identify_grid(layers, row, s.at, result);
    else if (vx_tos_grid_1d_lr2d_get_stl_mngr_ptr(layer))
        identify_curve(layers, row, s, result);
    else if (vx_lr2d_is_tos(layer))
        identify_points(layers, row, s, most, result);
    else
        identify_raster(layers, row, s.at, result);
}

QString shown(std::optional<double> value)
{
    return value ? QString::number(*value, 'g', 10) : QString();
}

QString cell_title(unsigned long long column, unsigned long long row)
{
    return vx_map_caption(c_map_cell_place).arg(column + 1).arg(row + 1);
}

void add_raster_cell(Ivx_layer *layer, unsigned long long cell, Tvx_object_info &info)
{
    auto const [column, row] = raster_place(cell);
    info.title = cell_title(unsigned(column), unsigned(row));
    for (unsigned band = 0; band < vx_rtr_lr2d_get_prop_count(layer); ++band) {
        double value = 0;
        bool const has = vx_rtr_lr2d_get_cell(layer, band, column, row, &value);
        info.attributes.emplace_back(QString::fromWCharArray(vx_rtr_lr2d_get_prop_name(layer, band)),
                                     shown(has ? std::optional(value) : std::nullopt));
    }
}

void add_properties(Ivx_layer *layer, unsigned long long object, Tvx_object_info &info)
{
    property_values const file(layer);
    if (auto const grid = file.grid(); vx_tos_grid_lr2d_get_clr_stl_mngr_ptr(layer) && grid.count[0] > 0)
        info.title = cell_title(object % grid.count[0], object / grid.count[0] % grid.count[1]);
    for (unsigned prop = 0; prop < file.count(); ++prop)
        info.attributes.emplace_back(file.caption(prop), shown(file.value(prop, object)));
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
        if (layers.is_visible(row) && vx_layer_is_drawn(layers.layer_at(row)))
            identify_any(layers, row, s, most, result);
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
    info.title =
        vx_map_caption(c_map_record_number).arg(object.has_record ? object.record + 1ULL : object.cell + 1);
    if (object.class_place >= 0) {
        info.drawn_by = vx_layer_class_caption(layer, unsigned(object.class_place));
        info.symbol = vx_layer_class_symbol(layer, unsigned(object.class_place));
    } else {
        bool const has_style = vx_layer_manager_count(layer) > 0;
        info.drawn_by = has_style ? vx_host_caption(c_cap_draw_by_one_style).remove('&')
                                  : vx_map_caption(c_map_drawn_by_cells);
        info.symbol = vx_layer_symbol(layer);
    }
    if (!object.has_record) {
        if (vx_lr2d_is_tos(layer))
            add_properties(layer, object.cell, info);
        else
            add_raster_cell(layer, object.cell, info);
        return info;
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
