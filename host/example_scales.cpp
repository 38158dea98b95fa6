#include "host/example_scales.h"

#include "data/filesystem/filesystem.h"
#include "scale_engine/model/scale_path.h"
#include "scale_engine/model/scale_save_load.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/vx_attr_data.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vxk_styles.h"

#include <iterator>

namespace {
using vx::task::scale_path;
using vx::task::detail::scale_save;
using owned_table = vx::owned<Ivx_attr_files, &vx_attr_files_close>;
using owned_manager = vx::owned<void, &vx_stl_mngr_destroy>;
using owned_filter = vx::owned<void, &vx_calc_filter_destroy>;
using owned_xml = vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy>;

constexpr wchar_t const *c_name_field = L"NAME";
constexpr wchar_t const *c_births_field = L"BIR74";
constexpr wchar_t const *c_deaths_field = L"SID74";
// Quiet neighbours that are told apart.
constexpr Tvx_color c_value_colors[] = {
    vx_clr_init_rgb(0xa8, 0xc8, 0xe4), vx_clr_init_rgb(0xf8, 0xcf, 0x9c), vx_clr_init_rgb(0xb4, 0xdb, 0xae),
    vx_clr_init_rgb(0xf0, 0xb4, 0xb0), vx_clr_init_rgb(0xcf, 0xc0, 0xe2), vx_clr_init_rgb(0xf2, 0xe3, 0x9a),
    vx_clr_init_rgb(0xc9, 0xc3, 0xbb),
};
constexpr double c_births[] = {500, 1000, 2000, 4000, 8000};
constexpr Tvx_color c_fewest = vx_clr_init_rgb(0xef, 0xf6, 0xe4);
constexpr Tvx_color c_most = vx_clr_init_rgb(0x0b, 0x5c, 0x4a);

struct rule
{
    wchar_t const *relation;
    wchar_t const *deaths;
    Tvx_color color;
};
constexpr rule c_rules[] = {
    {c_calc_filter_rel_equal, L"0", vx_clr_init_rgb(0xdd, 0xe8, 0xf2)},
    {c_calc_filter_rel_less, L"5", vx_clr_init_rgb(0xf6, 0xdf, 0xb4)},
    {c_calc_filter_rel_greater_eq, L"15", vx_clr_init_rgb(0xb3, 0x2b, 0x4e)},
};

void paint(void *scale_prm, void *simple, Tvx_color color)
{
    void *const style = vx_scale_prm_get_stl_prm_ptr(scale_prm);
    vx_stl_prm_assign(style, simple);
    vx_stl_prm_set_color(style, false, color);
}

void make_values(void *manager, Ivx_attr_data *data)
{
    void *const simple = vx_stl_mngr_get_simple_sp_ptr(manager);
    void *const scale = vx_stl_mngr_get_val_scale_ptr(manager);
    owned_table const table(vx_attr_files_open(data, 1, 0));
    int const field = vx_attr_files_get_field_index_w(table.get(), c_name_field);
    for (unsigned record = 0; field >= 0 && record < vx_attr_files_get_no(table.get()); ++record) {
        std::wstring const name =
            vx_attr_files_get_wstr(table.get(), static_cast<unsigned>(field), record, nullptr);
        unsigned const i = vx_val_scale_add(scale) - 1;
        vx_val_scale_set_text_w(scale, i, name.c_str());
        vx_val_scale_set_caption_w(scale, i, name.c_str());
        paint(vx_val_scale_get_scale_prm_ptr(scale, i), simple,
              c_value_colors[i % std::size(c_value_colors)]);
    }
    paint(vx_val_scale_get_other_prm_ptr(scale), simple, vx_clr_init_grey(0xff));
}

void make_ranges(void *manager)
{
    void *const simple = vx_stl_mngr_get_simple_sp_ptr(manager);
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(manager);
    unsigned const size = static_cast<unsigned>(std::size(c_births)) - 1;
    vx_rng_scale_set_size(scale, size);
    vx_rng_scale_set_min_value(scale, c_births[0]);
    vx_rng_scale_set_max_value(scale, c_births[size]);
    for (unsigned i = 0; i < size; ++i) {
        vx_rng_scale_set_min(scale, i, c_births[i]);
        vx_rng_scale_set_max(scale, i, c_births[i + 1]);
        vx_rng_scale_set_default_caption(scale, i);
        paint(vx_rng_scale_get_scale_prm_ptr(scale, i), simple, c_fewest);
    }
    paint(vx_rng_scale_get_min_prm_ptr(scale), simple, c_fewest);
    paint(vx_rng_scale_get_max_prm_ptr(scale), simple, c_most);
    paint(vx_rng_scale_get_other_prm_ptr(scale), simple, vx_clr_init_grey(0xff));
    vx_rng_scale_clr_gradient(scale, 0, size + 1, false);
}

void make_rules(void *manager)
{
    void *const simple = vx_stl_mngr_get_simple_sp_ptr(manager);
    void *const scale = vx_stl_mngr_get_rule_scale_ptr(manager);
    for (rule const &r : c_rules) {
        owned_filter const filter(vx_calc_filter_create());
        vx_calc_filter_add(filter.get(), 1, c_deaths_field, r.relation, r.deaths, c_calc_filter_logic_empty,
                           1);
        std::wstring text, caption;
        vx_calc_filter_to_str(filter.get(), Tvx_std_wstring_adapter(text));
        vx_calc_filter_pretty_print(filter.get(), Tvx_std_wstring_adapter(caption));
        unsigned const i = vx_val_scale_add(scale) - 1;
        vx_val_scale_set_text_w(scale, i, text.c_str());
        vx_val_scale_set_caption_w(scale, i, caption.c_str());
        paint(vx_val_scale_get_scale_prm_ptr(scale, i), simple, r.color);
    }
    paint(vx_val_scale_get_other_prm_ptr(scale), simple, vx_clr_init_rgb(0xe0, 0x9a, 0x8a));
}

bool save_rules(std::wstring const &file, void const *manager)
{
    owned_xml const xml(vx_xml_save_2d_create());
    return vx_xml_data_save_rule_scale_w(xml.get(), file.c_str(), manager,
                                         vx_stl_mngr_get_style_type(manager));
}
} // namespace

bool vx_example_scales_save(Ivx_layer *counties)
{
    Ivx_attr_data *const data = vx_shp_lr2d_get_attr_data_ptr(counties);
    std::wstring file;
    vx_attr_data_get_wfilename(data, Tvx_std_wstring_adapter(file));
    owned_manager const manager(vx_stl_mngr_clone(vx_shp_lr2d_get_stl_mngr_ptr(counties)));
    if (!manager)
        return false;
    make_values(manager.get(), data);
    make_ranges(manager.get());
    make_rules(manager.get());
    return scale_save::save_value(file, c_name_field, manager.get()) &&
           scale_save::save_range(file, c_births_field, manager.get()) &&
           save_rules(scale_path::make_rule(file, c_deaths_field), manager.get()) &&
           vx::filesystem::path_exist(scale_path::make_value(file, c_name_field)) &&
           vx::filesystem::path_exist(scale_path::make_range(file, c_births_field));
}
