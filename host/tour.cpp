#include "host/tour.h"

#include "captions/layer_edit.h"
#include "captions/palettes.h"
#include "captions/scale_menus.h"
#include "controls/forms/apply_form.h"
#include "exports/vxk_lr2d_edit_form_api.h"
#include "host/attribute_table.h"
#include "host/captions.h"
#include "host/example_scales.h"
#include "host/identify_panel.h"
#include "host/layer_editor.h"
#include "host/layer_info.h"
#include "host/layer_panel.h"
#include "host/layer_scales.h"
#include "host/layer_style.h"
#include "host/map_canvas.h"
#include "host/map_window.h"
#include "host/tour_controls.h"
#include "host/tour_labels.h"
#include "host/tour_layout.h"
#include "host/tour_maps.h"
#include "host/tour_property.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "layer_edit/text/txt_mngr_lr2d_edit.h"
#include "raster_property/channels/channels_edit.h"
#include "raster_property/raster/rtr_id_lr2d_edit.h"
#include "scale_engine/range/range_scale_default.h"
#include "style_manager/shell/stl_mngr_edit.h"
#include "user_input/user_hand.h"
#include "user_input/user_input.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_res.h"
#include "platform/layers/layer_keys.h"
#include "platform/layers/vx_shp_lr2d.h"
#include "platform/styles/vx_base_style.h"
#include "platform/styles/vx_rng_scale.h"
#include "platform/styles/vx_stl_mngr.h"
#include "platform/styles/vx_stl_prm.h"
#include "platform/styles/vx_style.h"
#include "platform/styles/vx_style_keys.h"
#include "platform/toolkit/bridge/qt_bridge.h"
#include "platform/toolkit/controls/check_box.h"
#include "platform/toolkit/controls/combo_box.h"
#include "platform/toolkit/controls/page_control.h"
#include "platform/toolkit/core/form.h"
#include "platform/toolkit/core/key_codes.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTreeView>

#include <cmath>

namespace hand = vx::user_hand;

namespace {
constexpr QSize c_window_size{1360, 860};
/// For pictures with the editor beside the map, which documents show.
constexpr QSize c_small_window_size{900, 600};
constexpr unsigned c_tour_ranges = 10;
/// Draw types of rasters, by their places in the list.
constexpr int c_gray_place = 1;
constexpr int c_channels_place = 2;
constexpr int c_chart_row = 60; // of a histogram, where its marks are dragged

struct layer_kind
{
    char const *key;
    char const *name;
    /// Example file with a layer of this kind; null for kinds that no file of the examples has.
    char const *file;
};
constexpr layer_kind c_kinds[] = {
    {c_lr_key_shp_pnt, "Points", "naturalearth_cities.shp"},
    {c_lr_key_shp_pln, "Lines", "streets.shp"},
    {c_lr_key_shp_pgn, "Polygons", "nc.shp"},
    {c_lr_key_rtr, "Raster", "L7_ETMs.tif"},
    {c_lr_key_tos_grid, "Property grid", nullptr},
    {c_lr_key_tos_grid_1d, "Property curve", nullptr},
    {c_lr_key_tos_slice, "Property slice", nullptr},
    {c_lr_key_tos_2crd, "Property points", nullptr},
    {c_lr_key_tld, "Text", nullptr},
    {c_lr_key_dynamic_tld, "Dynamic text", nullptr},
    {c_lr_key_shp_pntz_sub, "Points with z", nullptr},
    {c_lr_key_shp_plnz_sub, "Lines with z", nullptr},
    {c_lr_key_shp_pgnz_sub, "Polygons with z", nullptr},
    {"foreign_lr2d", "Of another program", nullptr},
};

} // namespace

