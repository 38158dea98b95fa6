#include "platform/layers/detail/shp_layer.h"

#include "captions/engine.h"
#include "extension/binding/codes.h"

#include "platform/base/ascii_case.h"
#include "platform/base/string_adp.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_datasource.h"
#include "platform/basic/vx_fault.h"
#include "platform/data/vx_shape_files.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_style_keys.h"

#include <algorithm>

using owned_data = vx::owned<Ivx_attr_data, &vx_attr_data_release>;

namespace vx::layers {
namespace {
constexpr shp_geometry c_points = {c_lr_key_shp_pnt, c_pnt_style, c_txt_pnt_style};
constexpr shp_geometry c_lines = {c_lr_key_shp_pln, c_pln_style, c_txt_pln_style};
constexpr shp_geometry c_polygons = {c_lr_key_shp_pgn, c_pgn_style, c_txt_pgn_style};

struct keyed_geometry
{
    std::string_view key;
    shp_geometry const &geometry;
};
constexpr keyed_geometry c_geometries[] = {
    {c_lr_key_shp_pnt, c_points},      {c_lr_key_shp_pln, c_lines},      {c_lr_key_shp_pgn, c_polygons},
    {c_lr_key_shp_pntz_sub, c_points}, {c_lr_key_shp_plnz_sub, c_lines}, {c_lr_key_shp_pgnz_sub, c_polygons},
};

/// Layer key for a geometry type of a data set; null when no layer draws it.
char const *key_of_geometry(int geom_type)
{
    constexpr int c_geom_z = codes::plain::geom_point_z - codes::plain::geom_point;
    switch (geom_type > c_geom_z ? geom_type - c_geom_z : geom_type) {
    case codes::plain::geom_point:
    case codes::plain::geom_multipoint:
        return c_lr_key_shp_pnt;
    case codes::plain::geom_polyline:
        return c_lr_key_shp_pln;
    case codes::plain::geom_polygon:
        return c_lr_key_shp_pgn;
    default:
        return nullptr;
    }
}

/// What the first shape is, as a geometry type; 0 when no record has a geometry that can be drawn.
int type_of_first_shape(Ivx_attr_data *data)
{
    constexpr int c_slice_ms = 10;
    vx::owned<Ivx_shape_files, &vx_shape_files_close> const shapes(vx_shape_files_begin(data));
    auto const waiting = vx_datasource_get_waiting();
    Tvx_shape_view view;
    for (unsigned i = 0;;) {
        for (; vx_shape_files_get(shapes.get(), i, &view); ++i)
            if (view.kind != c_shape_none)
                return view.kind;
        if (!vx_shape_files_read_on(shapes.get(), c_slice_ms) && i == vx_shape_files_get_count(shapes.get()))
            return 0;
        if (waiting && !waiting())
            return 0;
    }
}

/// Geometry type of the data set; where it allows any, that of its first shape.
int type_to_draw(Ivx_attr_data *data)
{
    int const type = vx_attr_data_get_geom_type(data);
    return type == codes::plain::geom_unknown ? type_of_first_shape(data) : type;
}

void *typed_manager(Ivx_layer *layer, shp_geometry const &geometry)
{
    auto *const shp = as<shp_layer>(layer);
    return shp && &shp->geometry == &geometry ? vx_stl_mngr_list_get_active_mngr(shp->styles.get()) : nullptr;
}

/// A table whose shapes are read from columns that are known by their names.
bool is_text_table(std::wstring const &file)
{
    constexpr std::string_view c_suffix = ".csv";
    auto const name = vx::text::wide_to_utf8(file);
    return name.size() > c_suffix.size() &&
           vx::text::ascii_same(std::string_view(name).substr(name.size() - c_suffix.size()), c_suffix);
}

/// Over an open data set; null, with a sentence, when no layer draws its geometry.
Ivx_layer *make_layer(wchar_t const *source, owned_data data, Ivx_string_adp *error)
{
    auto const *const key = key_of_geometry(type_to_draw(data.get()));
    if (!key) {
        std::wstring file;
        vx_attr_data_get_wfilename(data.get(), Tvx_std_wstring_adapter(file));
        int const refusal = is_text_table(file) ? c_capt_no_coordinate_columns : c_capt_no_vector_data;
        vx_string_adp_feed(error, vx_fault_reason({refusal, file, 0, {}}).c_str());
        return nullptr;
    }
    auto *const layer = vx_shp_lr2d_create(key, source);
    as<shp_layer>(layer)->attr_data = std::move(data);
    layer->caption = layer->display_name();
    return layer;
}
} // namespace

shp_geometry const *find_shp_geometry(std::string_view key)
{
    auto const at = std::find_if(std::begin(c_geometries), std::end(c_geometries),
                                 [&](keyed_geometry const &g) { return g.key == key; });
    return at == std::end(c_geometries) ? nullptr : &at->geometry;
}

shp_layer::shp_layer(std::string type_key, shp_geometry const &layer_geometry)
    : Ivx_layer(std::move(type_key)), geometry(layer_geometry),
      styles(vx_stl_mngr_list_create(layer_geometry.style)),
      texts(vx_txt_settings_create(layer_geometry.text_style)), text_layer(dtld_layer::make_inside(this))
{
}

std::unique_ptr<Ivx_layer> shp_layer::clone() const
{
    auto copy = std::make_unique<shp_layer>(key, geometry);
    copy->take_common(*this);
    copy->styles.reset(vx_stl_mngr_list_clone(styles.get()));
    copy->texts.reset(vx_txt_settings_clone(texts.get()));
    copy->text_layer = text_layer->clone_into(copy.get());
    copy->attr_data.reset(vx_attr_data_retain(attributes()));
    return copy;
}

Ivx_attr_data *shp_layer::attributes() const
{
    if (!attr_data && !file_name.empty())
        attr_data.reset(vx_attr_data_create(file_name.c_str()));
    return attr_data.get();
}

Ivx_entity *shp_layer::data()
{
    return vx_attr_data_safe_upcast(attributes());
}
} // namespace vx::layers

