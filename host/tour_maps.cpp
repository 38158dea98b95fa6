#include "host/tour_maps.h"

#include "captions/attr_dialogs.h"
#include "captions/complex.h"
#include "captions/dialogs.h"
#include "captions/forms.h"
#include "captions/libraries.h"
#include "captions/map.h"
#include "captions/scale_menus.h"
#include "captions/simple.h"
#include "controls/forms/apply_form.h"
#include "controls/forms/pages.h"
#include "controls/numeric/size_panel.h"
#include "controls/prop/clr_panel.h"
#include "host/layer_editor.h"
#include "host/map_window.h"
#include "host/tour_controls.h"
#include "host/tour_stage.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "scale_builders/vxk_val_type_form.h"
#include "style_manager/scales/rng_edit_btn.h"
#include "style_manager/scales/val_edit_btn.h"
#include "style_manager/shell/stl_mngr_edit.h"
#include "styles/complex/cpx_style_panel.h"
#include "styles/simple/bpgn_edit.h"
#include "styles/simple/lib_stl_panel.h"
#include "user_input/user_hand.h"
#include "user_input/user_input.h"

#include "platform/basic/vx_res.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_global_lib_styles.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_style_lib.h"
#include "platform/styles/vx_val_scale.h"
#include "platform/toolkit/bridge/qt_widgets.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/edit.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/key_codes.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <string>

namespace hand = vx::user_hand;
namespace input = vx::user_input;

namespace {
/// Columns of the grids. That of ranges has one more column of numbers.
enum : int
{
    c_val_mark,
    c_val_text,
    c_val_caption,
    c_val_visible,
    c_val_style,
};
enum : int
{
    c_rng_mark,
    c_rng_min,
    c_rng_max,
    c_rng_caption,
    c_rng_visible,
    c_rng_style,
};
/// A grid of ranges has the header and the row below the scale before its first range.
constexpr int c_first_range = 2;
/// Until the dialog of a rule has counted the objects.
constexpr int c_counting_ms = 500;
constexpr int c_menu_check_ms = 20;

/// The row of the first of classes that are made: the one below the scale.
constexpr int c_first_class = c_first_range - 1;
/// Files of libraries that come with the program.
constexpr wchar_t const *c_general_map = L"01_general.slib";
constexpr wchar_t const *c_hatches = L"03_patterns.slib";
constexpr wchar_t const *c_city_color = L"#b4283ca0";

/// A caption as one reads it.
std::wstring plain(int caption)
{
    std::wstring text = vx_res_get_wstr(caption);
    std::erase(text, L'&');
    return text;
}

/// A line of a caption that holds several.
std::wstring line_of(int caption, int line)
{
    std::wstring text = vx_res_get_wstr(caption);
    for (; line > 0; --line)
        text.erase(0, text.find(L'\n') + 1);
    return text.substr(0, text.find(L'\n'));
}

/// Null for a menu that is not there or has no such line that can be chosen.
QAction *line_of_menu(QMenu const *menu, int caption)
{
    if (!menu)
        return nullptr;
    QString const wanted = QString::fromStdWString(plain(caption));
    for (QAction *line : menu->actions())
        if (line->isVisible() && line->isEnabled() && line->text().remove('&') == wanted)
            return line;
    return nullptr;
}

/// The name that the user sees of a library; empty if it was not found.
std::wstring library_name(wchar_t const *file)
{
    void *libs = vx_global_lib_styles_get_libs();
    for (unsigned i = 0; i < vx_style_libs_get_size(libs); ++i) {
        void const *const lib = vx_style_libs_get_lib_ptr(libs, i);
        if (std::wstring_view(vx_style_lib_get_file_w(lib)).ends_with(file))
            return vx_style_lib_get_name_w(lib);
    }
    return {};
}

TCustomGrid *grid_of(Tvx_stl_mngr_edit *edit)
{
    switch (edit->get_mode_edit()->mode) {
    case c_style_mode_range:
        return edit->get_rng_edit()->get_grid();
    case c_style_mode_rule:
        return edit->get_rule_edit()->get_grid();
    default:
        return edit->get_val_edit()->get_grid();
    }
}
} // namespace

void Tvx_tour_maps::show()
{
    show_counties_by_births();
    show_counties_by_legend();
    show_countries_by_continent();
    show_cities_by_size();
    show_streets_by_rule();
    show_library_styles();
    show_complex_style();
}