bool Tvx_tour::run(QStringList const &files)
{
    if (!QDir().mkpath(f_pictures)) {
        check(false, "no folder " + f_pictures);
        return false;
    }
    f_window.resize(c_window_size);
    f_window.move(40, 60);
    f_window.show();
    f_window.activateWindow();
    QCoreApplication::processEvents();
    leave_out_plugins();
    if (!files.isEmpty()) {
        show_files(files);
    } else {
        shoot_map("empty");
        show_example_maps();
        show_scales();
        show_sample_map();
        show_objects();
        show_navigation();
        show_layer_kinds();
        show_apply();
        show_text_managers();
        show_range_editor();
        show_raster();
        show_maps();
        show_style_dialog();
        show_broken_file();
        show_plugins();
        show_extensions(); // last, since they stay
    }
    // What the last chapters did to the styles nobody saves: the window asks.
    f_expected_messages = f_window.is_changed() ? 1 : 0;
    f_window.close();
    return f_failures == 0;
}

void Tvx_tour::show_files(QStringList const &files)
{
    int const opened = f_window.open_files(files);
    check(opened > 0, "nothing was opened");
    shoot_map("map");
    if (opened == 0)
        return;
    open_properties_of(0);
    shoot_editor("editor");
}

void Tvx_tour::show_example_maps()
{
    if (open_example({"nc.shp"}))
        shoot_map("map_nc");
    remove_all_layers();
    if (open_example({"world.shp", "naturalearth_cities.shp"}))
        shoot_map("map_world_cities");
    remove_all_layers();
    if (open_example({"streets.shp"}))
        shoot_map("map_streets");
    remove_all_layers();
    if (open_example({"world.shp", "nc.shp", "olinda_dem_utm25s.tif"}))
        shoot_map("map_with_raster");
    remove_all_layers();
}

void Tvx_tour::show_scales()
{
    QTemporaryDir const folder;
    copy_example("nc", folder.path());
    vx_layer_restart_default_styles();
    if (f_window.open_files({folder.filePath("nc.shp")}) != 1) {
        check(false, "the copy of the counties was not opened");
        return;
    }
    Tvx_layer_list &layers = f_window.layers();
    check(vx_example_scales_save(layers.layer_at(0)), "the scales cannot be saved");
    auto const scales = vx_layer_scales_find(layers.layer_at(0));
    check(scales.size() == 3, "the scales beside the layer are not found");
    char const *const names[] = {"", "map_nc_by_value", "map_nc_by_range", "map_nc_by_rule"};
    for (Tvx_layer_scale const &scale : scales) {
        QMenu *menu = open_draw_by_menu();
        if (!menu)
            break;
        if (scale.mode == c_stl_mngr_mode_value)
            save(menu->grab().toImage(), "menu_draw_by");
        // One style and a line stand above them.
        hand::choose(menu, menu->actions().value(2 + int(&scale - scales.data())));
        check(vx_stl_mngr_get_mode(vx_shp_lr2d_get_stl_mngr_ptr(layers.layer_at(0))) == scale.mode,
              "the layer is not drawn by its scale");
        shoot_map(names[scale.mode]);
    }
    remove_all_layers();
}

void Tvx_tour::show_sample_map()
{
    QTemporaryDir const folder;
    for (QString const &name :
         QDir(f_data).entryList({"world.*", "nc.*", "naturalearth_cities.*", c_example_map}))
        check(QFile::copy(f_data + "/" + name, folder.filePath(name)), "cannot copy " + name);
    check(f_window.open_files({folder.filePath(c_example_map)}) == 3, "the sample map was not opened");
    QTreeView *list = f_window.panel().view();
    shoot_map("sample_map");

    // A class off, a layer with another name, and the star of what is not saved.
    QModelIndex const countries = f_window.layers().index(2);
    QRect const africa = list->visualRect(f_window.layers().index(0, 0, countries));
    hand::click(list->viewport(), {africa.left() + 10, africa.center().y()});
    hand::click(list->viewport(), hand::text_of(list, 0));
    hand::press(list, Qt::Key_F2);
    if (auto *const edit = list->findChild<QLineEdit *>())
        hand::type(edit, "Large cities");
    shoot_map("sample_map_changed");
    if (auto *const edit = list->findChild<QLineEdit *>())
        hand::press(edit, Qt::Key_Return);
    check(f_window.layers().name_at(0) == "Large cities", "the layer was not renamed");
    check(!f_window.editor().is_showing(), "a name that is typed opens the properties");
    check(f_window.is_changed(), "a change is not known as one");
    f_expected_messages = 1;
    check(!f_window.new_scene(), "the map is taken away though it is not saved");
    check(f_expected_messages == 0, "no question before the map is lost");
    hand::press(list, Qt::Key_S, Qt::ControlModifier);
    check(!f_window.is_changed(), "the map was not saved");
    check(f_window.open_files({folder.filePath(c_example_map)}) == 3, "the saved map was not opened");
    shoot_map("sample_map_again");
    check(f_window.new_scene(), "a saved map is not closed");
}

