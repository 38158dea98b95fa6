#include "captions/property_layers.h"

#include "controls/forms/dlg_form.h"
#include "host/gallery/gallery_dialog.h"
#include "host/gallery/gallery_page.h"
#include "raster_property/property/tos_2crd_lr2d_edit.h"
#include "raster_property/property/tos_grid_1d_lr2d_edit.h"
#include "raster_property/property/tos_grid_lr2d_edit.h"
#include "raster_property/property/tos_slice_lr2d_edit.h"
#include "style_manager/rotation/rotate_form.h"

#include "platform/base/owned.h"
#include "platform/base/text_codec.h"
#include "platform/basic/vx_res.h"
#include "platform/data/vx_file_tos4.h"
#include "platform/layers/vx_tos_lr2d.h"
#include "platform/styles/vx_stl_mngr.h"

#include <cmath>
#include <filesystem>
#include <unistd.h>
#include <vector>

// The pages of layers over property files, the dialog of rotation, and the page of a curve in a form of its
// own, since the layer editor shows none.

namespace {
constexpr int c_edge = 16;
constexpr int c_gap = 12;
constexpr int c_width = 266;
constexpr int c_height = 420;
constexpr int c_cells = 40;

using owned_layer = vx::owned<Ivx_layer, &vx_lr2d_destroy>;

/// Property files of a hill, made anew for each run and gone with it.
class hill_files
{
public:
    hill_files()
        : f_folder(std::filesystem::temp_directory_path() / ("vx_gallery_" + std::to_string(getpid())))
    {
        std::filesystem::create_directories(f_folder);
        std::vector<double> heights, slopes, stack, profile, x, y;
        for (int row = 0; row < c_cells; ++row)
            for (int column = 0; column < c_cells; ++column) {
                double const dx = column - 22.0, dy = row - 17.0;
                double const bell = std::exp(-(dx * dx + 2 * dy * dy) / 180);
                heights.push_back(std::round(900 * bell + 12 * std::sin(column / 3.0)));
                slopes.push_back(std::round(60 * bell * std::hypot(dx, dy) / 10));
                x.push_back(500000 + 25.0 * column);
                y.push_back(6200000 + 25.0 * row);
            }
        for (int level = 0; level < 5; ++level)
            for (double const height : heights)
                stack.push_back(height * (5 - level) / 5);
        profile.assign(heights.begin() + 17 * c_cells, heights.begin() + 18 * c_cells);
        Tvx_tos4_grid const flat{2, {c_cells, c_cells, 1}, {500000, 6200000, 0}, {25, 25, 1}, 0};
        Tvx_tos4_grid deep = flat;
        deep.dimensions = 3;
        deep.count[2] = 5;
        Tvx_tos4_grid const row{1, {c_cells, 1, 1}, {0, 0, 0}, {25, 1, 1}, 0};
        Tvx_tos4_grid const places{0, {heights.size(), 1, 1}, {0, 0, 0}, {1, 1, 1}, 0};
        f_grid = make("hill.tos4", flat, {{L"height", heights}, {L"slope", slopes}});
        f_stack = make("levels.tos4", deep, {{L"height", stack}});
        f_curve = make("profile.tos4", row, {{L"height", profile}});
        f_points = make("places.tos4", places, {{L"X", x}, {L"Y", y}, {L"height", heights}});
    }
    hill_files(hill_files const &) = delete;
    hill_files &operator=(hill_files const &) = delete;
    ~hill_files()
    {
        std::error_code ignored;
        std::filesystem::remove_all(f_folder, ignored);
    }

    /// They live as long as the program.
    static hill_files const &instance()
    {
        static hill_files const files;
        return files;
    }
    [[nodiscard]] Ivx_layer *grid() const { return f_grid.get(); }
    [[nodiscard]] Ivx_layer *stack() const { return f_stack.get(); }
    [[nodiscard]] Ivx_layer *curve() const { return f_curve.get(); }
    [[nodiscard]] Ivx_layer *points() const { return f_points.get(); }

private:
    using property = std::pair<wchar_t const *, std::vector<double>>;

