#include "host/tour_labels.h"

#include "captions/forms.h"
#include "host/layer_list.h"
#include "host/layer_panel.h"
#include "host/map_canvas.h"
#include "host/map_window.h"
#include "host/tour_controls.h"
#include "host/tour_stage.h"
#include "styles/label/label_style_panel.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_fnt_type.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_tld_data.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/layers/vx_tld_lr2d.h"
#include "platform/styles/vx_scale_prm.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_mngr_list.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_txt_settings.h"
#include "platform/styles/vx_txt_style.h"
#include "platform/styles/vx_val_scale.h"
#include "platform/toolkit/core/form.h"

#include <QAction>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

namespace input = vx::user_input;

namespace {
constexpr Tvx_color c_country_color = vx_clr_init_rgb(0x7a, 0x6f, 0x58);
constexpr Tvx_color c_city_color = vx_clr_init_rgb(0x1e, 0x2a, 0x38);
constexpr Tvx_color c_large_color = vx_clr_init_rgb(0xa0, 0x20, 0x30);
constexpr Tvx_color c_rim_color = vx_clr_init_rgb(255, 255, 255);
constexpr double c_rim_mm = 0.35;

/// Cities as they call themselves.
constexpr char const *c_cities = "x,y,name\n"
                                 "31.24,30.05,القاهرة\n44.39,33.34,بغداد\n46.77,24.64,الرياض\n"
                                 "34.78,32.07,תל אביב\n51.42,35.67,تهران\n139.75,35.69,東京\n"
                                 "116.39,39.93,北京\n121.47,31.23,上海\n"
                                 "37.62,55.75,Москва\n30.31,59.94,Санкт-Петербург\n82.93,55.03,Новосибирск\n"
                                 "23.73,37.98,Αθήνα\n8.54,47.38,Zürich\n2.33,48.87,Paris\n"
                                 "105.85,21.03,Hà Nội\n"
                                 "44.51,40.18,Երևան\n44.79,41.73,თბილისი\n";

void set_rim(void *text_class)
{
    vx_textlr_info_set_outline(text_class, true, c_rim_color, c_rim_mm);
}

void *texts_of(Ivx_layer *layer)
{
    void *const list = vx_txt_settings_get_stl_mngr_list(vx_shp_lr2d_get_txt_settings(layer));
    vx_stl_mngr_list_set_visible(list, true);
    return vx_stl_mngr_list_get_active_mngr(list);
}

void write_lines(void *style, std::initializer_list<wchar_t const *> lines)
{
    void *const list = vx_txt_style_get_txt_stl_line(style);
    vx_txt_stl_line_clear(list);
    vx_txt_stl_line_add(list, unsigned(lines.size()));
    for (unsigned i = 0; wchar_t const *const line : lines)
        vx_txt_stl_line_set_str(list, line, i++);
}

void set_rim_of(void *style)
{
    vx_txt_style_set_outline(style, true);
    vx_txt_style_set_outline_clr(style, c_rim_color);
    vx_txt_style_set_outline_size(style, c_rim_mm);
}
} // namespace

void Tvx_tour_labels::show()
{
    show_cities();
    show_streets();
    show_counties();
    show_scripts();
}

void Tvx_tour_labels::label(int row, std::function<void(void *)> const &fill, char const *picture)
{
    Tvx_map_window &window = f_stage.window();
    window.panel().select_id(window.layers().id_at(row));
    bool seen = false;
    input::on_next_modal([&](input::modal_window const &dialog) {
        auto *const panel = vx_tour_find<Tvx_label_style_panel>(dialog.form());
        seen = panel && panel->get_layer();
        if (seen) {
            fill(vx_dtld_lr2d_get_text_class(panel->get_layer()));
            panel->update_controls();
        }
        if (picture)
            f_stage.shoot_windows(picture);
        std::wstring apply = vx_res_get_wstr(c_caption_apply);
        std::erase(apply, L'&');
        dialog.press_button(apply.c_str());
    });
    window.command("labels")->trigger();
    input::forget_pending_modals();
    f_stage.check(seen, "the editor of labels does not open");
}

void Tvx_tour_labels::change(int row, std::function<void(Ivx_layer *)> const &change)
{
    Tvx_layer_list &layers = f_stage.window().layers();
    Tvx_layer_list::layer_ptr copy(vx_lr2d_clone(layers.layer_at(row)));
    change(copy.get());
    layers.replace(layers.id_at(row), std::move(copy));
}