void Tvx_tour::show_objects()
{
    check(f_window.open_files({f_data + "/" + c_example_map}) == 3, "the sample map was not opened");
    QTreeView *list = f_window.panel().view();
    Tvx_map_canvas &canvas = f_window.canvas();
    hand::click(list->viewport(), hand::text_of(list, 1));
    hand::press(list, Qt::Key_L, Qt::ControlModifier);
    hand::press(list, Qt::Key_F9);
    Tvx_attribute_table *const table = f_window.open_table(f_window.layers().id_at(1));
    check(table && table->isVisible(), "F9 opens no table");
    hand::press(&canvas, Qt::Key_F8);
    Tvx_screen_point const wake = canvas.view().to_screen({-78.64, 35.78});
    hand::click(&canvas, {int(wake.x), int(wake.y)});
    check(hand::wait_until([this] { return f_window.identify().isVisible(); }), "a click names nothing");
    check(table && table->selected_records().size() == 1, "a click on the map selects nothing in the table");
    shoot_windows("what_is_here_and_table");
    hand::press(&canvas, Qt::Key_Escape);
    if (table) {
        hand::press(table->view(), Qt::Key_Home, Qt::ControlModifier);
        hand::press(table->view(), Qt::Key_Down, Qt::ShiftModifier);
        hand::press(table->view(), Qt::Key_Down, Qt::ShiftModifier);
        shoot_windows("selected_in_the_table");
    }
    hand::press(&canvas, Qt::Key_F6);
    check(f_window.new_scene(), "a map that was only looked at is not closed");
}

void Tvx_tour::show_navigation()
{
    if (!open_example({"world.shp", "naturalearth_cities.shp"}))
        return;
    Tvx_map_canvas &canvas = f_window.canvas();
    QTreeView *list = f_window.panel().view();

    check(wait_for_map(), "the map is not drawn in time");
    double const before = canvas.view().units_per_pixel();
    Tvx_screen_point const europe = canvas.view().to_screen({12, 48});
    QPoint const place{int(europe.x), int(europe.y)};
    hand::wheel(&canvas, place, 7);
    check(canvas.view().units_per_pixel() < before, "the wheel does not zoom");
    hand::drag(&canvas, place, QPoint(canvas.width() / 2, canvas.height() / 2));
    hand::move(&canvas, QPoint(canvas.width() / 2, canvas.height() / 2));
    Tvx_pnt_d2 const middle = canvas.view().center();
    check(std::abs(middle.x - 12) < 1 && std::abs(middle.y - 48) < 1, "dragging does not bring Europe here");
    shoot_map("zoomed_to_europe");

    hand::drag(&canvas, {canvas.width() / 2 - 150, canvas.height() / 2 - 100},
               {canvas.width() / 2 + 150, canvas.height() / 2 + 100}, Qt::LeftButton, Qt::ShiftModifier);
    shoot_map("zoomed_to_box");

    hand::click(list->viewport(), hand::check_box_of(list, 0));
    check(!f_window.layers().is_visible(0), "a click on the check box does not hide the layer");
    hand::press(&canvas, Qt::Key_Home);
    shoot_map("cities_hidden");
    hand::click(list->viewport(), hand::check_box_of(list, 0));

    hand::click(list->viewport(), hand::text_of(list, 0));
    hand::press(list, Qt::Key_Down, Qt::ControlModifier);
    check(f_window.layers().name_at(1) == "naturalearth_cities", "Ctrl+Down does not move the layer down");
    shoot_map("cities_below_world");
    show_menu(3);
    remove_all_layers();
}