    owned_layer make(char const *file, Tvx_tos4_grid const &grid,
                     std::vector<property> const &properties) const
    {
        std::wstring const name = vx::text::utf8_to_wide((f_folder / file).string());
        vx::owned<Ivx_tos4_writer, &vx_tos4_writer_destroy> const writer(
            vx_tos4_writer_create_w(name.c_str(), &grid, L""));
        for (auto const &[title, values] : properties) {
            vx_tos4_writer_add_prop_w(writer.get(), title, L"");
            vx_tos4_writer_append(writer.get(), values.data(), values.size());
        }
        vx_tos4_writer_finish(writer.get());
        return owned_layer(vx_tos_lr2d_open(name.c_str(), nullptr));
    }

    std::filesystem::path f_folder;
    owned_layer f_grid, f_stack, f_curve, f_points;
};

template <class Page>
Page *add(TWinControl *parent, int column, int top, int height, Ivx_layer *layer)
{
    auto *const page = new Page(parent);
    page->SetParent(parent);
    page->SetBounds(c_edge + column * (c_width + c_gap), top, c_width, height);
    page->create();
    page->load_res();
    page->set_lr2d(layer);
    page->update_controls();
    return page;
}

void fill(TWinControl *page)
{
    hill_files const &hill = hill_files::instance();
    constexpr int c_slice_height = 50;
    add<Tvx_tos_grid_lr2d_edit>(page, 0, c_edge, c_height, hill.grid());
    static owned_layer const gray(vx_lr2d_clone(hill.grid()));
    vx_tos_grid_lr2d_set_draw_type(gray.get(), c_grid_draw_gray);
    add<Tvx_tos_grid_lr2d_edit>(page, 1, c_edge, c_height, gray.get());
    add<Tvx_tos_slice_lr2d_edit>(page, 2, c_edge, c_slice_height, hill.stack());
    add<Tvx_tos_2crd_lr2d_edit>(page, 2, c_edge + c_slice_height + c_gap, c_height - c_slice_height - c_gap,
                                hill.points());
}

/// The page of a curve in a form of its own.
class curve_form final : public Tvx_dlg_form
{
public:
    curve_form() : Tvx_dlg_form(nullptr), f_page(new Tvx_tos_grid_1d_lr2d_edit(this))
    {
        SetBounds(0, 0, 360, 240);
        f_page->SetParent(get_content_panel());
        f_page->create();
        f_page->SetAlign(alClient);
    }
    void load_res() override
    {
        Tvx_dlg_form::load_res();
        SetCaption(vx_res_get_wstr(c_tos_curve));
        f_page->load_res();
    }
    void set_layer(Ivx_layer *layer)
    {
        f_page->set_lr2d(layer);
        f_page->update_controls();
    }

private:
    Tvx_tos_grid_1d_lr2d_edit *f_page;
};

void show_curve()
{
    curve_form form;
    form.set_layer(hill_files::instance().curve());
    static_cast<void>(form.show_pos(0, 0));
}

void show_rotation()
{
    static vx::owned<void, &vx_stl_mngr_destroy> const areas(vx_stl_mngr_create("pgn_style"));
    vx_stl_mngr_set_rotate_hatch_flag(areas.get(), true);
    vx_stl_mngr_set_rotate_start(areas.get(), 1);
    Tvx_tos_prop_work data;
    data.on_get_tos_lr2d =
        closure<Ivx_layer *()>([](void *) { return hill_files::instance().grid(); }, nullptr);
    Tvx_rotate_form::dialog(0, 0, areas.get(), make_closure<&Tvx_tos_prop_work::on_data_open>(&data),
                            make_closure<&Tvx_tos_prop_work::on_data_close>(&data),
                            make_closure<&Tvx_tos_prop_work::on_data_get_np>(&data), {},
                            make_closure<&Tvx_tos_prop_work::on_data_get_prop>(&data),
                            make_closure<&Tvx_tos_prop_work::on_data_get_capt_prop>(&data), {}, {}, {});
}

gallery_page const g_page(62, L"Property layers", &fill);
gallery_dialog const g_curve(180, L"Page of a curve", &show_curve);
gallery_dialog const g_rotate(181, L"Rotation of a style manager", &show_rotation);
} // namespace
