#include "host/example_scales.h"

#include "data/filesystem/filesystem.h"
#include "host/layer_files.h"
#include "host/layer_scales.h"
#include "host/layer_style.h"
#include "host/map_scene.h"
#include "scale_engine/model/scale_path.h"
#include "scale_engine/model/scale_save_load.h"

#include "platform/base/owned.h"
#include "platform/base/string_adp.h"
#include "platform/calculator/vx_calc_filter.h"
#include "platform/data/vx_attr_data.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/storage/vx_xml_save_2d.h"
#include "platform/styles/vxk_styles.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <span>
#include <string>

namespace {
using vx::task::scale_path;
using vx::task::detail::scale_save;
using owned_table = vx::owned<Ivx_attr_files, &vx_attr_files_close>;
using owned_manager = vx::owned<void, &vx_stl_mngr_destroy>;
using owned_filter = vx::owned<void, &vx_calc_filter_destroy>;
using owned_xml = vx::owned<Ivx_xml_data, &vx_xml_save_2d_destroy>;

// Quiet neighbours that are told apart, for areas; strong ones for points and lines.
constexpr Tvx_color c_area_colors[] = {
    vx_clr_init_rgb(0xa8, 0xc8, 0xe4), vx_clr_init_rgb(0xf8, 0xcf, 0x9c), vx_clr_init_rgb(0xb4, 0xdb, 0xae),
    vx_clr_init_rgb(0xf0, 0xb4, 0xb0), vx_clr_init_rgb(0xcf, 0xc0, 0xe2), vx_clr_init_rgb(0xf2, 0xe3, 0x9a),
    vx_clr_init_rgb(0xc9, 0xc3, 0xbb), vx_clr_init_rgb(0xb5, 0xde, 0xdb),
};
constexpr Tvx_color c_point_colors[] = {
    vx_clr_init_rgb(0xc2, 0x50, 0x00), vx_clr_init_rgb(0x00, 0x72, 0xb2), vx_clr_init_rgb(0x00, 0x8a, 0x63),
    vx_clr_init_rgb(0xb3, 0x2b, 0x4e), vx_clr_init_rgb(0x6b, 0x4c, 0x9a), vx_clr_init_rgb(0xb0, 0x7d, 0x00),
};
constexpr double c_births[] = {500, 1000, 2000, 4000, 8000};
constexpr double c_life_years[] = {50, 60, 65, 70, 75, 80};
constexpr double c_lengths[] = {100, 200, 300, 400, 600};

struct color_pair
{
    Tvx_color least;
    Tvx_color most;
};
constexpr color_pair c_greens = {vx_clr_init_rgb(0xef, 0xf6, 0xe4), vx_clr_init_rgb(0x0b, 0x5c, 0x4a)};
constexpr color_pair c_blues = {vx_clr_init_rgb(0x8f, 0xb4, 0xd9), vx_clr_init_rgb(0x1c, 0x2f, 0x6b)};

struct rule
{
    wchar_t const *relation;
    wchar_t const *value;
    Tvx_color color;
};
constexpr rule c_rules[] = {
    {c_calc_filter_rel_equal, L"0", vx_clr_init_rgb(0xdd, 0xe8, 0xf2)},
    {c_calc_filter_rel_less, L"5", vx_clr_init_rgb(0xf6, 0xdf, 0xb4)},
    {c_calc_filter_rel_greater_eq, L"15", vx_clr_init_rgb(0xb3, 0x2b, 0x4e)},
};

/// What one of the example files is drawn by: the fields of its scales, null for none.
struct example
{
    std::wstring_view file;
    wchar_t const *value_field;
    std::span<Tvx_color const> value_colors;
    wchar_t const *range_field;
    std::span<double const> bounds;
    color_pair range_colors;
    wchar_t const *rule_field;
};
constexpr example c_examples[] = {
    {L"nc", L"NAME", c_area_colors, L"BIR74", c_births, c_greens, L"SID74"},
    {L"world", L"continent", c_area_colors, L"lifeExp", c_life_years, c_greens, nullptr},
    {L"streets", nullptr, {}, L"Length", c_lengths, c_blues, nullptr},
    {L"naturalearth_cities", L"name", c_point_colors, nullptr, {}, {}, nullptr},
};

void paint(void *scale_prm, void *simple, Tvx_color color)
{
    void *const style = vx_scale_prm_get_stl_prm_ptr(scale_prm);
    vx_stl_prm_assign(style, simple);
    vx_stl_prm_set_color(style, false, color);
}

void make_values(void *manager, Ivx_attr_data *data, example const &about)
{
    void *const simple = vx_stl_mngr_get_simple_sp_ptr(manager);
    void *const scale = vx_stl_mngr_get_val_scale_ptr(manager);
    owned_table const table(vx_attr_files_open(data, 1, 0));
    int const field = vx_attr_files_get_field_index_w(table.get(), about.value_field);
    std::set<std::wstring> values;
    for (unsigned record = 0; field >= 0 && record < vx_attr_files_get_no(table.get()); ++record)
        values.insert(vx_attr_files_get_wstr(table.get(), static_cast<unsigned>(field), record, nullptr));
    for (std::wstring const &text : values) {
        unsigned const i = vx_val_scale_add(scale) - 1;
        vx_val_scale_set_text_w(scale, i, text.c_str());
        vx_val_scale_set_caption_w(scale, i, text.c_str());
        paint(vx_val_scale_get_scale_prm_ptr(scale, i), simple,
              about.value_colors[i % about.value_colors.size()]);
    }
    paint(vx_val_scale_get_other_prm_ptr(scale), simple, vx_clr_init_grey(0xff));
}

void make_ranges(void *manager, example const &about)
{
    void *const simple = vx_stl_mngr_get_simple_sp_ptr(manager);
    void *const scale = vx_stl_mngr_get_rng_scale_ptr(manager);
    unsigned const size = static_cast<unsigned>(about.bounds.size()) - 1;
    vx_rng_scale_set_round_digits(scale, 0);
    vx_rng_scale_set_size(scale, size);
    vx_rng_scale_set_min_value(scale, about.bounds.front());
    vx_rng_scale_set_max_value(scale, about.bounds.back());
    for (unsigned i = 0; i < size; ++i) {
        vx_rng_scale_set_min(scale, i, about.bounds[i]);
        vx_rng_scale_set_max(scale, i, about.bounds[i + 1]);
        vx_rng_scale_set_default_caption(scale, i);
        paint(vx_rng_scale_get_scale_prm_ptr(scale, i), simple, about.range_colors.least);
    }
    paint(vx_rng_scale_get_min_prm_ptr(scale), simple, about.range_colors.least);
    paint(vx_rng_scale_get_max_prm_ptr(scale), simple, about.range_colors.most);
    paint(vx_rng_scale_get_other_prm_ptr(scale), simple, vx_clr_init_grey(0xd8));
    vx_rng_scale_clr_gradient(scale, 0, size + 1, false);
}

void make_rules(void *manager, example const &about)
{
    void *const simple = vx_stl_mngr_get_simple_sp_ptr(manager);
    void *const scale = vx_stl_mngr_get_rule_scale_ptr(manager);
    for (rule const &r : c_rules) {
        owned_filter const filter(vx_calc_filter_create());
        vx_calc_filter_add(filter.get(), 1, about.rule_field, r.relation, r.value, c_calc_filter_logic_empty,
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

bool vx_example_scales_save(Ivx_layer *layer)
{
    Ivx_attr_data *const data = vx_shp_lr2d_get_attr_data_ptr(layer);
    std::wstring source;
    vx_attr_data_get_wsource(data, Tvx_std_wstring_adapter(source));
    std::wstring const path = scale_path::of_source(source);
    auto const *const about = std::ranges::find(c_examples, vx::filesystem::basename(path), &example::file);
    owned_manager const manager(vx_stl_mngr_clone(vx_shp_lr2d_get_stl_mngr_ptr(layer)));
    if (!manager || about == std::end(c_examples))
        return false;
    bool good = true;
    if (wchar_t const *const field = about->value_field) {
        make_values(manager.get(), data, *about);
        good = scale_save::save_value(source, field, manager.get()) &&
               vx::filesystem::path_exist(scale_path::make_value(path, field));
    }
    if (wchar_t const *const field = about->range_field) {
        make_ranges(manager.get(), *about);
        good = good && scale_save::save_range(source, field, manager.get()) &&
               vx::filesystem::path_exist(scale_path::make_range(path, field));
    }
    if (wchar_t const *const field = about->rule_field) {
        make_rules(manager.get(), *about);
        good = good && save_rules(scale_path::make_rule(path, field), manager.get());
    }
    return good;
}

bool vx_example_map_save(QString const &folder)
{
    struct part
    {
        char const *file;
        char const *name;
        std::optional<unsigned> mode; ///< of the scale that draws it
    };
    constexpr part c_parts[] = {{"world.shp", "Countries by continent", c_stl_mngr_mode_value},
                                {"nc.shp", "Counties by births", c_stl_mngr_mode_range},
                                {"naturalearth_cities.shp", "Cities", {}}};
    vx_layer_restart_default_styles();
    Tvx_layer_list layers;
    for (part const &p : c_parts) {
        Tvx_opened_file file = vx_layer_files_open(folder + '/' + QLatin1String(p.file));
        if (file.layers.size() != 1)
            return false;
        Ivx_layer *const layer = file.layers.front().layer.get();
        vx_lr2d_set_wcaption(layer, QString(p.name).toStdWString().c_str());
        for (Tvx_layer_scale const &scale : vx_layer_scales_find(layer)) {
            std::wstring reason;
            if (p.mode == scale.mode && !vx_layer_draw_by(layer, scale, reason))
                return false;
        }
        layers.add(std::move(file.layers.front().layer));
    }
    Tvx_canvas_view view;
    view.set_center({5, 15});
    view.set_units_per_pixel(0.375);
    return vx_map_scene_save(folder + '/' + c_example_map, layers, view);
}