void Tvx_tour::show_menu(int place)
{
    QMenuBar *bar = f_window.menuBar();
    QMenu *menu = hand::open_menu(bar, bar->actions().at(place));
    check(menu, "a click does not open the menu");
    if (!menu)
        return;
    save(menu->grab().toImage(), "menu");
    hand::press(menu, Qt::Key_Escape);
}

QMenu *Tvx_tour::open_draw_by_menu()
{
    QMenuBar *bar = f_window.menuBar();
    QMenu *menu = hand::open_menu(bar, bar->actions().at(3));
    if (menu)
        menu = hand::open_menu(menu, f_window.command("draw_by"));
    check(menu, "a click does not open the menu of the scales");
    return menu;
}

void Tvx_tour::show_layer_kinds()
{
    for (layer_kind const &kind : c_kinds) {
        if (kind.file) {
            if (!open_example({kind.file}))
                continue;
        } else {
            Tvx_layer_list::layer_ptr layer(vx_lr2d_create(kind.key));
            vx_lr2d_set_wcaption(layer.get(), QString(kind.name).toStdWString().c_str());
            check(f_window.add_layer(std::move(layer)) > 0, QString("no layer of kind ") + kind.key);
        }
        // The first opens the window, the others are followed by it.
        if (f_window.editor().is_showing())
            hand::click(f_window.panel().view()->viewport(), hand::text_of(f_window.panel().view(), 0));
        else
            open_properties_of(0);
        QString const key = vx_lr2d_get_lr_type(f_window.layers().layer_at(0));
        check(key == kind.key, QString("%1 instead of %2").arg(key, kind.key));
        shoot_editor(QString("editor_") + kind.key);
    }
    f_window.editor().close();
    remove_all_layers();
}

void Tvx_tour::show_apply()
{
    if (!open_example({"nc.shp"}))
        return;
    Tvx_map_canvas &canvas = f_window.canvas();
    open_properties_of(0);
    QImage const before = canvas.settled_picture();
    shoot_windows("screen_before_apply");

    // What a style page does to the working copy.
    Ivx_layer *const copy = vx_lr2d_edt_form_get_lr2d_ptr(f_window.editor().handle());
    void *const prm = vx_stl_mngr_get_simple_sp_ptr(vx_shp_pgn_lr2d_get_stl_mngr_ptr(copy));
    void *const style = vx_stl_prm_get_pgn_style_ptr(prm, false);
    vx_bpgn_style_set_color(vx_pgn_style_get_bpgn_style_ptr(style), vx_clr_init_rgb(0x9c, 0xc8, 0xa4));
    vx_bpln_style_set_color(vx_pgn_style_get_bpln_style_ptr(style), vx_clr_init_rgb(0x1f, 0x5c, 0x2e));
    check(canvas.settled_picture() == before, "the map changes before Apply");

    apply();
    check(canvas.settled_picture() != before, "Apply does not change the map");
    shoot_windows("screen_after_apply");
    f_window.editor().close();
}