void Tvx_tour_maps::show_counties_by_births()
{
    QTemporaryDir const folder;
    Tvx_stl_mngr_edit *const edit = open("nc", folder.path());
    if (!edit)
        return;
    f_stage.shoot_windows("births_1_properties");
    choose_mode(edit, c_style_mode_range);
    choose_field(edit, L"BIR74");
    hide_other_values(edit->get_rng_edit()->get_other_panel());
    f_stage.shoot_windows("births_2_ranges");
    choose_in_header(edit, c_rng_style, {c_menu_gradient_palettes, c_menu_palette_blue_white_red},
                     "births_3_palette");
    show_dialog("range_builder");
    f_stage.check(input::click(edit->get_rng_edit()->get_build_btn()), "the ranges cannot be built anew");
    finish("births_4_map");
}

/// The dialog of values in each of its modes, and the legend that is an example beside the counties.
void Tvx_tour_maps::show_counties_by_legend()
{
    QTemporaryDir const folder;
    Tvx_stl_mngr_edit *const edit = open("nc", folder.path());
    if (!edit)
        return;
    choose_mode(edit, c_style_mode_value);
    choose_field(edit, L"FIPS");
    hide_other_values(edit->get_val_edit()->get_other_panel());
    input::on_next_modal([&](input::modal_window const &window) {
        auto *const form = dynamic_cast<Tvx_vcl_val_type_form *>(window.form());
        f_stage.check(form, "this is not the dialog of values");
        if (!form)
            return window.reject();
        auto *const modes = form->get_val_panel()->get_rescale_panel();
        auto const choose = [&](int mode, char const *picture) {
            f_stage.check(input::choose_item(modes->get_type_panel()->get_box()->get_select_box(), mode),
                          "the mode of the builder cannot be chosen");
            f_stage.save(vx_qt_widget(form)->grab().toImage(), picture);
        };
        choose(c_val_builder_rebuild, "values_1_anew");
        choose(c_val_builder_modify, "values_2_update");
        choose(c_val_builder_rebuild_with_legend, "values_3_no_legend");
        auto *const legend = modes->get_legend_panel();
        input::on_next_modal([&](input::modal_window const &) {
            input::press('A', {ssCtrl});
            input::type(UnicodeString(folder.filePath("nc_legend.dbf").toStdWString()));
            input::press(VK_RETURN);
        });
        f_stage.check(
            input::click(legend->get_dbf_open_panel()->get_file_panel()->get_button()) &&
                input::choose_item(legend->get_stdlib_box()->get_select_box(), library_name(c_general_map)),
            "the legend cannot be chosen");
        choose(c_val_builder_rebuild_with_legend, "values_4_legend");
        window.press_button(plain(c_caption_short_apply));
    });
    f_stage.check(input::click(edit->get_val_edit()->get_build_btn()), "the values cannot be built anew");
    finish("values_5_map");
}

void Tvx_tour_maps::show_countries_by_continent()
{
    QTemporaryDir const folder;
    Tvx_stl_mngr_edit *const edit = open("world", folder.path());
    if (!edit)
        return;
    choose_mode(edit, c_style_mode_value);
    choose_field(edit, L"continent");
    hide_other_values(edit->get_val_edit()->get_other_panel());
    choose_in_header(edit, c_val_style, {c_menu_random_palettes, c_menu_palette_different},
                     "continents_1_palette");
    finish("continents_2_map");
}

void Tvx_tour_maps::show_cities_by_size()
{
    QTemporaryDir const folder;
    f_stage.check(f_stage.open_example({"world.shp"}), "no countries behind the cities");
    Tvx_stl_mngr_edit *const edit = open("large_cities", folder.path());
    if (!edit)
        return;
    choose_mode(edit, c_style_mode_range);
    choose_field(edit, L"population");
    make_classes(edit, {{L"2000000", L"up to 2 million"},
                        {L"5000000", L"2 to 5 million"},
                        {L"10000000", L"5 to 10 million"},
                        {L"", L"above 10 million"}});
    int const first_row = c_first_class, last_row = c_first_class + 3;
    // One colour for all, a size for the smallest and for the largest, and what lies between.
    in_style_dialog(c_city_color, nullptr);
    choose_in_header(edit, c_rng_style, {c_menu_edit_style});
    in_style_dialog(nullptr, L"4.6", "cities_1_style");
    click_cell(edit, c_rng_style, last_row);
    in_style_dialog(nullptr, L"1");
    click_cell(edit, c_rng_style, first_row);
    choose_in_header(edit, c_rng_style, {c_menu_size_gradient}, "cities_2_gradient");
    click_cell(edit, c_rng_style, last_row);
    hide_other_values(edit->get_rng_edit()->get_other_panel());
    input::on_next_modal([this](input::modal_window const &advanced) {
        f_stage.shoot_windows("advanced_settings");
        show_dialog("rotation");
        f_stage.check(advanced.press_button(plain(c_map_rotation)), "the rotation does not open");
        advanced.reject();
    });
    f_stage.check(input::click(edit->get_rotate_btn()), "the advanced settings do not open");
    finish("cities_3_map");
}

