#include "host/tour_property.h"

#include "captions/layer_edit.h"
#include "controls/forms/apply_form.h"
#include "host/layer_editor.h"
#include "host/map_window.h"
#include "host/property_import.h"
#include "host/tour_controls.h"
#include "host/tour_stage.h"
#include "layer_edit/form/lr2d_edit_form.h"
#include "raster_property/property/tos_2crd_lr2d_edit.h"
#include "raster_property/property/tos_grid_lr2d_edit.h"
#include "raster_property/property/tos_slice_lr2d_edit.h"
#include "user_input/user_input.h"

#include "platform/base/owned.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_file_tos4.h"

#include <QDir>
#include <QTemporaryDir>

#include <cmath>
#include <vector>

namespace input = vx::user_input;

namespace {
constexpr int c_levels = 5;
constexpr int c_points = 4000;

/// A stack over the cells of a grid: what of it lies above each of some levels.
bool make_stack(QString const &grid_file, QString const &target)
{
    vx::owned<Ivx_tos4_file, &vx_tos4_file_close> const file(
        vx_tos4_file_open_w(grid_file.toStdWString().c_str(), true));
    vx::owned<Ivx_tos4_prop, &vx_tos4_prop_close> const heights(vx_tos4_prop_open(file.get(), 0));
    Tvx_tos4_grid grid;
    vx_tos4_get_grid(file.get(), &grid);
    std::vector<double> values(grid.objects());
    vx_tos4_prop_get_values(heights.get(), 0, values.size(), values.data());
    grid.dimensions = 3;
    grid.count[2] = c_levels;
    vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
        vx_tos4_writer_create_w(target.toStdWString().c_str(), &grid, L""));
    bool ok = vx_tos4_writer_add_prop_w(writer.get(), L"height", L"");
    constexpr double c_step = 12;
    for (int level = 0; level < c_levels; ++level) {
        std::vector<double> slice(values);
        for (double &value : slice)
            if (value < level * c_step)
                value = std::nan("");
        ok = ok && vx_tos4_writer_append(writer.get(), slice.data(), slice.size());
    }
    return ok && vx_tos4_writer_finish(writer.get());
}

/// A cloud of points along a spiral, with the turn that each is in.
bool make_points(QString const &target)
{
    std::vector<double> x, y, turn;
    for (int i = 0; i < c_points; ++i) {
        double const along = 6.0 * i / c_points;
        double const spread = 0.35 * std::sin(i * 12.9898) * std::cos(i * 78.233);
        double const angle = 2 * 3.14159265358979 * along;
        x.push_back(500000 + 100 * (along + spread) * std::cos(angle));
        y.push_back(6200000 + 100 * (along + spread) * std::sin(angle));
        turn.push_back(std::floor(along) + 1);
    }
    Tvx_tos4_grid grid;
    grid.count[0] = x.size();
    vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
        vx_tos4_writer_create_w(target.toStdWString().c_str(), &grid, L""));
    bool ok = true;
    for (auto const &[name, values] : {std::pair(L"X", &x), {L"Y", &y}, {L"turn", &turn}})
        ok = ok && vx_tos4_writer_add_prop_w(writer.get(), name, L"") &&
             vx_tos4_writer_append(writer.get(), values->data(), values->size());
    return ok && vx_tos4_writer_finish(writer.get());
}
} // namespace

void Tvx_tour_property::show()
{
    QTemporaryDir const folder;
    f_stage.remove_all_layers();
    show_hills(folder.path());
    show_slice(folder.path());
    show_points(folder.path());
}

template <class Page>
Page *Tvx_tour_property::open(QString const &path)
{
    f_stage.check(f_stage.window().open_files({path}) == 1, path + " was not opened");
    f_stage.open_properties_of(0);
    auto *const record = f_stage.window().editor().handle();
    auto *const page = record && record->get_form() ? vx_tour_find<Page>(record->get_form()) : nullptr;
    f_stage.check(page, "the editor has no page: " + path);
    return page;
}

void Tvx_tour_property::show_hills(QString const &folder)
{
    QString const hills = folder + "/hills.tos4";
    QString error;
    f_stage.check(vx_property_import(
                      {f_stage.example("olinda_dem_utm25s.tif")}, hills, c_import_makes,
                      [](int) { return true; }, error) == c_import_done,
                  error);
    auto *const page = open<Tvx_tos_grid_lr2d_edit>(hills);
    if (!page)
        return;
    f_stage.shoot_windows("property_1_mixed_colours");
    f_stage.check(input::click(page->get_interpolate_cb()->get_check_box(), 8, 10),
                  "mixing cannot be turned off");
    finish("property_2_classes");
}

void Tvx_tour_property::show_slice(QString const &folder)
{
    QString const stack = folder + "/levels.tos4";
    f_stage.check(make_stack(folder + "/hills.tos4", stack), "no stack can be made");
    if (!open<Tvx_tos_grid_lr2d_edit>(stack))
        return;
    auto *const form = f_stage.window().editor().handle()->get_form();
    auto *const tabs = vx_tour_find<Tvx_page_control>(form);
    f_stage.check(tabs && input::click_tab(tabs, vx_res_get_wstr(c_caption_slice_prop_tab)),
                  "there is no tab of slices");
    auto *const page = vx_tour_find<Tvx_tos_slice_lr2d_edit>(form);
    f_stage.check(page && input::enter_text(page->get_slice_panel()->get_size_panel()->get_edit(), L"3"),
                  "no slice can be chosen");
    finish("property_3_slice");
}

void Tvx_tour_property::show_points(QString const &folder)
{
    QString const points = folder + "/points.tos4";
    f_stage.check(make_points(points), "no points can be made");
    auto *const page = open<Tvx_tos_2crd_lr2d_edit>(points);
    if (!page)
        return;
    auto *const edit = page->get_stl_mngr_edit();
    f_stage.check(input::choose_item(edit->get_mode_edit()->get_combo_box(), c_style_mode_range) &&
                      input::choose_item(edit->get_rng_edit()->get_prp_scale()->get_combo_box(), L"turn"),
                  "the points cannot be classified");
    finish("property_4_points");
}

void Tvx_tour_property::finish(char const *picture)
{
    f_stage.apply();
    f_stage.shoot_windows(picture);
    f_stage.window().editor().close();
    f_stage.remove_all_layers();
}