/// Counties by births in ten ranges: the editor takes the scale from a file that lies beside the layer.
void Tvx_tour::show_text_managers()
{
    namespace input = vx::user_input;
    remove_all_layers();
    if (!open_example({"nc.shp"}))
        return;
    open_properties_of(0);
    auto *const form = f_window.editor().handle() ? f_window.editor().handle()->get_form() : nullptr;
    auto *const pages = form ? vx_tour_find<TPageControl>(form) : nullptr;
    check(pages && input::click_tab(pages, UnicodeString(vx_res_get_wstr(c_caption_text_mngr_tab))),
          "the editor has no page of labels");
    auto *const page = form ? vx_tour_find<Tvx_txt_pgn_mngr_lr2d_edit>(form) : nullptr;
    if (!page)
        return check(false, "the page of labels does not show");
    check(input::click(page->get_list_edit()->get_check_box(), 8, 8), "the labels cannot be switched on");
    auto *const edit = page->get_stl_mngr_edit();
    check(input::choose_item(edit->get_mode_edit()->get_combo_box(), c_style_mode_value) &&
              input::choose_item(edit->get_val_edit()->get_prp_scale()->get_combo_box(), L"NAME"),
          "the names cannot be chosen");
    shoot_editor("editor_text_managers");
    f_window.editor().close();
}

void Tvx_tour::show_range_editor()
{
    remove_all_layers();
    QTemporaryDir const folder;
    copy_example("nc", folder.path());
    QString const file = folder.filePath("nc.shp");
    vx::owned<void, &vx_stl_mngr_destroy> const manager(vx_stl_mngr_create(c_pgn_style));
    vx::task::range_scale_default const ranges(vx::data::connection(file.toStdWString().c_str()), L"BIR74",
                                               c_palette_blue_white_red);
    check(ranges.execute(manager.get(), c_tour_ranges), "the ranges cannot be saved");
    if (f_window.open_files({file}) != 1) {
        check(false, "the copy of the counties was not opened");
        return;
    }
    open_properties_of(0);
    auto *const form = f_window.editor().handle() ? f_window.editor().handle()->get_form() : nullptr;
    auto *const manager_edit = form ? vx_tour_find<Tvx_stl_mngr_edit>(form) : nullptr;
    check(manager_edit, "the editor has no page of styles");
    if (!manager_edit)
        return;
    namespace input = vx::user_input;
    auto *const edit = manager_edit->get_rng_edit();
    check(input::choose_item(manager_edit->get_mode_edit()->get_combo_box(), c_style_mode_range),
          "the mode cannot be chosen");
    input::on_next_modal([&folder](input::modal_window const &) {
        input::press('A', {ssCtrl});
        input::type(UnicodeString(folder.filePath("nc.BIR74._rg").toStdWString()));
        input::press(VK_RETURN);
    });
    check(input::click(edit->get_tool_panel()->get_open_btn()), "the scale cannot be opened");
    check(input::choose_item(edit->get_prp_scale()->get_combo_box(), L"BIR74"), "no field BIR74");
    check(input::click_cell(edit->get_grid(), 3, 3), "the grid of ranges is not seen");
    apply();
    check(vx_rng_scale_get_size(vx_stl_mngr_get_rng_scale_ptr(
              vx_shp_lr2d_get_stl_mngr_ptr(f_window.layers().layer_at(0)))) == c_tour_ranges,
          "Apply does not bring the ranges to the map");
    shoot_windows("screen_ranges");
    show_user_palettes(*edit->get_grid());
    f_window.editor().close();
}