void Tvx_tour_maps::show_streets_by_rule()
{
    QTemporaryDir const folder;
    Tvx_stl_mngr_edit *const edit = open("streets", folder.path());
    if (!edit)
        return;
    choose_mode(edit, c_style_mode_rule);
    input::on_next_modal([this](input::modal_window const &dialog) {
        constexpr int c_at_least = 6;
        f_stage.check(
            input::choose_item(vx_tour_find<TComboBox>(dialog.form(), plain(c_flt_field)), L"Length") &&
                input::choose_item(vx_tour_find<TComboBox>(dialog.form(), plain(c_flt_relation)),
                                   line_of(c_flt_relations, c_at_least)) &&
                input::enter_text(vx_tour_find<TComboBox>(dialog.form(), plain(c_flt_value)), L"400"),
            "the condition cannot be entered");
        auto pause = [] { return false; };
        input::wait_until(pause, c_counting_ms);
        f_stage.shoot_windows("streets_1_rule");
        dialog.press_button(plain(c_dlg_ok));
    });
    f_stage.check(input::click(edit->get_rule_edit()->get_ins_btn()), "no rule can be inserted");
    type_into_cell(edit, c_val_caption, 1, L"length from 400");
    in_style_dialog(L"#c8501e", L"0.8", "streets_2_style");
    click_cell(edit, c_val_style, 1);
    finish("streets_3_map");
}

void Tvx_tour_maps::show_library_styles()
{
    QTemporaryDir const folder;
    if (Tvx_stl_mngr_edit *const edit = open("streets", folder.path())) {
        in_library(c_general_map, L"103", "library_1_roads");
        f_stage.check(input::click(edit->get_smp_edit()->get_style_panel()->get_btn()),
                      "the style of all does not open");
        finish("library_2_streets");
    }
    if (Tvx_stl_mngr_edit *const edit = open("nc", folder.path())) {
        choose_mode(edit, c_style_mode_range);
        choose_field(edit, L"BIR74");
        make_classes(edit, {{L"1000", L"up to 1000"},
                            {L"2500", L"1000 to 2500"},
                            {L"5000", L"2500 to 5000"},
                            {L"", L"above 5000"}});
        wchar_t const *const hatches[] = {L"541", L"542", L"543", L"545"};
        for (int i = 0; i < 4; ++i) {
            in_library(c_hatches, hatches[i], i == 3 ? "library_3_hatches" : nullptr);
            click_cell(edit, c_rng_style, c_first_class + i);
        }
        hide_other_values(edit->get_rng_edit()->get_other_panel());
        finish("library_4_counties");
    }
    f_stage.check(f_stage.open_example({"world.shp"}), "no countries behind the cities");
    if (Tvx_stl_mngr_edit *const edit = open("large_cities", folder.path())) {
        in_library(c_general_map, L"955", "library_5_settlements");
        f_stage.check(input::click(edit->get_smp_edit()->get_style_panel()->get_btn()),
                      "the style of all does not open");
        finish("library_6_cities");
    }
}

// ---- steps