using vx::layers::as;
using vx::layers::shp_layer;

Ivx_layer *vx_shp_lr2d_create(char const *key, wchar_t const *source)
{
    auto const *const geometry = key ? vx::layers::find_shp_geometry(key) : nullptr;
    if (!geometry)
        return nullptr;
    auto layer = std::make_unique<shp_layer>(key, *geometry);
    layer->file_name = source ? source : L"";
    return layer.release();
}

Ivx_layer *vx_shp_lr2d_open(wchar_t const *source, Ivx_string_adp *error)
{
    owned_data data(vx_attr_data_create(source));
    if (!vx_attr_data_open(data.get())) {
        vx_attr_data_get_werror(data.get(), error);
        return nullptr;
    }
    return vx::layers::make_layer(source, std::move(data), error);
}

Ivx_layer *vx_shp_lr2d_take(wchar_t const *source, t_vx_data_source_interface const *opened,
                            Ivx_string_adp *error)
{
    owned_data data(vx_attr_data_create_open(source, opened, error));
    return data ? vx::layers::make_layer(source, std::move(data), error) : nullptr;
}
bool vx_lr2d_is_shp(Ivx_layer const *layer)
{
    return as<shp_layer>(layer) != nullptr;
}

Ivx_attr_data *vx_shp_lr2d_get_attr_data_ptr(Ivx_layer *layer)
{
    auto *const shp = as<shp_layer>(layer);
    return shp ? shp->attributes() : nullptr;
}

Ivx_layer *vx_shp_lr2d_get_text_layer_ptr(Ivx_layer *layer)
{
    auto *const shp = as<shp_layer>(layer);
    return shp ? shp->text_layer.get() : nullptr;
}

void *vx_shp_lr2d_get_style_mngr_list_ptr(Ivx_layer *layer)
{
    auto *const shp = as<shp_layer>(layer);
    return shp ? shp->styles.get() : nullptr;
}

void *vx_shp_lr2d_get_stl_mngr_ptr(Ivx_layer *layer)
{
    return vx_stl_mngr_list_get_active_mngr(vx_shp_lr2d_get_style_mngr_list_ptr(layer));
}

void *vx_shp_pnt_lr2d_get_stl_mngr_ptr(Ivx_layer *layer)
{
    return vx::layers::typed_manager(layer, vx::layers::c_points);
}

void *vx_shp_pln_lr2d_get_stl_mngr_ptr(Ivx_layer *layer)
{
    return vx::layers::typed_manager(layer, vx::layers::c_lines);
}

void *vx_shp_pgn_lr2d_get_stl_mngr_ptr(Ivx_layer *layer)
{
    return vx::layers::typed_manager(layer, vx::layers::c_polygons);
}

void *vx_shp_lr2d_get_txt_settings(Ivx_layer *layer)
{
    auto *const shp = as<shp_layer>(layer);
    return shp ? shp->texts.get() : nullptr;
}