/// A satellite picture: its infrared bands as colours, stretched on their histograms. The raster stays as it
/// was.
void Tvx_tour::show_raster()
{
    namespace input = vx::user_input;
    remove_all_layers();
    f_window.resize(c_small_window_size);
    if (!open_example({"L7_ETMs.tif"}))
        return;
    open_properties_of(0);
    auto *const form = f_window.editor().handle() ? f_window.editor().handle()->get_form() : nullptr;
    auto *const page = form ? vx_tour_find<Tvx_rtr_id_lr2d_edit>(form) : nullptr;
    check(page, "the editor has no page of rasters");
    if (!page)
        return;
    check(input::choose_item(page->get_draw_type_cb()->get_combo_box(), c_channels_place),
          "the draw type cannot be chosen");
    auto *const channels = page->get_channels();
    struct
    {
        int band;
        double low, high; // most of its values lie between them
    } const stretches[] = {{3, 10, 100}, {2, 22, 120}, {1, 35, 120}};
    for (int i = 0; i < 3; ++i) {
        auto *const edit = channels->get_edit(i);
        check(input::click_tab(channels->get_pages(), i) &&
                  input::choose_item(edit->get_prop_cb()->get_combo_box(), stretches[i].band),
              "the band cannot be chosen");
        TChart *const chart = edit->get_chart()->get_chart();
        for (double const to : {stretches[i].high, stretches[i].low}) {
            double const from =
                to == stretches[i].high ? edit->get_track_max()->get_val() : edit->get_track_min()->get_val();
            TChartAxis const &axis = *chart->GetBottomAxis();
            check(
                input::drag(chart, axis.CalcPosValue(from), c_chart_row, axis.CalcPosValue(to), c_chart_row),
                "the mark cannot be dragged");
        }
        check(std::abs(edit->get_track_max()->get_val() - stretches[i].high) < 2,
              "the mark stands elsewhere");
    }
    apply();
    shoot_windows("screen_raster_channels");
    shoot_editor("editor_raster_channels");
    check(input::choose_item(page->get_draw_type_cb()->get_combo_box(), c_gray_place), "no draw type gray");
    auto *const gray = channels->get_edit(3);
    check(input::click(gray->get_chart()->get_log_box(), 8, 8), "the heights cannot be logarithmic");
    check(input::enter_text(gray->get_track_min()->get_size_panel()->get_edit(), L"50") &&
              input::enter_text(gray->get_track_max()->get_size_panel()->get_edit(), L"120"),
          "the numbers cannot be typed");
    apply();
    shoot_windows("screen_raster_gray");
    check(input::click(gray->get_chart()->get_log_box(), 8, 8), "the heights stay logarithmic");
    f_window.editor().close();
    remove_all_layers();
    f_window.resize(c_window_size);
}

void Tvx_tour::show_user_palettes(Tvx_scale_grid &grid)
{
    namespace input = vx::user_input;
    constexpr int c_style_col = 5;
    input::on_next_modal([this](input::modal_window const &dialog) {
        dialog.press_button(vx_res_get_wstr(c_pal_add));
        shoot_windows("screen_user_palettes");
        dialog.reject();
    });
    input::choose_in_next_menu(vx_res_get_wstr(c_menu_user_palettes));
    check(input::click_cell(&grid, c_style_col, 0) && input::menu_choice_done(),
          "the dialog of palettes does not open");
    input::forget_pending_modals();
}

void Tvx_tour::show_maps()
{
    remove_all_layers();
    f_window.resize(c_small_window_size);
    Tvx_tour_maps(*this).show();
    Tvx_tour_property(*this).show();
    Tvx_tour_labels(*this).show();
    Tvx_tour_layout(*this).show();
    f_window.resize(c_window_size);
}

void Tvx_tour::show_style_dialog()
{
    remove_all_layers();
    for (char const *file : {"naturalearth_cities.shp", "streets.shp", "nc.shp"}) {
        if (!open_example({file}))
            continue;
        bool seen = false;
        vx::user_input::on_next_modal([&](vx::user_input::modal_window const &dialog) {
            seen = true;
            if (dialog.form())
                save(vx_qt_widget(dialog.form())->grab().toImage(),
                     "style_of_" + f_window.layers().name_at(0));
            dialog.reject();
        });
        QTreeView *list = f_window.panel().view();
        hand::double_click(list->viewport(), hand::picture_of(list, 0));
        vx::user_input::forget_pending_modals();
        check(seen, QString("a double click on the sample opens no style dialog: ") + file);
    }
}

void Tvx_tour::show_broken_file()
{
    f_expected_messages = 1;
    check(f_window.open_files({f_data + "/no_such_file.shp"}) == 0, "a missing file was opened");
    check(f_expected_messages == 0, "no message about a missing file");
    f_expected_messages = 0;
}