void Tvx_tour_maps::show_complex_style()
{
    QTemporaryDir const folder;
    Tvx_stl_mngr_edit *const edit = open("nc", folder.path());
    if (!edit)
        return;
    auto const dashes = [this](input::modal_window const &dialog) {
        auto *const panel = vx_tour_find<Tvx_cpx_style_panel>(dialog.form());
        insert(panel->get_layers_panel()->get_edit()->get_grid(), c_cpx_add_tplt);
        auto *const tplt = vx_tour_find<Tvx_cpx_pln_tplt_edit>(dialog.form());
        f_stage.check(tplt && input::click_tab(tplt->get_pages(), 1), "no template can be edited");
        for (int const element : {c_cpx_elem_dash, c_cpx_elem_gap})
            insert(tplt->get_template()->get_grid(), element);
        f_stage.shoot_windows("complex_2_template");
        dialog.press_button(plain(c_caption_apply));
    };
    auto const layers = [this, dashes](input::modal_window const &dialog) {
        auto *const panel = vx_tour_find<Tvx_cpx_style_panel>(dialog.form());
        auto *const list = panel->get_layers_panel()->get_edit()->get_grid();
        insert(list, c_cpx_add_fill);
        insert(list, c_cpx_add_htch);
        constexpr int c_second_row = 2; // below the captions
        f_stage.check(input::click_cell(list->get_item_grid(), 1, c_second_row), "no layer can be chosen");
        auto *const hatch = vx_tour_find<Tvx_cpx_pgn_htch_edit>(dialog.form());
        f_stage.check(hatch && input::enter_text(hatch->get_delta()->get_edit(), L"1.5"),
                      "no distance can be entered");
        f_stage.shoot_windows("complex_1_layers");
        input::on_next_modal(dashes);
        f_stage.check(input::click(hatch->get_line_style()->get_button()), "no nested style can be edited");
        dialog.press_button(plain(c_caption_apply));
    };
    input::on_next_modal([this, layers](input::modal_window const &dialog) {
        auto *const fill = vx_tour_find<Tvx_bpgn_edit>(dialog.form());
        f_stage.check(fill && input::click(fill->get_use_cpx()->get_check_box()),
                      "the style cannot be made a complex one");
        input::on_next_modal(layers);
        f_stage.check(input::click(fill->get_cpx_panel()->get_button()), "no layers can be edited");
        dialog.press_button(plain(c_caption_apply));
    });
    f_stage.check(input::click(edit->get_smp_edit()->get_style_panel()->get_btn()),
                  "the style of all does not open");
    finish("complex_3_counties");
}

void Tvx_tour_maps::insert(Tvx_cpx_items_grid *list, int caption)
{
    auto *const tools = list->get_tool_panel();
    input::choose_in_next_menu(plain(caption));
    f_stage.check(input::click(tools->get_button(tools->get_actions()->get_ins_action())) &&
                      input::menu_choice_done(),
                  "nothing can be inserted into a complex style");
}

Tvx_stl_mngr_edit *Tvx_tour_maps::open(QString const &name, QString const &folder)
{
    Tvx_map_window &window = f_stage.window();
    f_stage.copy_example(name, folder);
    f_stage.check(window.open_files({folder + "/" + name + ".shp"}) == 1, name + " was not opened");
    f_stage.open_properties_of(0);
    auto *const record = window.editor().handle();
    auto *const edit =
        record && record->get_form() ? vx_tour_find<Tvx_stl_mngr_edit>(record->get_form()) : nullptr;
    f_stage.check(edit, "the editor has no page of styles: " + name);
    return edit;
}

void Tvx_tour_maps::make_classes(Tvx_stl_mngr_edit *edit, std::vector<class_of_values> const &classes)
{
    // What the first and the last class have no bound for, the rows outside the ranges hold.
    auto *const ranges = edit->get_rng_edit();
    int const last = static_cast<int>(classes.size()) - 1;
    f_stage.check(
        input::click_cell(ranges->get_grid(), c_rng_mark, c_first_range + last - 1) &&
            input::click_cell(ranges->get_grid(), c_rng_mark, c_first_range + 9, mbLeft, {ssShift}) &&
            input::click(ranges->get_tool_panel()->get_del_btn()),
        "the ranges cannot be deleted");
    for (int i = 0; i <= last; ++i) {
        auto const &own = classes[static_cast<std::size_t>(i)];
        if (i > 0)
            type_into_cell(edit, c_rng_min, c_first_class + i,
                           classes[static_cast<std::size_t>(i - 1)].up_to);
        if (i < last)
            type_into_cell(edit, c_rng_max, c_first_class + i, own.up_to);
        type_into_cell(edit, c_rng_caption, c_first_class + i, own.caption);
    }
}

void Tvx_tour_maps::choose_mode(Tvx_stl_mngr_edit *edit, int mode)
{
    f_stage.check(input::choose_item(edit->get_mode_edit()->get_combo_box(), mode),
                  "the mode cannot be chosen");
}

void Tvx_tour_maps::choose_field(Tvx_stl_mngr_edit *edit, wchar_t const *field)
{
    auto *const choice = edit->get_mode_edit()->mode == c_style_mode_range
                             ? edit->get_rng_edit()->get_prp_scale()
                             : edit->get_val_edit()->get_prp_scale();
    f_stage.check(input::choose_item(choice->get_combo_box(), field),
                  "there is no field " + QString::fromWCharArray(field));
}

