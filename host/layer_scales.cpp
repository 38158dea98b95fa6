#include "host/layer_scales.h"

#include "data/filesystem/filesystem.h"
#include "scale_engine/model/scale_path.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/data/vx_attr_data.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/storage/vx_xml_data.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vx_stl_mngr.h"

namespace {
using owned_xml = vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy>;
using owned_table = vx::owned<Ivx_attr_files, &vx_attr_files_close>;

/// What the three kinds of scales differ in. Rules belong to no property of the manager.
struct scale_kind
{
    unsigned mode;
    std::wstring (*path)(std::wstring const &path, std::wstring const &field);
    bool (*load)(Ivx_xml_data *xml, wchar_t const *file, void *manager, char const *type);
    void (*get_field)(void const *manager, Ivx_string_adp *field);
    void (*set_field)(void *manager, wchar_t const *field);
};
constexpr scale_kind c_kinds[] = {
    {c_stl_mngr_mode_value, &vx::task::scale_path::make_value, &vx_xml_data_load_val_scale_w,
     &vx_stl_mngr_get_val_prop_name_w, &vx_stl_mngr_set_val_prop_name_w},
    {c_stl_mngr_mode_range, &vx::task::scale_path::make_range, &vx_xml_data_load_rng_scale_w,
     &vx_stl_mngr_get_rng_prop_name_w, &vx_stl_mngr_set_rng_prop_name_w},
    {c_stl_mngr_mode_rule, &vx::task::scale_path::make_rule, &vx_xml_data_load_rule_scale_w, nullptr,
     nullptr},
};

scale_kind const *kind_of(unsigned mode)
{
    for (scale_kind const &kind : c_kinds)
        if (kind.mode == mode)
            return &kind;
    return nullptr;
}

std::wstring source_of(Ivx_layer *layer)
{
    std::wstring source;
    vx_attr_data_get_wsource(vx_shp_lr2d_get_attr_data_ptr(layer), Tvx_std_wstring_adapter(source));
    return source;
}
} // namespace

std::vector<Tvx_layer_scale> vx_layer_scales_find(Ivx_layer *layer)
{
    std::vector<Tvx_layer_scale> found;
    std::wstring const path = vx::task::scale_path::of_source(source_of(layer));
    owned_table const table(vx_attr_files_open(vx_shp_lr2d_get_attr_data_ptr(layer), 1, 0));
    for (unsigned i = 0, count = vx_attr_files_get_np(table.get()); i < count; ++i) {
        std::wstring const field = vx_attr_files_get_field_name_w(table.get(), i);
        for (scale_kind const &kind : c_kinds) {
            std::wstring file = kind.path(path, field);
            if (!file.empty() && vx::filesystem::path_exist(file))
                found.push_back({kind.mode, field, std::move(file)});
        }
    }
    return found;
}

bool vx_layer_is_drawn_by(Ivx_layer *layer, Tvx_layer_scale const &scale)
{
    void *const manager = vx_shp_lr2d_get_stl_mngr_ptr(layer);
    scale_kind const *const kind = kind_of(scale.mode);
    if (!manager || !kind || !kind->get_field || vx_stl_mngr_get_mode(manager) != scale.mode)
        return false;
    std::wstring field;
    kind->get_field(manager, Tvx_std_wstring_adapter(field));
    return field == scale.field;
}

bool vx_layer_is_drawn_by_rules(Ivx_layer *layer)
{
    return vx_stl_mngr_get_mode(vx_shp_lr2d_get_stl_mngr_ptr(layer)) == c_stl_mngr_mode_rule;
}

bool vx_layer_draw_by(Ivx_layer *layer, Tvx_layer_scale const &scale, std::wstring &reason)
{
    void *const manager = vx_shp_lr2d_get_stl_mngr_ptr(layer);
    scale_kind const *const kind = kind_of(scale.mode);
    reason.clear();
    if (!manager || !kind)
        return false;
    owned_xml const xml(vx_xml_save_2d_create());
    if (!kind->load(xml.get(), scale.file.c_str(), manager, vx_stl_mngr_get_style_type(manager))) {
        vx_xml_data_get_error_w(xml.get(), Tvx_std_wstring_adapter(reason));
        return false;
    }
    if (kind->set_field)
        kind->set_field(manager, scale.field.c_str());
    vx_stl_mngr_set_mode(manager, scale.mode);
    return true;
}

bool vx_layer_draw_simple(Ivx_layer *layer)
{
    void *const manager = vx_shp_lr2d_get_stl_mngr_ptr(layer);
    vx_stl_mngr_set_mode(manager, c_stl_mngr_mode_simple);
    return manager != nullptr;
}