void Tvx_tour_labels::finish(char const *picture)
{
    f_stage.check(f_stage.wait_for_map(), QString("the map with labels is not drawn: ") + picture);
    f_stage.shoot_map(picture);
    f_stage.remove_all_layers();
}

void Tvx_tour_labels::show_cities()
{
    if (!f_stage.open_example({"world.shp", "naturalearth_cities.shp"}))
        return;
    label(1, [](void *text_class) {
        vx_textlr_info_set_property(text_class, 1, L"name_long");
        vx_textlr_info_set_color(text_class, c_country_color);
        vx_textlr_info_get_font_ptr(text_class)->italic = true;
        vx_textlr_info_set_size(text_class, 3.2);
        set_rim(text_class);
    });
    label(
        0,
        [](void *text_class) {
            vx_textlr_info_set_color(text_class, c_city_color);
            vx_textlr_info_set_size(text_class, 2.8);
            vx_textlr_info_set_priority(text_class, 5);
            set_rim(text_class);
        },
        "labels_1_editor");
    f_stage.window().canvas().show_box({-25, 25, 60, 65});
    finish("labels_2_cities");
}

void Tvx_tour_labels::show_streets()
{
    if (!f_stage.open_example({"streets.shp"}))
        return;
    change(0, [](Ivx_layer *layer) {
        void *const style =
            vx_stl_prm_get_txt_pln_style_ptr(vx_stl_mngr_get_simple_sp_ptr(texts_of(layer)), false);
        write_lines(style, {L"Street", L"ID"});
        vx_txt_style_set_font_size(style, 2.6);
        vx_txt_style_set_pos_y(style, 1);
        set_rim_of(style);
    });
    f_stage.window().canvas().zoom_by(2);
    finish("labels_3_streets");
}

void Tvx_tour_labels::show_counties()
{
    if (!f_stage.open_example({"nc.shp"}))
        return;
    change(0, [](Ivx_layer *layer) {
        void *const mngr = texts_of(layer);
        vx_stl_mngr_set_mode(mngr, c_stl_mngr_mode_value);
        vx_stl_mngr_set_val_prop_name_w(mngr, L"NAME");
        void *const scale = vx_stl_mngr_get_val_scale_ptr(mngr);
        auto const style_of = [](void *prm) {
            return vx_stl_prm_get_txt_pgn_style_ptr(vx_scale_prm_get_stl_prm_ptr(prm), false);
        };
        for (wchar_t const *const county :
             {L"Mecklenburg", L"Wake", L"Guilford", L"Forsyth", L"Cumberland"}) {
            unsigned const row = vx_val_scale_add(scale) - 1;
            vx_val_scale_set_text_w(scale, row, county);
            void *const style = style_of(vx_val_scale_get_scale_prm_ptr(scale, row));
            write_lines(style, {L"NAME", L"BIR74"});
            vx_txt_style_get_font_ptr(style)->bold = true;
            vx_txt_style_set_color(style, c_large_color);
            vx_txt_style_set_font_size(style, 3.4);
            set_rim_of(style);
        }
        void *const other = style_of(vx_val_scale_get_other_prm_ptr(scale));
        write_lines(other, {L"NAME"});
        vx_txt_style_set_font_size(other, 2.4);
        vx_scale_prm_set_visible(vx_val_scale_get_other_prm_ptr(scale), true);
    });
    f_stage.window().canvas().show_box({-82, 34.6, -77.5, 36.6});
    finish("labels_4_counties");
}

void Tvx_tour_labels::show_scripts()
{
    QTemporaryDir const folder;
    QString const path = folder.filePath("cities.csv");
    QFile file(path);
    f_stage.check(file.open(QFile::WriteOnly) && file.write(c_cities) > 0, "no table of cities");
    file.close();
    if (!f_stage.open_example({"world.shp"}) || f_stage.window().open_files({path}) != 1)
        return f_stage.check(false, "the table of cities does not open");
    label(0, [](void *text_class) {
        vx_textlr_info_set_property(text_class, 2, L"name");
        vx_textlr_info_set_size(text_class, 3.4);
        set_rim(text_class);
    });
    f_stage.window().canvas().show_box({-10, 5, 150, 65});
    finish("labels_5_scripts");
}