void Tvx_tour_maps::type_into_cell(Tvx_stl_mngr_edit *edit, int col, int row, wchar_t const *text)
{
    f_stage.check(input::click_cell(grid_of(edit), col, row) && input::press(VK_F2) &&
                      input::press('A', {ssCtrl}) && input::type(UnicodeString(text) + L"\n"),
                  "nothing can be typed into a cell");
}

void Tvx_tour_maps::click_cell(Tvx_stl_mngr_edit *edit, int col, int row)
{
    f_stage.check(input::click_cell(grid_of(edit), col, row), "a cell cannot be clicked");
}

void Tvx_tour_maps::choose_in_header(Tvx_stl_mngr_edit *edit, int col, std::vector<int> const &captions,
                                     char const *picture)
{
    // The menu has a loop of its own.
    bool chosen = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        timer.stop();
        for (int const &caption : captions) {
            QAction *const line = line_of_menu(menu, caption);
            if (!line)
                break;
            if (&caption != &captions.back()) {
                menu = hand::open_menu(menu, line);
                continue;
            }
            hand::move(menu, menu->actionGeometry(line).center());
            if (picture)
                f_stage.shoot_windows(picture);
            chosen = true;
            hand::choose(menu, line);
        }
        while (QWidget *const open = chosen ? nullptr : QApplication::activePopupWidget())
            open->close();
    });
    timer.start(c_menu_check_ms);
    click_cell(edit, col, 0);
    f_stage.check(chosen, "the menu of a header has no such line");
}

void Tvx_tour_maps::in_style_dialog(wchar_t const *color, wchar_t const *size, char const *picture)
{
    input::on_next_modal([=, this](input::modal_window const &dialog) {
        if (color) {
            input::on_next_modal([=, this](input::modal_window const &colors) {
                f_stage.check(input::enter_text(vx_tour_find<TEdit>(colors.form(), plain(c_dlg_code)), color),
                              "no colour can be entered");
                colors.press_button(plain(c_dlg_ok));
            });
            auto *const panel = vx_tour_find<Tvx_clr_panel>(dialog.form());
            f_stage.check(panel && input::click(panel->get_button()), "no colour can be chosen");
        }
        if (size) {
            auto *const panel = vx_tour_find<Tvx_size_panel>(dialog.form());
            f_stage.check(panel && input::enter_text(panel->get_edit(), size), "no size can be entered");
        }
        if (picture)
            f_stage.shoot_windows(picture);
        dialog.press_button(plain(c_caption_apply));
    });
}

void Tvx_tour_maps::show_dialog(char const *picture)
{
    input::on_next_modal([this, picture](input::modal_window const &dialog) {
        f_stage.shoot_windows(picture);
        dialog.reject();
    });
}

void Tvx_tour_maps::in_library(wchar_t const *library, wchar_t const *number, char const *picture)
{
    input::on_next_modal([=, this](input::modal_window const &dialog) {
        input::on_next_modal([=, this](input::modal_window const &browser) {
            auto *const box = vx_tour_find<TComboBox>(browser.form());
            f_stage.check(box && input::choose_item(box, library_name(library)),
                          "there is no library of this name");
            input::on_next_modal([=, this](input::modal_window const &search) {
                auto *const pages = vx_tour_find<Tvx_page_control>(search.form());
                f_stage.check(pages && input::click_tab(pages, plain(c_lib_by_number)),
                              "no search by number");
                auto *const asked = vx_tour_find<Tvx_size_panel>(search.form());
                f_stage.check(asked && input::enter_text(asked->get_edit(), number),
                              "no number can be entered");
                search.press_button(plain(c_caption_apply));
            });
            auto *const button = vx_tour_find<TButton>(browser.form(), plain(c_lib_search_title));
            f_stage.check(button && input::click(button), "nothing can be searched in a library");
            if (picture)
                f_stage.shoot_windows(picture);
            browser.press_button(plain(c_caption_apply));
        });
        auto *const libraries = vx_tour_find<Tvx_lib_stl_panel>(dialog.form());
        f_stage.check(libraries && input::click(libraries->get_main_btn()), "no library can be opened");
        dialog.press_button(plain(c_caption_apply));
    });
}

void Tvx_tour_maps::hide_other_values(Tvx_other_panel *panel)
{
    f_stage.check(input::click(panel->get_use_panel(), panel->get_use_panel()->GetWidth() - 8, 10),
                  "the other values cannot be hidden");
}

void Tvx_tour_maps::finish(char const *picture)
{
    f_stage.apply();
    f_stage.shoot_windows(picture);
    f_stage.window().editor().close();
    f_stage.remove_all_layers();
}
